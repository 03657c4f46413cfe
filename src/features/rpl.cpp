#include "features/rpl.h"

#include "features/record_reader.h"
#include "features/rpl_geometry.h"
#include "foundation/paths.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kSettingsSuffix = "_RPL";
constexpr std::string_view kRlxExtension = "RLX";

/// What a line that is missing from the settings file leaves. It differs from what holds without a file.
RPLSettings MissingLines() {
    const tagPen plain{.style = 0, .thickness = 1, .colour = 0, .fill = 0};
    return {.use = false,
            .displayCorridor = false,
            .portCorridor = 0.0,
            .starboardCorridor = 0.0,
            .corridorPen = plain,
            .linePen = plain,
            .diameter = 0,
            .clearance = 0.0,
            .tolerance = 0.0};
}

std::vector<std::uint32_t> LinesOf(const RplRows& read) {
    std::vector<std::uint32_t> lines;
    lines.reserve(read.rows.size());
    const bool pairs = read.form == RPL_FORM::TANGENT;
    for (std::size_t i = 0; i < read.rows.size(); i += pairs && i > 0 ? 2 : 1) lines.push_back(read.rows[i].line);
    return lines;
}

}  // namespace

template <class Lines>
void EachLine(Lines& lines, RecordOf<RPLSettings> auto& settings) {
    lines.Bool("Use", settings.use);
    lines.Bool("Display Corridor", settings.displayCorridor);
    lines.Double("Port Corridor", settings.portCorridor, 3);
    lines.Double("Stdb Corridor", settings.starboardCorridor, 3);
    lines.Pen("Corridor Pen", settings.corridorPen);
    lines.Pen("Pipeline Pen", settings.linePen);
    lines.Int("Diameter", settings.diameter);
    lines.Double("Clearance", settings.clearance, 3);
    lines.Double("Tolerance", settings.tolerance, 3);
}

// ---- Reading ----

bool CRPL::Load(std::string_view newPath) {
    SetPath(newPath);
    ReadSettings();
    return LoadData(path);
}

bool CRPL::LoadData(std::string_view newPath) {
    if (newPath != path) SetPath(newPath);
    RemoveAll();
    form = RPL_FORM::NONE;
    CStdioFile file(files);
    const bool taken = OpenData(file, path, report) && ReadFrom(file, IsRlx());
    SetReadStamp(file.GetStamp());
    return taken;
}

bool CRPL::ReadAgain() {
    CStdioFile file(files);
    if (!OpenData(file, path, report)) return false;
    if (IsStub()) ReadSettings();
    ReadFrom(file, IsRlx());
    SetReadStamp(file.GetStamp());
    return true;
}

bool CRPL::IsRlx() const {
    return EqualNoCase(SplitPath(path).extension, kRlxExtension);
}

bool CRPL::ReadFrom(CStdioFile& file, bool isRlx) {
    RemoveAll();
    const RplRows read = ReadRplRows(file, isRlx, report);
    form = read.form;
    if (form == RPL_FORM::NONE) return false;
    if (form == RPL_FORM::RLX) {
        Adopt(RecordsFromRlx(read.rlx, report));
        ComputeCorridor();
        return !IsEmpty();
    }
    const std::vector<std::uint32_t> lines = LinesOf(read);
    if (form == RPL_FORM::TANGENT) {
        Adopt(RecordsFromTangents(read.rows));
        quillon::ComputeCurvesFromTangents(Records(), lines, &report);
        return true;
    }
    TakeRows(read.rows);
    quillon::ComputeCurvesFromRadii(Records(), lines, &report);
    ComputeCorridor();
    return true;
}

void CRPL::TakeRows(const std::vector<RplRow>& rows) {
    SetSize(static_cast<Index>(rows.size()));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        RPLDef& record = (*this)[static_cast<Index>(i)];
        MakePlain(record, rows[i].position);
        record.radius = rows[i].radius;
    }
}

void CRPL::ComputeCurvesFromRadii() {
    quillon::ComputeCurvesFromRadii(Records(), {}, nullptr);
    ComputeCorridor();
}

void CRPL::ComputeCurvesFromTangents() {
    quillon::ComputeCurvesFromTangents(Records(), {}, nullptr);
}

void CRPL::ComputeCorridor() {
    ComputeRplCorridor(Records(), {portCorridor, starboardCorridor});
}

// ---- Settings ----

std::string CRPL::SettingsName() const {
    return SplitPath(path).name + std::string(kSettingsSuffix);
}

void CRPL::ReadSettings() {
    RPLSettings& settings = *this;
    settings = RPLSettings();
    CConfigFile file(files);
    if (file.OpenForRead(SettingsName())) {
        settings = MissingLines();
        ReadLines(file, settings);
    }
    NoteLines(settings, stored);
}

void CRPL::WriteSettings() {
    const RPLSettings& settings = *this;
    if (path.empty()) return;
    FollowStored();
    CConfigFile file(files);
    if (!file.OpenSettingsForWrite(SettingsName())) return;
    WriteLines(file, settings);
    if (file.Commit()) NoteLines(settings, stored);
}

bool CRPL::FollowStored() {
    RPLSettings& settings = *this;
    CConfigFile file(files);
    return !path.empty() && file.OpenForRead(SettingsName()) && FollowFile(file, settings, stored);
}

bool CRPL::ReadStored() {
    const RPLSettings before = *this;
    ReadSettings();
    return before != static_cast<const RPLSettings&>(*this);
}

// ---- The list ----

CRPLList::CRPLList(FileSystem& fileSystem) : CFileList(fileSystem) {
    SetSettingsName("RPLs");
}

bool CRPLList::AppendFile(std::string_view path, bool keepUseless) {
    auto rpl = std::make_unique<CRPL>(GetFiles());
    if (!rpl->Load(path) && !keepUseless) return false;
    Append(std::move(rpl));
    return true;
}

}  // namespace quillon
