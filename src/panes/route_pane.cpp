#include "panes/route_pane.h"

#include <array>

#include "features/route_columns.h"
#include "panes/corridor_rows.h"
#include "panes/row_values.h"

namespace quillon {
namespace {

using enum EQUAL_VALUE;
using enum POST;

/// The files of a route. The label rows rewrite the data file and, so that what was chosen outlives the run, the
/// drawing options.
enum SAVE : std::uint8_t { NOTHING, DRAWING, CORRIDOR, ROUTE_AND_DRAWING };

// clang-format off
constexpr std::array<RowEffect, 14> kEffects = {{
    // row                  equal   save               changed  messages
    {ROUTE_DISPLAY,         ENDS,   DRAWING,           true,    {REDRAW}},
    {ROUTE_ORDER,           COUNTS, NOTHING,           false,   {REDRAW, RECOMPUTE}},
    {ROUTE_COLOUR,          ENDS,   DRAWING,           true,    {REDRAW}},
    {ROUTE_THICKNESS,       ENDS,   DRAWING,           true,    {REDRAW}},
    {ROUTE_SYMBOL,          ENDS,   DRAWING,           true,    {REDRAW}},
    {ROUTE_SYMBOL_SIZE,     ENDS,   DRAWING,           true,    {REDRAW}},
    {ROUTE_CORRIDOR,        SAVES,  CORRIDOR,          false,   {REDRAW}},
    {ROUTE_PORT_WIDTH,      ENDS,   CORRIDOR,          true,    {REDRAW}},
    {ROUTE_STARBOARD_WIDTH, ENDS,   CORRIDOR,          true,    {REDRAW}},
    {ROUTE_CORRIDOR_FILL,   ENDS,   CORRIDOR,          true,    {REDRAW}},
    {ROUTE_CORRIDOR_COLOUR, ENDS,   CORRIDOR,          true,    {REDRAW}},
    {ROUTE_LABEL_MODE,      COUNTS, ROUTE_AND_DRAWING, true,    {REDRAW}},
    {ROUTE_LABEL_POSITION,  COUNTS, ROUTE_AND_DRAWING, true,    {REDRAW}},
    {ROUTE_LEG_LABEL,       COUNTS, ROUTE_AND_DRAWING, true,    {REDRAW}},
}};
// clang-format on

constexpr CorridorRowIds kCorridorRows = {.display = ROUTE_CORRIDOR,
                                          .portWidth = ROUTE_PORT_WIDTH,
                                          .starboardWidth = ROUTE_STARBOARD_WIDTH,
                                          .fill = ROUTE_CORRIDOR_FILL,
                                          .colour = ROUTE_CORRIDOR_COLOUR};

CorridorValues CorridorOf(CRoute& route) {
    return {route.displayCorridor, route.portWidth, route.starboardWidth, route.fill, route.corridorColour};
}

constexpr FeaturePaneTraits kTraits = {.strip = {.combo = 12037, .add = 12038, .remove = 12039},
                                       .tableId = 12016,
                                       .fileKind = "Route",
                                       .listRows = 24,
                                       .type = FEATURE_TYPES::ROUTE,
                                       .added = {REDRAW, RECOMPUTE, FEATURE_UPDATE},
                                       .removed = {FEATURE_UPDATE, REDRAW},
                                       .cursor = COMBO_CURSOR::FOLLOWS,
                                       .removeMovesCursor = true,
                                       .effects = kEffects};

constexpr int kSymbolsOffered = 26;

constexpr auto kShownColumns = ColumnsWithHeaders(kRouteColumns, "Name", "Easting", "Northing", "Range", "Bearing");

}  // namespace

CRoutePane::CRoutePane(Platform& owner) : CFeaturePane(owner, kTraits) {}

bool CRoutePane::Create(CWnd* parent, UINT id, CRouteList& features) {
    return CFeaturePane::Create(parent, id, kTitle, features);
}

// ---- Rows ----

void CRoutePane::BuildRows(int index) {
    CRoute& route = Member(index);
    const COLORREF colour = route.pen.colour;
    auto& properties = GetPropertyList().AddGroup("Properties");
    properties.Add<CMFCPropertyGridProperty>("Display", route.Status, "Determine whether to display Route File",
                                             ROUTE_DISPLAY);
    AddOrderRow(properties, kRouteOrderTxt, route.dataOrder, "Order of data within Pipeline File", ROUTE_ORDER);

    auto& line = GetPropertyList().AddGroup("Line");
    line.Add<CMFCPropertyGridPrimaryColourProperty>("Colour", colour, kPaletteCount,
                                                    "Specifies the pen colour of the Line", ROUTE_COLOUR);
    line.Add<CMFCPropertyGridLineThicknessProperty>(route.pen.thickness, colour, ROUTE_THICKNESS);

    auto& symbol = GetPropertyList().AddGroup("Symbol");
    symbol
        .Add<CMFCPropertyGridVectorSymbolProperty>("Type", route.symbol, kSymbolsOffered,
                                                   "Specifies the symbol at each point along the line", ROUTE_SYMBOL)
        .SetColour(colour);
    symbol.Add<CMFCPropertyGridSymbolSizeProperty>(route.symbolSize, ROUTE_SYMBOL_SIZE);

    BuildCorridorRows(GetPropertyList(), kCorridorRows, CorridorOf(route), "Width of Corridor either side of route ");

    auto& label = GetPropertyList().AddGroup("Label");
    label.Add<CMFCPropertyGridLabelModeProperty>(route.labelMode, ROUTE_LABEL_MODE);
    label.Add<CMFCPropertyGridLabelPositionProperty>(route.labelPosition, ROUTE_LABEL_POSITION);
    label.Add<CMFCPropertyGridBool>("Show Range & Bearing", route.showLegLabel,
                                    "Show Range and Bearing between two points on line", ROUTE_LEG_LABEL);
}

bool CRoutePane::StoreMemberRow(int index, CMFCPropertyGridProperty& row) {
    CRoute& route = Member(index);
    bool differed = false;
    switch (static_cast<ROUTE_ROW>(row.GetData())) {
        case ROUTE_DISPLAY:
            return Take(route.Status, row);
        case ROUTE_ORDER:
            ReadAnew(route, ChosenOption(row));
            return true;
        case ROUTE_COLOUR:
            return StoreColour(route, row);
        case ROUTE_THICKNESS:
            return Take(route.pen.thickness, row);
        case ROUTE_SYMBOL:
            return Take(route.symbol, row);
        case ROUTE_SYMBOL_SIZE:
            return Take(route.symbolSize, row);
        case ROUTE_PORT_WIDTH:
        case ROUTE_STARBOARD_WIDTH:
            differed = StoreCorridorRow(GetPropertyList(), kCorridorRows, CorridorOf(route), row);
            route.ComputeCorridor();
            return differed;
        case ROUTE_CORRIDOR:
        case ROUTE_CORRIDOR_FILL:
        case ROUTE_CORRIDOR_COLOUR:
            return StoreCorridorRow(GetPropertyList(), kCorridorRows, CorridorOf(route), row);
        case ROUTE_LABEL_MODE:
            return Take(route.labelMode, row);
        case ROUTE_LABEL_POSITION:
            return Take(route.labelPosition, row);
        case ROUTE_LEG_LABEL:
            return Take(route.showLegLabel, row);
    }
    return false;
}

bool CRoutePane::StoreColour(CRoute& route, const CMFCPropertyGridProperty& row) {
    const bool differed = Take(route.pen.colour, row);
    ColourRow(GetPropertyList(), ROUTE_SYMBOL, route.pen.colour);
    ColourRow(GetPropertyList(), ROUTE_THICKNESS, route.pen.colour);
    return differed;
}

void CRoutePane::ReadAnew(CRoute& route, int order) {
    if (order < 0) return;
    route.dataOrder = order;
    route.SaveOrder();
    // The points alone: what the operator chose for display stays as it is.
    route.ReadPoints();
    route.ComputeCorridor();
    List().SetEditCursor(-1, -1);
    CreateTable();
}

void CRoutePane::SaveMember(int index, std::uint8_t save) {
    CRoute& route = Member(index);
    if (save == CORRIDOR) {
        route.SaveCorridorOptions();
        return;
    }
    if (save == ROUTE_AND_DRAWING) route.SaveRoute();
    route.SaveDrawingOptions();
}

// ---- Points ----

PointsTable CRoutePane::MakeTable(int index) {
    if (index >= 0) Member(index).RenewNames();
    return MakePointsTable(kShownColumns, RecordsOf<RouteDef>(static_cast<CRouteList&>(List()), index));
}

bool CRoutePane::PointOfRow(int index, int row, tagXY& point) const {
    if (!Member(index).IsValidIndex(row)) return false;
    point = Member(index)[row].position;
    return true;
}

}  // namespace quillon
