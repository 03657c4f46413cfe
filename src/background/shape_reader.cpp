#include <algorithm>
#include <cmath>

#include "background/path_lengths.h"
#include "background/prj_reader.h"
#include "background/shape.h"
#include "foundation/paths.h"

namespace quillon {
namespace {

constexpr std::string_view kLabelColumn = "TEXTSTRING";
/// Of a .prj: far more than any projection needs.
constexpr std::size_t kLongestProjection = std::size_t{1} << 20;
constexpr std::size_t kBytesPerVertex = 16;

bool OpenEither(const ShapeFileOpener& opener, const std::string& base, std::string_view small, std::string_view large,
                CRandomFile& file) {
    return opener(base + std::string(small), file) || opener(base + std::string(large), file);
}

/// The path without its extension, cut as the shape library cuts it.
std::string BaseOf(std::string_view path) {
    const tagPathParts parts = SplitPath(path);
    return parts.folder + parts.name;
}

void ReadProjection(CShape& shape, const ShapeFileOpener& opener, ShapeReport* report) {
    shape.geographic = true;
    shape.projection = {};
    CRandomFile file;
    if (!OpenEither(opener, BaseOf(shape.GetPath()), ".prj", ".PRJ", file)) return;
    std::string bytes(static_cast<std::size_t>(std::min<std::uint64_t>(file.GetLength(), kLongestProjection)), '\0');
    bytes.resize(file.ReadAt(0, bytes.data(), bytes.size()));
    ReadProjectionText(
        bytes, {shape.ellipsoid, shape.grid, shape.conversion.transformationName, shape.geographic, &shape.projection},
        report);
}

void ReportUnopened(const std::string& base, const ShapeFileOpener& opener, ShapeReport& report) {
    CRandomFile file;
    if (!OpenEither(opener, base, ".shp", ".SHP", file)) {
        report.NoteFile("there is no .shp file");
    } else if (!OpenEither(opener, base, ".shx", ".SHX", file)) {
        report.NoteFile("there is no .shx file beside it");
    } else {
        report.NoteFile("the head of the .shp or the .shx is damaged");
    }
}

bool AreNumbers(std::span<const double> values) {
    return std::all_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); });
}

/// Reads record after record, and counts what is odd about them.
class RecordReader {
public:
    RecordReader(ShpFile& shp, ShapeArena& shapeArena, ShapeReport* recordReport, const LoadProgress& progress)
        : file(shp), arena(shapeArena), lengths(progress), report(recordReport), left(shp.GetLength()) {}

    void Read(int index, ShapeRecord& record) {
        ShapeView view;
        number = static_cast<std::size_t>(index) + 1;
        // Records that share their bytes could hold a thousand times what the file holds.
        if (!file.Read(index, view) || view.x.size() * kBytesPerVertex > left)
            return Note("a record that can't be read");
        left -= view.x.size() * kBytesPerVertex;
        arena.Store(view, record);
        if (HasLength(record.type)) lengths.Add(record.X(), record.Y(), record.length);
        if (report) Judge(record);
    }
    void Finish() { lengths.Finish(); }

private:
    void Judge(const ShapeRecord& record) {
        if (record.type == SHAPE_NULL) {
            ++report->nullRecords;
            return Note("a null record");
        }
        if (ShapeTypeName(record.type).empty()) return Note("a record of a type that isn't known");
        ++report->taken;
        if (!AreNumbers(record.X()) || !AreNumbers(record.Y())) Note("a record with coordinates that are no numbers");
    }
    void Note(std::string_view what) {
        if (report) report->NoteRecord(number, what);
    }

    ShpFile& file;
    ShapeArena& arena;
    PathLengths lengths;
    ShapeReport* report;
    std::uint64_t left;
    std::size_t number = 0;
};

void ReportWhole(const CShape& shape, const ShpFile& shp, ShapeReport& report) {
    if (shp.GetLength() != shp.GetClaimedLength()) {
        report.NoteFile(shp.GetLength() > shp.GetClaimedLength() ? "the .shp is longer than its head says"
                                                                 : "the .shp is shorter than its head says");
    }
    const bool lines = std::any_of(shape.records.begin(), shape.records.end(),
                                   [](const ShapeRecord& record) { return HasLength(record.type); });
    if (lines && !shape.HasDegrees()) {
        report.NoteFile("the lengths mean nothing: the coordinates aren't degrees");
    }
}

/// A text column that drawing programs write is what such a file is labelled by.
void TakeSettings(CShape& shape) {
    shape.ReadSettings();
    shape.hasTakenColumn = false;
    const int column = shape.dbase.FindColumn(kLabelColumn);
    if (column < 0 || column == shape.labelColumn) return;
    shape.labelColumn = static_cast<std::int16_t>(column);
    shape.hasTakenColumn = true;
}

}  // namespace

bool LoadShape(CShape& shape, LoadProgress& progress, ShapeReport* report) {
    // Before the first byte is read: a file that changes meanwhile is another one afterwards.
    shape.source = DosStampOf(shape.GetFiles(), shape.GetPath());
    return LoadShape(shape, OpenerOf(shape.GetFiles()), progress, report);
}

bool LoadShape(CShape& shape, const ShapeFileOpener& opener, LoadProgress& progress, ShapeReport* report) {
    if (report) *report = {};
    shape.records.clear();
    shape.arena.Clear();
    shape.stamp.Renew();
    ReadProjection(shape, opener, report);
    ShpFile file(opener, shape.GetPath(), progress);
    shape.dbase.SetPath(shape.GetPath());
    shape.dbase.ReadColumns(opener, file.IsOpen() ? file.GetCount() : 0, file.IsOpen() ? report : nullptr);
    if (!file.IsOpen()) {
        if (report) ReportUnopened(BaseOf(shape.GetPath()), opener, *report);
        return false;
    }
    if (report) {
        report->opened = true;
        report->records = static_cast<std::size_t>(file.GetCount());
    }
    shape.shapeType = file.GetType();
    shape.boundsMin = file.GetBoundsMin();
    shape.boundsMax = file.GetBoundsMax();

    // The library has read the place of each record from the .shx, so the count is no mere claim.
    shape.records.resize(static_cast<std::size_t>(file.GetCount()));
    progress.Begin(shape.records.size());
    RecordReader reader(file, shape.arena, report, progress);
    for (int i = 0; i < file.GetCount() && !progress.IsCancelled(); ++i) {
        progress.SetPosition(static_cast<std::uint64_t>(i) + 1);
        reader.Read(i, shape.records[static_cast<std::size_t>(i)]);
    }
    reader.Finish();
    if (progress.IsCancelled()) return false;
    TakeSettings(shape);
    if (report) ReportWhole(shape, file, *report);
    return true;
}

}  // namespace quillon
