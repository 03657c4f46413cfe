#include "target/outline.h"

#include <algorithm>
#include <cmath>

#include "background/dxf_lines.h"
#include "foundation/angle_units.h"
#include "foundation/folders.h"
#include "foundation/paths.h"
#include "foundation/settings_lines.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kFolder = "Vessel";
constexpr double kFullTurn = 360.0;

/// A whole number of metres, towards zero.
tagXY WholeMetres(double x, double y) {
    return {std::trunc(x), std::trunc(y)};
}

}  // namespace

// ---- The lines of the file ----

template <class Lines>
void EachLine(Lines& lines, RecordOf<OutlineSettings> auto& settings) {
    lines.Bool("Active", settings.active);
    lines.Int("Primary GPS", settings.primaryGps);
    lines.Int("Primary MRU", settings.primaryMru);
    lines.Int("Trk Pt Type", settings.trackType);
    lines.Int("Trk Pt No", settings.trackIndex);
    lines.Int("Trk Pt Symbol Size", settings.trackSymbolSize);
    lines.Int("Waypoint File Index", settings.waypointFileIndex);
    lines.Int("Waypoint no", settings.waypointIndex);
    lines.Colour("Waypoint Colour", settings.waypointColour);
    lines.Bool("Enable Trail", settings.enableTrail);
    lines.Bool("Show Trail", settings.showTrail);
    lines.Colour("Trail Colour", settings.trailColour);
    lines.Int("Max Trail Size", settings.maxTrailSize);
    lines.Bool("Show", settings.show);
    lines.Text("Outline File", settings.outlineFile);
    lines.Colour("Outline Colour", settings.outlinePen.colour);
    lines.Int("Outline Size", settings.outlinePen.thickness);
    lines.Int("Outline Style", settings.outlinePen.style);
    lines.Int("Outline Fill", settings.outlinePen.fill);
    lines.Colour("Shadow Colour", settings.shadowPen.colour);
    lines.Int("Shadow Size", settings.shadowPen.thickness);
    lines.Int("Shadow Style", settings.shadowPen.style);
    lines.Int("Shadow Fill", settings.shadowPen.fill);
    lines.Double("Length A", settings.lengthA, 3);
    lines.Double("Length B", settings.lengthB, 3);
    lines.Double("Width A", settings.widthA, 3);
    lines.Double("Width B", settings.widthB, 3);
    lines.Double("True Alignment", settings.trueAlignment, 3);
}

template <class Lines>
void EachLine(Lines& lines, RecordOf<OutlineTolerances> auto& tolerances) {
    lines.Double("Heading Tolerance", tolerances.headingTolerance, 3);
    lines.Double("Pitch Tolerance", tolerances.pitchTolerance, 3);
    lines.Double("Roll Tolerance", tolerances.rollTolerance, 3);
    lines.Double("Depth Tolerance", tolerances.depthTolerance, 3);
    lines.Int("SailLine File Index", tolerances.sailLineFileIndex);
    lines.Int("SailLine no", tolerances.sailLineIndex);
    lines.Colour("Sail Line Colour", tolerances.sailLineColour);
}

namespace {

/// The sections between the display lines and the tolerances.
template <class Sections>
void EachSection(Sections&& sections, auto& outline) {
    sections.Section("Antenna", outline.antennas);
    sections.Section("Offsets", outline.offsets);
}

}  // namespace

void COutline::ReadFrom(SectionFile& file) {
    ReadHead(file);
    ReadLines(file, static_cast<OutlineSettings&>(*this));
    ReadLines(file, target);
    EachSection(SectionReader(file), *this);
    ReadLines(file, static_cast<OutlineTolerances&>(*this));
    ReadLines(file, dxf);
    ReadSections(file);
}

bool COutline::Save() const {
    CConfigFile file(files);
    if (!file.OpenForWrite(GetDataFolder(files, kFolder), name, Extension())) return false;
    WriteHead(file);
    WriteLines(file, static_cast<const OutlineSettings&>(*this));
    WriteLines(file, target);
    EachSection(SectionWriter(file), *this);
    WriteLines(file, static_cast<const OutlineTolerances&>(*this));
    WriteLines(file, dxf);
    WriteSections(file);
    return file.Commit();
}

std::string COutline::SettingsPath() const {
    return MakePath(GetDataFolder(files, kFolder), name, Extension());
}

bool COutline::ReadSettings(std::string_view path) {
    SectionFile file(files);
    name = SplitPath(path).name;
    if (!file.OpenForReading(path)) return false;
    ReadFrom(file);
    return true;
}

bool COutline::Load(std::string_view settingsName) {
    name = settingsName;
    if (!ReadSettings(SettingsPath())) return false;
    LoadOutline();
    waypointFileIndex < 0 ? ClearWaypoint() : SetWaypoint(-1, -1);
    sailLineFileIndex < 0 ? ClearSailLine() : SetSailLine(-1, -1);
    UpdateAlignment();
    UpdateBox();
    TrackedPosition();
    return true;
}

/// The drawing's settings are the object's, and not those of a file beside the drawing.
bool COutline::LoadDrawing() {
    if (!dxf.Open(outlineFile)) return false;
    while (dxf.ReadSection()) {
    }
    dxf.Close();
    points = OutlineOfDrawing(dxf);
    const double scale = DrawingScale();
    for (OutlinePoint& point : points) point.position = {point.position.x * scale, point.position.y * scale};
    return true;
}

double COutline::DrawingScale() const {
    return dxf.scale > 0.0 && !IsMissing(dxf.scale) ? dxf.scale : 1.0;
}

bool COutline::LoadOutline(ReadReport* report) {
    points.clear();
    outlineStamp.Renew();
    dxf.OpenBytes({});
    dxf.Close();
    if (outlineFile.empty()) return true;
    if (IsDrawingPath(outlineFile)) return LoadDrawing();
    CStdioFile file(files);
    if (!file.OpenForReading(outlineFile)) return false;
    points = ReadOutlineText(file, report);
    return true;
}

void COutline::TakeExtent() {
    if (points.empty()) return;
    lengthA = lengthB = widthA = widthB = 0.0;
    for (const OutlinePoint& point : points) {
        lengthA = std::max(lengthA, point.position.y);
        lengthB = std::max(lengthB, -point.position.y);
        widthA = std::max(widthA, -point.position.x);
        widthB = std::max(widthB, point.position.x);
    }
}

// ---- The tracked point ----

std::string_view COutline::TrackTypeName() const {
    const bool known = trackType >= 0 && trackType < static_cast<std::int32_t>(kTrackTypeNames.size());
    return known ? kTrackTypeNames[static_cast<std::size_t>(trackType)] : std::string_view();
}

const OffsetPoints* COutline::OffsetsOf(std::int32_t type) const {
    if (type == TRACK_ANTENNA) return &antennas;
    return type == TRACK_OFFSET ? &offsets : nullptr;
}

int COutline::OffsetCount(std::int32_t type) const {
    const OffsetPoints* const found = OffsetsOf(type);
    return found ? static_cast<int>(found->size()) : 0;
}

const OffsetPoint* COutline::OffsetAt(std::int32_t type, std::int32_t index) const {
    const bool there = index >= 0 && index < OffsetCount(type);
    return there ? &(*OffsetsOf(type))[static_cast<std::size_t>(index)] : nullptr;
}

tagXY COutline::TrackedPosition() {
    const tagXY at = {waypoint.easting, waypoint.northing};
    const OffsetPoint* const point = OffsetAt(trackType, trackIndex);
    trackedPosition = point ? PlaceOnGrid(*this, at, {-point->x, -point->y}) : at;
    return trackedPosition;
}

std::string COutline::TrackedName() const {
    if (const OffsetPoint* const point = OffsetAt(trackType, trackIndex)) return point->name;
    const OffsetPoint* const antenna = OffsetAt(TRACK_ANTENNA, primaryGps);
    return trackType == TRACK_REFERENCE && antenna ? "CRP - " + antenna->name : "n/a";
}

// ---- The target ----

void COutline::SetWaypoint(int fileIndex, int index) {
    TakeWaypoint(fileIndex, index);
    if (geodesy) {
        UpdateConvergence();
        UpdateAlignment();
    }
    if (waypointValid) UpdateBox();
}

void COutline::TakeWaypoint(int fileIndex, int index) {
    const int wantedFile = fileIndex < 0 ? waypointFileIndex : fileIndex;
    const int wanted = index < 0 ? waypointIndex : index;
    waypoint = {};
    waypointValid = false;
    waypointFileIndex = waypointIndex = 0;
    if (!waypointFiles) return;
    const int file = std::min(wantedFile, waypointFiles->GetCount() - 1);
    if (file < 0) return;
    waypointFileIndex = file;
    const int place = std::min(wanted, waypointFiles->GetPointCount(file) - 1);
    if (place < 0) return;
    waypointIndex = place;
    waypoint = (*waypointFiles)[file][place];
    waypointValid = waypoint.easting != 0.0 || waypoint.northing != 0.0;
}

void COutline::SetSailLine(int fileIndex, int lineIndex) {
    const int wantedFile = fileIndex < 0 ? sailLineFileIndex : fileIndex;
    const int wanted = lineIndex < 0 ? sailLineIndex : lineIndex;
    sailLine = {};
    sailLineValid = false;
    sailLineFileIndex = sailLineIndex = 0;
    if (!sailLineFiles) return;
    const int file = std::min(wantedFile, sailLineFiles->GetCount() - 1);
    if (file < 0) return;
    sailLineFileIndex = file;
    const int place = std::min(wanted, sailLineFiles->GetPointCount(file) - 1);
    if (place < 0) return;
    sailLineIndex = place;
    sailLine = (*sailLineFiles)[file][place];
    sailLineValid = sailLine.sol != sailLine.eol;
}

void COutline::ClearWaypoint() {
    waypoint = {};
    waypointValid = false;
    waypointFileIndex = waypointIndex = -1;
    if (geodesy) {
        UpdateConvergence();
        UpdateAlignment();
    }
}

void COutline::ClearSailLine() {
    sailLine = {};
    sailLineValid = false;
    sailLineFileIndex = sailLineIndex = -1;
}

std::string COutline::WaypointFileName() const {
    const bool there = waypointFiles && waypointFiles->IsValidIndex(waypointFileIndex);
    return there ? NameOfPath(waypointFiles->GetPath(waypointFileIndex)) : std::string();
}

std::string COutline::SailLineFileName() const {
    const bool there = sailLineFiles && sailLineFiles->IsValidIndex(sailLineFileIndex);
    return there ? NameOfPath(sailLineFiles->GetPath(sailLineFileIndex)) : std::string();
}

// ---- What hangs on the alignment ----

std::optional<double> COutline::GridConvergence() const {
    if (!geodesy || !waypointValid) return std::nullopt;
    const auto there = geodesy->ScaleAt({waypoint.easting, waypoint.northing});
    if (!there) return std::nullopt;
    return there->convergence / kRadiansPerDegree;
}

void COutline::UpdateConvergence() {
    if (geodesy) convergence = GridConvergence().value_or(0.0);
}

std::string_view COutline::ConvergenceNote() const {
    if (!geodesy || GridConvergence()) return {};
    if (!geodesy->IsChosen()) return "no grid";
    return waypointValid ? "outside the grid" : "no target";
}

void COutline::UpdateAlignment() {
    if (trueAlignment < 0.0 || trueAlignment > kFullTurn) {
        sinAlign = cosAlign = 0.0;
        return;
    }
    gridAlignment = trueAlignment - convergence;
    if (gridAlignment < 0.0) gridAlignment += kFullTurn;
    sinAlign = std::sin(gridAlignment * kRadiansPerDegree);
    cosAlign = std::cos(gridAlignment * kRadiansPerDegree);
}

void COutline::UpdateBox() {
    const double x = target.boxX, y = target.boxY, s = sinAlign, c = cosAlign;
    target.box = {WholeMetres(c * x + s * y, c * y - s * x), WholeMetres(c * x - s * y, -c * y - s * x),
                  WholeMetres(-c * x - s * y, -c * y + s * x), WholeMetres(-c * x + s * y, c * y + s * x)};
    for (tagXY& corner : target.box) {
        corner.x += waypoint.easting;
        corner.y += waypoint.northing;
    }
}

void COutline::UpdateZones() {
    target.startZone = gridAlignment - headingTolerance;
    if (target.startZone < 0.0) target.startZone += kFullTurn;
    target.stopZone = gridAlignment + headingTolerance;
    if (target.stopZone > kFullTurn) target.stopZone -= kFullTurn;
}

tagXY PlaceOnGrid(const COutline& outline, tagXY position, tagXY point) {
    return {position.x + point.x * outline.cosAlign + point.y * outline.sinAlign,
            position.y - point.x * outline.sinAlign + point.y * outline.cosAlign};
}

}  // namespace quillon
