#include "features/grid_waypoint.h"

#include <algorithm>
#include <limits>

#include "features/record_reader.h"
#include "foundation/field_scanner.h"
#include "foundation/paths.h"
#include "foundation/settings_lines.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kSettingsSuffix = "_GRID_WAYPOINT";
constexpr std::string_view kListName = "GRID Waypoints";

/// A ring count that a damaged settings file may give for "none said".
constexpr std::int16_t kNoRingCount = std::numeric_limits<std::int16_t>::max();

/// What a missing line of a settings file that is there gives.
WaypointSettings MissingLines() {
    WaypointSettings settings;
    settings.display = false;
    settings.clearance = 0.0;
    settings.tolerance = 0.0;
    settings.symbol = 0;
    settings.symbolSize = 0;
    settings.ringCount = 0;
    settings.ringSizeMetres = 0.0;
    settings.ringSizeNm = 0.0;
    return settings;
}

void Correct(WaypointSettings& settings) {
    const WaypointSettings standard;
    if (settings.labelMode < 0 || settings.labelMode > 4) settings.labelMode = 0;
    if (settings.labelPosition < 0 || settings.labelPosition > 5) settings.labelPosition = 0;
    if (settings.ringCount == kNoRingCount) settings.ringCount = standard.ringCount;
    if (IsMissing(settings.ringSizeMetres)) settings.ringSizeMetres = standard.ringSizeMetres;
    if (IsMissing(settings.ringSizeNm)) settings.ringSizeNm = standard.ringSizeNm;
}

/// The text of a name: no line ends, no blanks around it.
std::string CleanName(std::string_view field) {
    std::string name(field);
    std::erase_if(name, [](char c) { return c == '\r' || c == '\n'; });
    return std::string(Trim(name));
}

PASSED_OVER DecodePoint(std::string_view line, const WaypointOrder& order, GridWaypointDef& point) {
    FieldScanner fields(line);
    point.easting = point.northing = MISSING_VALUE;
    for (const char field : order.fields) {
        switch (field) {
            case 'E':
                point.easting = fields.NextNumber();
                break;
            case 'N':
                point.northing = fields.NextNumber();
                break;
            case 'H':
                point.height = fields.NextNumber();
                break;
            case 'R':
                point.radius = fields.NextNumber();
                break;
            default:
                point.name = CleanName(fields.NextString());
                break;
        }
    }
    if (IsMissing(point.height)) point.height = 0.0;
    return PositionFault(point.easting, point.northing);
}

}  // namespace

template <class Lines>
void EachLine(Lines& lines, RecordOf<WaypointSettings> auto& settings) {
    lines.Int("Data Order", settings.dataOrder);
    lines.Bool("Use", settings.display);
    lines.Double("Clearance", settings.clearance, 3);
    lines.Double("Tolerance", settings.tolerance, 3);
    lines.Int("Symbol", settings.symbol);
    lines.Colour("Colour", settings.colour);
    lines.Int("Size", settings.symbolSize);
    lines.Int("Label Mode", settings.labelMode);
    lines.Int("Label Position", settings.labelPosition);
    lines.Bool("Draw Rings", settings.drawRings);
    lines.Int("No Rings", settings.ringCount);
    lines.Double("Ring Size Metres", settings.ringSizeMetres, 3);
    lines.Double("Ring Size NM", settings.ringSizeNm, 3);
    lines.Colour("Ring Colour", settings.ringColour);
    lines.Bool("Catenary Mode", settings.catenaryMode);
}

// ---- Settings ----

std::string CGridWaypoint::SettingsName() const {
    return SplitPath(path).name + std::string(kSettingsSuffix);
}

void CGridWaypoint::SetPath(std::string_view newPath) {
    path = newPath;
    stored = {};
}

void CGridWaypoint::LoadSettings() {
    WaypointSettings& settings = *this;
    settings = WaypointSettings();
    CConfigFile file(files);
    if (file.OpenForRead(SettingsName())) {
        settings = MissingLines();
        quillon::ReadLines(file, settings);
        Correct(settings);
    }
    NoteLines(settings, stored);
}

void CGridWaypoint::SaveSettings() {
    const WaypointSettings& settings = *this;
    FollowStored();
    CConfigFile file(files);
    if (!file.OpenSettingsForWrite(SettingsName())) return;
    WriteLines(file, settings);
    if (file.Commit()) NoteLines(settings, stored);
}

bool CGridWaypoint::FollowStored() {
    WaypointSettings& settings = *this;
    CConfigFile file(files);
    if (!file.OpenForRead(SettingsName())) return false;
    const std::int32_t order = dataOrder;
    const bool followed = FollowFile(file, settings, stored);
    if (followed) Correct(settings);
    if (dataOrder != order) ReadAgain();
    return followed;
}

bool CGridWaypoint::ReadStored() {
    const WaypointSettings before = *this;
    LoadSettings();
    if (dataOrder != before.dataOrder) ReadAgain();
    return before != static_cast<const WaypointSettings&>(*this);
}

const WaypointOrder& CGridWaypoint::Order() const {
    const bool known = dataOrder >= 0 && dataOrder < static_cast<std::int32_t>(kWaypointOrders.size());
    return kWaypointOrders[known ? static_cast<std::size_t>(dataOrder) : 0];
}

// ---- Reading ----

bool CGridWaypoint::Read(std::string_view newPath) {
    return ReadFile(newPath, true);
}

bool CGridWaypoint::ReadData(std::string_view newPath) {
    return ReadFile(newPath, false);
}

bool CGridWaypoint::ReadFile(std::string_view newPath, bool withSettings) {
    RemoveAll();
    CStdioFile file(files);
    const bool opened = OpenData(file, newPath, report, FILE_MODE::BINARY);
    SetReadStamp(file.GetStamp());
    if (!opened) return false;
    if (newPath != path) SetPath(newPath);
    if (withSettings) LoadSettings();
    return ReadFrom(file);
}

bool CGridWaypoint::ReadAgain() {
    CStdioFile file(files);
    if (!OpenData(file, path, report, FILE_MODE::BINARY)) return false;
    if (IsStub()) LoadSettings();
    ReadFrom(file);
    SetReadStamp(file.GetStamp());
    return true;
}

bool CGridWaypoint::ReadFrom(CStdioFile& file) {
    const WaypointOrder& order = Order();
    std::string commas;
    const auto decode = [&](std::string_view line, GridWaypointDef& point) {
        if (line.find(';') == std::string_view::npos) return DecodePoint(line, order, point);
        commas.assign(line);
        std::replace(commas.begin(), commas.end(), ';', ',');
        return DecodePoint(commas, order, point);
    };
    Adopt(ReadRecords<GridWaypointDef>(file, decode, report));
    FillNames();
    return !IsEmpty();
}

void CGridWaypoint::FillNames() {
    const bool named = Order().HasName();
    for (Index i = 0; i < GetSize(); ++i) {
        GridWaypointDef& point = (*this)[i];
        if (!named || point.name.empty()) point.name = Format("Wpt %td", i + 1);
    }
}

void CGridWaypoint::SetPoint(Index index, double easting, double northing, double height, std::string_view name,
                             double radius) {
    (*this)[index] = {easting, northing, height, std::string(name), radius};
}

// ---- The list ----

CGridWaypointList::CGridWaypointList(FileSystem& fileSystem) : CFileList(fileSystem) {
    SetSettingsName(kListName);
}

bool CGridWaypointList::AppendFile(std::string_view path, bool keepUseless) {
    auto waypoints = std::make_unique<CGridWaypoint>(GetFiles());
    if (!waypoints->Read(path)) {
        if (!keepUseless) return false;
        waypoints->SetPath(path);
        waypoints->LoadSettings();
    }
    Append(std::move(waypoints));
    return true;
}

}  // namespace quillon
