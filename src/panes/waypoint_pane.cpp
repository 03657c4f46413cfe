#include "panes/waypoint_pane.h"

#include <array>

#include "features/grid_waypoint_columns.h"
#include "panes/row_values.h"
#include "platform/platform.h"

namespace quillon {
namespace {

using enum EQUAL_VALUE;
using enum POST;

constexpr std::uint8_t kSaveSettings = 1;
constexpr int kSymbolsOffered = 13;
constexpr int kMostRings = 25;

// clang-format off
constexpr std::array<RowEffect, 15> kEffects = {{
    // row                      equal   save           changed  messages
    {WAYPOINT_DISPLAY,          COUNTS, kSaveSettings, false,   {REDRAW}},
    {WAYPOINT_ORDER,            COUNTS, 0,             false,   {REDRAW, RECOMPUTE}},
    {WAYPOINT_SYMBOL,           COUNTS, kSaveSettings, false,   {REDRAW}},
    {WAYPOINT_COLOUR,           COUNTS, kSaveSettings, false,   {REDRAW}},
    {WAYPOINT_SIZE,             COUNTS, kSaveSettings, false,   {REDRAW}},
    {WAYPOINT_LABEL_MODE,       COUNTS, kSaveSettings, false,   {REDRAW}},
    {WAYPOINT_LABEL_POSITION,   COUNTS, kSaveSettings, false,   {REDRAW}},
    {WAYPOINT_RINGS,            COUNTS, kSaveSettings, false,   {REDRAW}},
    {WAYPOINT_RING_COUNT,       COUNTS, kSaveSettings, false,   {REDRAW}},
    {WAYPOINT_RING_SIZE,        COUNTS, kSaveSettings, false,   {REDRAW}},
    {WAYPOINT_RING_COLOUR,      COUNTS, kSaveSettings, false,   {REDRAW}},
    {WAYPOINT_CLEARANCE,        COUNTS, kSaveSettings, false,   {RECOMPUTE}},
    {WAYPOINT_TOLERANCE,        COUNTS, kSaveSettings, false,   {RECOMPUTE, REDRAW}},
    {WAYPOINT_TOLERANCE_CIRCLE, COUNTS, kSaveSettings, false,   {REDRAW}},
    {WAYPOINT_PASSWORD,         COUNTS, 0,             false,   {}},
}};
// clang-format on

constexpr FeaturePaneTraits kTraits = {.strip = {.combo = 12035, .add = 12053, .remove = 12054},
                                       .tableId = 12018,
                                       .fileKind = "Waypoint",
                                       .listRows = 20,
                                       .type = FEATURE_TYPES::WAYPOINT,
                                       .added = {REDRAW, RECOMPUTE, FEATURE_UPDATE},
                                       .removed = {REDRAW, RECOMPUTE, FEATURE_UPDATE},
                                       .cursor = COMBO_CURSOR::FOLLOWS_ZERO,
                                       .removeMovesCursor = false,
                                       .effects = kEffects};

/// The columns of a data order: names are shown in every order.
std::vector<const Column<GridWaypointDef>*> ShownColumns(const WaypointOrder& order) {
    constexpr auto kAlways = ColumnsWithHeaders(kWaypointColumns, "Name", "Easting", "Northing");
    constexpr auto kSometimes = ColumnsWithHeaders(kWaypointColumns, "Ht", "Radius");
    std::vector<const Column<GridWaypointDef>*> shown(kAlways.begin(), kAlways.end());
    if (order.HasHeight()) shown.push_back(kSometimes[0]);
    if (order.HasRadius()) shown.push_back(kSometimes[1]);
    return shown;
}

}  // namespace

CGridWaypointPane::CGridWaypointPane(Platform& owner)
    : CFeaturePane(owner, kTraits),
      alarm(GetPropertyList(), {WAYPOINT_CLEARANCE, WAYPOINT_TOLERANCE, WAYPOINT_PASSWORD}, kOpenTime) {}

bool CGridWaypointPane::Create(CWnd* parent, UINT id, std::string_view title, CGridWaypointList& features,
                               bool catenaryForm) {
    catenary = catenaryForm;
    return CFeaturePane::Create(parent, id, title, features);
}

// ---- Rows ----

void CGridWaypointPane::BuildRows(int index) {
    const CGridWaypoint& waypoints = Member(index);
    auto& properties = GetPropertyList().AddGroup("Properties");
    properties.Add<CMFCPropertyGridProperty>("Display", waypoints.display, "Determine whether to display Waypoint File",
                                             WAYPOINT_DISPLAY);
    auto& order = properties.Add<CMFCPropertyGridProperty>("Data Order", std::string(waypoints.Order().text),
                                                           "Order of data within Waypoint File", WAYPOINT_ORDER);
    for (const WaypointOrder& offered : kWaypointOrders) order.AddOption(offered.text);
    order.AllowEdit(false);

    auto& waypoint = GetPropertyList().AddGroup("Waypoint");
    waypoint
        .Add<CMFCPropertyGridVectorSymbolProperty>("Symbol", waypoints.symbol, kSymbolsOffered,
                                                   "Select Symbol for Obstruction", WAYPOINT_SYMBOL)
        .SetColour(waypoints.colour);
    waypoint.Add<CMFCPropertyGridPrimaryColourProperty>("Colour", waypoints.colour, kPaletteCount,
                                                        "Specifies the pen colour of the Waypoint", WAYPOINT_COLOUR);
    waypoint.Add<CMFCPropertyGridSymbolSizeProperty>(waypoints.symbolSize, WAYPOINT_SIZE);
    waypoint.Add<CMFCPropertyGridLabelModeProperty>(waypoints.labelMode, WAYPOINT_LABEL_MODE);
    waypoint.Add<CMFCPropertyGridLabelPositionProperty>(waypoints.labelPosition, WAYPOINT_LABEL_POSITION);

    if (catenary) {
        BuildAlarmRows(waypoints);
    } else {
        BuildRingRows(waypoints);
    }
}

void CGridWaypointPane::BuildRingRows(const CGridWaypoint& waypoints) {
    auto& rings = GetPropertyList().AddGroup("Rings");
    rings.Add<CMFCPropertyGridProperty>("Display", waypoints.drawRings,
                                        "Determine whether to display ring(s) around the waypoint", WAYPOINT_RINGS);
    rings
        .Add<CMFCPropertyGridInteger>("Number of Rings", waypoints.ringCount, "", "Number of Range rings to display",
                                      WAYPOINT_RING_COUNT)
        .EnableSpinControl(true, 0, kMostRings);
    rings
        .Add<CMFCPropertyGridDouble>("Ring Size", waypoints.ringSizeMetres, "%4.0lfm", "Ring size in metres",
                                     WAYPOINT_RING_SIZE)
        .SetRange(kMetresRange);
    rings.Add<CMFCPropertyGridPrimaryColourProperty>("Ring Colour", waypoints.ringColour, kPaletteCount,
                                                     "Specifies the pen color of the range rings",
                                                     WAYPOINT_RING_COLOUR);
}

void CGridWaypointPane::BuildAlarmRows(const CGridWaypoint& waypoints) {
    auto& group = alarm.Build(waypoints.clearance, waypoints.tolerance,
                              "Default Tolerance by default it uses the Radius attached to the obstruction "
                              "ERROR if cable gets close than clearance + tolerance distance");
    group.Add<CMFCPropertyGridBool>("Draw Tolerance Circle", waypoints.drawRings, "Add Label to Display",
                                    WAYPOINT_TOLERANCE_CIRCLE);
    alarm.BuildPassword(group);
}

bool CGridWaypointPane::StoreMemberRow(int index, CMFCPropertyGridProperty& row) {
    CGridWaypoint& waypoints = Member(index);
    switch (static_cast<WAYPOINT_ROW>(row.GetData())) {
        case WAYPOINT_DISPLAY:
            return Take(waypoints.display, row);
        case WAYPOINT_ORDER:
            ReadAnew(waypoints, ChosenOption(row));
            return true;
        case WAYPOINT_SYMBOL:
            return Take(waypoints.symbol, row);
        case WAYPOINT_COLOUR: {
            const bool differed = Take(waypoints.colour, row);
            ColourRow(GetPropertyList(), WAYPOINT_SYMBOL, waypoints.colour);
            return differed;
        }
        case WAYPOINT_SIZE:
            return Take(waypoints.symbolSize, row);
        case WAYPOINT_LABEL_MODE:
            return Take(waypoints.labelMode, row);
        case WAYPOINT_LABEL_POSITION:
            return Take(waypoints.labelPosition, row);
        case WAYPOINT_RINGS:
        case WAYPOINT_TOLERANCE_CIRCLE:
            return Take(waypoints.drawRings, row);
        case WAYPOINT_RING_COUNT:
            return Take(waypoints.ringCount, row);
        case WAYPOINT_RING_SIZE:
            waypoints.tolerance = 0.0;
            return Take(waypoints.ringSizeMetres, row);
        case WAYPOINT_RING_COLOUR:
            return Take(waypoints.ringColour, row);
        case WAYPOINT_CLEARANCE:
            return Take(waypoints.clearance, row);
        case WAYPOINT_TOLERANCE:
            return Take(waypoints.tolerance, row);
        case WAYPOINT_PASSWORD:
            alarm.OnPassword(row);
            return false;
    }
    return false;
}

void CGridWaypointPane::ReadAnew(CGridWaypoint& waypoints, int order) {
    if (order < 0) return;
    waypoints.dataOrder = order;
    waypoints.SaveSettings();
    waypoints.ReadData(std::string(waypoints.GetPath()));
    CreateTable();
}

void CGridWaypointPane::SaveMember(int index, std::uint8_t) {
    Member(index).SaveSettings();
}

// ---- Points ----

PointsTable CGridWaypointPane::MakeTable(int index) {
    if (index < 0) return {};
    Member(index).FillNames();
    return MakePointsTable(ShownColumns(Member(index).Order()),
                           RecordsOf<GridWaypointDef>(static_cast<CGridWaypointList&>(List()), index));
}

bool CGridWaypointPane::PointOfRow(int index, int row, tagXY& point) const {
    if (!Member(index).IsValidIndex(row)) return false;
    point = {Member(index)[row].easting, Member(index)[row].northing};
    return true;
}

// ---- Files ----

void CGridWaypointPane::AddPaths(const std::vector<std::string>& paths) {
    CFeaturePane::AddPaths(paths);
    for (int i = 0; i < List().GetCount(); ++i) {
        Member(i).catenaryMode = catenary;
        Member(i).SaveSettings();
    }
}

}  // namespace quillon
