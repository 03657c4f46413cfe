#include "features/structure.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <system_error>

#include "features/record_reader.h"
#include "foundation/folders.h"
#include "foundation/paths.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kFolder = "Structures";
constexpr std::string_view kDefaultName = "StructureConfig";
constexpr std::string_view kDefaultExtension = "dat";
constexpr std::string_view kBlockHead = "STRUCTURE";
constexpr std::string_view kNamePrefix = "Structure";
/// Characters of a line that are read.
constexpr std::size_t kLongestLine = 255;
constexpr double kFullTurn = 360.0;

/// A number as it may stand in a record: one that is not finite counts as none.
double NumberOf(std::string_view text) {
    const double number = Atof(text);
    return std::isfinite(number) ? number : 0.0;
}

/// What comes next in a file.
enum class BLOCK { WHOLE, CUT, NONE };

/// Reads one block after another.
class BlockReader {
public:
    explicit BlockReader(CStdioFile& opened) : file(opened) {}

    BLOCK Next(StructureDef& record) {
        if (!NextLine()) return BLOCK::NONE;
        if (line.substr(0, kBlockHead.size()) != kBlockHead) return line.empty() ? BLOCK::NONE : BLOCK::CUT;
        record = {};
        record.shapeNumber = Atoi(Value());
        if (!NextLine()) return BLOCK::CUT;
        record.name = Trim(Value());
        if (!NextLine()) return BLOCK::CUT;
        record.shape = Trim(Value());
        if (!NextLine()) return BLOCK::CUT;
        record.show = Atoi(Value()) != 0;
        if (!NextLine()) return BLOCK::CUT;
        // The E of the easting has no digits behind it, so the number ends there.
        record.position = {NumberOf(line), NumberOf(Value())};
        if (!NextLine()) return BLOCK::CUT;
        record.height = NumberOf(Value());
        if (!NextLine()) return BLOCK::CUT;
        record.heading = NumberOf(Value());
        if (record.heading < 0.0 || record.heading > kFullTurn) record.heading = 0.0;
        if (!NextLine()) return BLOCK::CUT;
        record.length = NumberOf(Value());
        NextLine();  // the blank one between two blocks
        return BLOCK::WHOLE;
    }

private:
    bool NextLine() {
        if (!file.ReadString(line)) return false;
        line = TrimRight(line.substr(0, kLongestLine));
        return true;
    }
    /// What follows the first blank of the line.
    std::string_view Value() const {
        const std::size_t blank = line.find(' ');
        return blank == std::string_view::npos ? std::string_view() : line.substr(blank + 1);
    }

    CStdioFile& file;
    std::string_view line;
};

std::string BlockOf(const StructureDef& record) {
    std::string text = Format("STRUCTURE %d\n", record.shapeNumber);
    text.append("NAME ").append(record.name).append("\n");
    text.append("SHAPE ").append(record.shape).append("\n");
    text += record.show ? "SHOW 1\n" : "SHOW 0\n";
    text += Format("%.3lfE %.3lf\n", record.position.x, record.position.y);
    text += Format("HEIGHT %.2lf\n", record.height);
    text += Format("HEADING %.1lf\n", record.heading);
    text += Format("LENGTH %.2lf\n", record.length);
    return text;
}

}  // namespace

std::string SettledStructureName(std::string_view name, std::ptrdiff_t index) {
    const bool isDefault = name.empty() || EqualNoCase(name.substr(0, kNamePrefix.size()), kNamePrefix);
    return isDefault ? Format("Structure %td", index + 1) : std::string(name);
}

// ---- One file ----

bool CStructure::Read(std::string_view path) {
    const std::string wanted = path.empty()
                                   ? MakePath(GetDataFolder(GetFiles(), kFolder), kDefaultName, kDefaultExtension)
                                   : std::string(path);
    SetPathAndLoad(wanted);
    RemoveAll();
    SetStub(false);
    CStdioFile file(GetFiles());
    const bool taken = OpenData(file, GetPath(), report) && ReadFrom(file);
    SetReadStamp(file.GetStamp());
    return taken;
}

bool CStructure::ReadFrom(CStdioFile& file) {
    report = ReadReport();
    report.opened = true;
    SetStub(false);
    RemoveAll();
    BlockReader blocks(file);
    std::vector<StructureDef> records;
    StructureDef record;
    BLOCK block;
    while ((block = blocks.Next(record)) == BLOCK::WHOLE) {
        record.name = SettledStructureName(record.name, static_cast<std::ptrdiff_t>(records.size()));
        records.push_back(std::move(record));
        report.Count(PASSED_OVER::NO);
    }
    if (block == BLOCK::CUT) report.Count(PASSED_OVER::CUT_BLOCK);
    written = records;
    Adopt(std::move(records));
    return !IsEmpty();
}

void CStructure::MakeStub(std::string_view path, const StructureDef& record) {
    SetPathAndLoad(path);
    RemoveAll();
    Add(record);
    SetStub(true);
}

bool CStructure::ReadAgain() {
    CStdioFile file(GetFiles());
    if (!OpenData(file, GetPath(), report)) return false;
    const bool wasStub = IsStub();
    const StructureDef before = IsEmpty() ? StructureDef() : (*this)[0];
    if (!ReadFrom(file)) {
        Add(wasStub ? before : StructureDef{.name = SettledStructureName({}, 0)});
        SetStub(true);
    }
    SetReadStamp(file.GetStamp());
    return true;
}

bool CStructure::Write() {
    CStdioFile file(GetFiles());
    if (!file.OpenForWriting(GetPath())) return false;
    for (Index i = 0; i < GetSize(); ++i) {
        file.WriteString(BlockOf((*this)[i]));
        if (i < GetUpperBound()) file.WriteString("\n");
    }
    if (!file.Commit()) return false;
    // What was only shown is in the file now.
    SetStub(false);
    SetReadStamp(GetFiles().Stamp(GetPath()));
    written.assign(begin(), end());
    return true;
}

void CStructure::KeepUnsaved() {
    KeepCommon();
    const bool isWritten = std::equal(begin(), end(), written.begin(), written.end());
    if (isWritten || IsStub() || ChangeOnDisk(GetFiles(), GetPath()) != DISK_CHANGE::NONE) return;
    Write();
}

// ---- The list ----

bool CStructureList::AppendFile(std::string_view path, bool) {
    auto structure = std::make_unique<CStructure>(GetFiles());
    if (!structure->Read(path)) {
        StructureDef record{.name = SettledStructureName({}, 0)};
        TakeDefaultShape(record);
        structure->MakeStub(path, record);
    }
    Append(std::move(structure));
    return true;
}

std::string CStructureList::CurrentFileName() const {
    return IsValidIndex(editState.editFileIndex) ? GetPath(editState.editFileIndex) : std::string();
}

std::string CStructureList::ShapesFolder() const {
    return GetDataFolder(GetFiles(), kFolder);
}

std::vector<std::string> CStructureList::LoadShapes(std::string_view folder) {
    std::vector<std::string> paths;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(GetFiles().Native(folder), ignored)) {
        const std::string path = GetFiles().LibraryPath(entry.path());
        if (EqualNoCase(SplitPath(path).extension, "dxf")) paths.push_back(path);
    }
    // Names that differ in nothing but capitals keep an order of their own.
    std::sort(paths.begin(), paths.end(), [](const std::string& a, const std::string& b) {
        const std::string foldedA = ToUpper(NameOfPath(a)), foldedB = ToUpper(NameOfPath(b));
        return foldedA != foldedB ? foldedA < foldedB : a < b;
    });
    shapes.clear();
    std::vector<std::string> leftOut;
    for (const std::string& path : paths) {
        auto shape = std::make_unique<CDxf>(GetFiles());
        if (shape->Read(path) && shape->hasSections) {
            shapes.push_back(std::move(shape));
        } else {
            leftOut.push_back(path);
        }
    }
    return leftOut;
}

const StructureDef* CStructureList::RecordAt(int fileIndex, int structureIndex) const {
    const bool there = IsValidIndex(fileIndex) && (*this)[fileIndex].IsValidIndex(structureIndex);
    return there ? &(*this)[fileIndex][structureIndex] : nullptr;
}

CDxf* CStructureList::ShapeOf(const StructureDef& structure) const {
    const auto number = static_cast<std::size_t>(std::max(structure.shapeNumber, 0));
    CDxf* const numbered = number >= 1 && number <= shapes.size() ? shapes[number - 1].get() : nullptr;
    const auto isNamed = [&](const CDxf& shape) { return NameOfPath(shape.fileName) == structure.shape; };
    if (numbered && isNamed(*numbered)) return numbered;
    const auto named = std::find_if(shapes.begin(), shapes.end(), [&](const auto& shape) { return isNamed(*shape); });
    return named != shapes.end() ? named->get() : numbered;
}

CDxf* CStructureList::ShapeOf(int fileIndex, int structureIndex) const {
    const StructureDef* const record = RecordAt(fileIndex, structureIndex);
    return record ? ShapeOf(*record) : nullptr;
}

tagXY CStructureList::ShapeSize(const StructureDef& structure) const {
    const CDxf* const shape = ShapeOf(structure);
    if (!shape || !shape->HasExtents()) return {};
    return {shape->extMax.x - shape->extMin.x, shape->extMax.y - shape->extMin.y};
}

tagXY CStructureList::ShapeSize(int fileIndex, int structureIndex) const {
    const StructureDef* const record = RecordAt(fileIndex, structureIndex);
    return record ? ShapeSize(*record) : tagXY();
}

double CStructureList::ScaleFactor(const StructureDef& structure) const {
    const tagXY size = ShapeSize(structure);
    const double longest = std::max(size.x, size.y);
    return longest > 0.0 ? structure.length / longest : 1.0;
}

double CStructureList::ScaleFactor(int fileIndex, int structureIndex) const {
    const StructureDef* const record = RecordAt(fileIndex, structureIndex);
    return record ? ScaleFactor(*record) : 1.0;
}

void CStructureList::TakeDefaultShape(StructureDef& structure) const {
    if (!structure.shape.empty() || shapes.empty()) return;
    structure.shapeNumber = 1;
    structure.shape = NameOfPath(shapes.front()->fileName);
    const tagXY size = ShapeSize(structure);
    structure.length = std::max(size.x, size.y);
}

}  // namespace quillon
