#include "panes/waypoint_page.h"

#include <array>

#include "foundation/angle_rows.h"
#include "foundation/paths.h"
#include "panes/target_display_rows.h"
#include "panes/target_rows.h"

namespace quillon {
namespace {

enum GROUP { GROUP_TARGET, GROUP_ALIGNMENT, GROUP_POSITION, GROUP_HEADING };
/// Places of rows without an id.
enum TARGET_PLACE { PLACE_EASTING = 2, PLACE_NORTHING = 3 };
enum HEADING_PLACE { PLACE_MINIMUM = 1, PLACE_MAXIMUM = 2 };

constexpr std::array<std::string_view, 2> kShapes = {"Radial", "Box"};
constexpr NumberRange kHeadingRange{0, 180};
constexpr NumberRange kTiltRange{0, 90};

void AddMetres(CMFCPropertyGridProperty& group, std::string_view name, double value, std::string_view format,
               std::string_view description, UINT id) {
    group.Add<CMFCPropertyGridDouble>(name, value, format, description, id).SetRange(kMetresRange);
}

void AddTolerance(CMFCPropertyGridProperty& group, std::string_view name, double degrees, const NumberRange& range,
                  std::string_view description, UINT id) {
    group.Add<CMFCPropertyGridDouble>(name, degrees, "%6.2lf\xB0", description, id).SetRange(range);
}

}  // namespace

Choices CWaypointPage::WaypointChoices() const {
    const COutline& outline = Object();
    const CGridWaypointList* const files = outline.waypointFiles;
    if (!files || !files->IsValidIndex(outline.waypointFileIndex)) return {};
    std::vector<std::string> names;
    for (const GridWaypointDef& point : (*files)[outline.waypointFileIndex]) names.push_back(point.name);
    const bool held = outline.waypointValid || !outline.waypoint.name.empty();
    return DistinctChoices(std::move(names), held ? outline.waypointIndex : -1);
}

// ---- Rows ----

void CWaypointPage::BuildRows() {
    const COutline& outline = Object();
    auto& target = GetList().AddGroup("Target");
    AddChoices(target, "File Name", FileChoices(outline.waypointFiles, outline.waypointFileIndex),
               "Select the Waypoint File", TARGET_FILE);
    AddChoices(target, "Waypoint", WaypointChoices(), "Select the Waypoint File", TARGET_WAYPOINT);
    AddShown(target, "Easting", outline.waypoint.easting, "%10.2lfE");
    AddShown(target, "Northing", outline.waypoint.northing, "%10.2lfN");
    BuildAlignment(TARGET_TRUE);
    BuildPositionTolerance();
    BuildOtherTolerances();
}

void CWaypointPage::BuildPositionTolerance() {
    const TargetDisplay& display = Object().target;
    auto& group = GetList().AddGroup("Position Tolerance");
    AddChoice(group, "Type", kShapes, kShapes[display.boxShape ? 1 : 0], "Select the type of tolerance shape to use",
              TARGET_SHAPE);
    group.Add<CMFCPropertyGridBool>("Display", display.drawRings, "Determine whether to display Range Rings",
                                    TARGET_RINGS);
    AddMetres(group, "X", display.boxX, "%6.2lf", "Box +/- Tolerance in X axis ", TARGET_BOX_X);
    AddMetres(group, "Y", display.boxY, "%6.2lf", "Box +/- Tolerance in X axis ", TARGET_BOX_Y);
    group
        .Add<CMFCPropertyGridInteger>("Number of Rings", display.ringCount, "", "Number of Range rings to display",
                                      TARGET_RING_COUNT)
        .EnableSpinControl(true, 0, kMostRingsOffered);
    AddMetres(group, "Ring Size", display.ringRadiusMetres, "%4.0lfm", "Ring size in metres", TARGET_RING_SIZE);
    AddColour(group, "Ring Colour", display.ringColour, "Specifies the pen color of the range rings",
              TARGET_RING_COLOUR);
    BuildLabelRows(group, "Cardinal Points Labels", "Range Rings Labels", display,
                   {TARGET_CARDINALS, TARGET_CARDINAL_COLOUR, TARGET_RING_LABELS, TARGET_TEXT_COLOUR});
    for (const UINT id : {TARGET_BOX_X, TARGET_BOX_Y}) ShowRow(id, display.boxShape);
    ShowRow(TARGET_RING_SIZE, !display.boxShape);
}

void CWaypointPage::BuildOtherTolerances() {
    const COutline& outline = Object();
    auto& heading = GetList().AddGroup("Heading Tolerance");
    AddTolerance(heading, "Heading", outline.headingTolerance, kHeadingRange, "Heading +/- Tolerance ", TARGET_HEADING);
    AddShownAngle(heading, "Minimum", outline.target.startZone);
    AddShownAngle(heading, "Maximum", outline.target.stopZone);
    heading.Add<CMFCPropertyGridBool>("Display", outline.target.drawZoneLines,
                                      "Determine whether to display zone Lines", TARGET_ZONE_LINES);
    AddColour(heading, "Zone Colour", outline.target.zoneColour, "Specifies the pen color of the range rings",
              TARGET_ZONE_COLOUR);
    auto& rotation = GetList().AddGroup("Rotation Tolerance");
    AddTolerance(rotation, "Pitch", outline.pitchTolerance, kTiltRange, "Pitch +/- Tolerance ", TARGET_PITCH);
    AddTolerance(rotation, "Roll", outline.rollTolerance, kTiltRange, "Roll +/- Tolerance ", TARGET_ROLL);
    AddMetres(GetList().AddGroup("Vertical Tolerance"), "Depth", outline.depthTolerance, "%6.2lf",
              "Depth +/- Tolerance ", TARGET_DEPTH);
}

void CWaypointPage::ShowWaypoint() {
    SetChoicesOf(TARGET_FILE, FileChoices(Object().waypointFiles, Object().waypointFileIndex));
    SetChoicesOf(TARGET_WAYPOINT, WaypointChoices());
    SetRow({GROUP_TARGET, PLACE_EASTING}, Object().waypoint.easting);
    SetRow({GROUP_TARGET, PLACE_NORTHING}, Object().waypoint.northing);
}

void CWaypointPage::ShowAlignment() {
    COutlinePage::ShowAlignment(TARGET_TRUE, GROUP_ALIGNMENT);
}

void CWaypointPage::ShowZones() {
    SetRow({GROUP_HEADING, PLACE_MINIMUM}, Object().target.startZone);
    SetRow({GROUP_HEADING, PLACE_MAXIMUM}, Object().target.stopZone);
}

// ---- Changes ----

void CWaypointPage::Store(const CMFCPropertyGridProperty& row) {
    COutline& outline = Object();
    TargetDisplay& display = outline.target;
    switch (row.GetData()) {
        case TARGET_FILE:
            if (const int chosen = ChosenOption(row); chosen != outline.waypointFileIndex) StoreWaypoint(chosen, -1);
            return;
        case TARGET_WAYPOINT:
            StoreWaypoint(outline.waypointFileIndex, ChosenOption(row));
            return;
        case TARGET_TRUE:
            if (Take(outline.trueAlignment, row)) outline.UpdateAlignment();
            return;
        case TARGET_RINGS:
            Take(display.drawRings, row);
            return;
        case TARGET_SHAPE:
            return StoreShape(row);
        case TARGET_BOX_X:
            Take(display.boxX, row);
            return;
        case TARGET_BOX_Y:
            Take(display.boxY, row);
            return;
        case TARGET_RING_COUNT:
            // The spin control offers one ring more than is stored.
            if (row.Get<std::int32_t>() <= kMostStoredRings) Take(display.ringCount, row);
            return;
        case TARGET_RING_SIZE:
            Take(display.ringRadiusMetres, row);
            return;
        case TARGET_RING_COLOUR:
            Take(display.ringColour, row);
            return;
        case TARGET_HEADING:
            Take(outline.headingTolerance, row);
            return;
        case TARGET_ZONE_LINES:
            Take(display.drawZoneLines, row);
            return;
        case TARGET_ZONE_COLOUR:
            Take(display.zoneColour, row);
            return;
        case TARGET_PITCH:
            Take(outline.pitchTolerance, row);
            return;
        case TARGET_ROLL:
            Take(outline.rollTolerance, row);
            return;
        case TARGET_DEPTH:
            Take(outline.depthTolerance, row);
            return;
        case TARGET_CARDINALS:
            Take(display.displayLabels, row);
            return;
        case TARGET_CARDINAL_COLOUR:
            Take(display.cardinalColour, row);
            return;
        case TARGET_RING_LABELS:
            Take(display.labelRings, row);
            return;
        case TARGET_TEXT_COLOUR:
            Take(display.textColour, row);
            return;
        default:
            return;
    }
}

/// The zone lines go along where the grid lies another way at the new place; an alignment set on the shadow's tab
/// leaves them.
void CWaypointPage::StoreWaypoint(int file, int index) {
    COutline& outline = Object();
    const double before = outline.convergence;
    outline.SetWaypoint(file, index);
    if (outline.convergence != before) outline.UpdateZones();
}

void CWaypointPage::StoreShape(const CMFCPropertyGridProperty& row) {
    const bool box = row.Get<std::string>() != kShapes[0];
    Object().target.boxShape = box;
    for (const UINT id : {TARGET_BOX_X, TARGET_BOX_Y}) ShowRow(id, box);
    ShowRow(TARGET_RING_SIZE, !box);
}

}  // namespace quillon
