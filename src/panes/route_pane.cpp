#include "panes/route_pane.h"

#include <array>

#include "features/route_columns.h"
#include "panes/row_values.h"

namespace quillon {
namespace {

/// The files of a route. The label rows rewrite the data file and, so that what was chosen outlives the run, the
/// drawing options.
enum SAVE : std::uint8_t { NOTHING, DRAWING, CORRIDOR, ROUTE_AND_DRAWING };

// clang-format off
constexpr std::array<RowEffect, 14> kEffects = {{
    // row                    equal value          save               changed  messages
    {ROUTE_DISPLAY,         EQUAL_VALUE::ENDS,   DRAWING,           true,  ROW_MESSAGES::REDRAW},
    {ROUTE_ORDER,           EQUAL_VALUE::COUNTS, NOTHING,           false, ROW_MESSAGES::REDRAW_RECOMPUTE},
    {ROUTE_COLOUR,          EQUAL_VALUE::ENDS,   DRAWING,           true,  ROW_MESSAGES::REDRAW},
    {ROUTE_THICKNESS,       EQUAL_VALUE::ENDS,   DRAWING,           true,  ROW_MESSAGES::REDRAW},
    {ROUTE_SYMBOL,          EQUAL_VALUE::ENDS,   DRAWING,           true,  ROW_MESSAGES::REDRAW},
    {ROUTE_SYMBOL_SIZE,     EQUAL_VALUE::ENDS,   DRAWING,           true,  ROW_MESSAGES::REDRAW},
    {ROUTE_CORRIDOR,        EQUAL_VALUE::SAVES,  CORRIDOR,          false, ROW_MESSAGES::REDRAW},
    {ROUTE_PORT_WIDTH,      EQUAL_VALUE::ENDS,   CORRIDOR,          true,  ROW_MESSAGES::REDRAW},
    {ROUTE_STARBOARD_WIDTH, EQUAL_VALUE::ENDS,   CORRIDOR,          true,  ROW_MESSAGES::REDRAW},
    {ROUTE_CORRIDOR_FILL,   EQUAL_VALUE::ENDS,   CORRIDOR,          true,  ROW_MESSAGES::REDRAW},
    {ROUTE_CORRIDOR_COLOUR, EQUAL_VALUE::ENDS,   CORRIDOR,          true,  ROW_MESSAGES::REDRAW},
    {ROUTE_LABEL_MODE,      EQUAL_VALUE::COUNTS, ROUTE_AND_DRAWING, true,  ROW_MESSAGES::REDRAW},
    {ROUTE_LABEL_POSITION,  EQUAL_VALUE::COUNTS, ROUTE_AND_DRAWING, true,  ROW_MESSAGES::REDRAW},
    {ROUTE_LEG_LABEL,       EQUAL_VALUE::COUNTS, ROUTE_AND_DRAWING, true,  ROW_MESSAGES::REDRAW},
}};
// clang-format on

constexpr FeaturePaneTraits kTraits = {.comboId = 12037,
                                       .addId = 12038,
                                       .removeId = 12039,
                                       .tableId = 12016,
                                       .fileKind = "Route",
                                       .listRows = 24,
                                       .type = FEATURE_TYPES::ROUTE,
                                       .addMessages = LIST_MESSAGES::REDRAW_RECOMPUTE_UPDATE,
                                       .removeMessages = LIST_MESSAGES::UPDATE_REDRAW,
                                       .cursor = COMBO_CURSOR::FOLLOWS,
                                       .removeMovesCursor = true,
                                       .effects = kEffects};

constexpr int kSymbolsOffered = 26;
constexpr std::string_view kWidthDescription = "Width of Corridor either side of route ";

constexpr auto kShownColumns = ColumnsWithHeaders(kRouteColumns, "Name", "Easting", "Northing", "Range", "Bearing");

}  // namespace

CRoutePane::CRoutePane(Platform& owner) : CFeaturePane(owner, kTraits) {}

bool CRoutePane::Create(CWnd* parent, UINT id, CRouteList& features) {
    return CFeaturePane::Create(parent, id, kTitle, features);
}

// ---- Rows ----

void CRoutePane::BuildRows(int index) {
    const CRoute& route = Member(index);
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

    BuildCorridorRows(route);

    auto& label = GetPropertyList().AddGroup("Label");
    label.Add<CMFCPropertyGridLabelModeProperty>(route.labelMode, ROUTE_LABEL_MODE);
    label.Add<CMFCPropertyGridLabelPositionProperty>(route.labelPosition, ROUTE_LABEL_POSITION);
    label.Add<CMFCPropertyGridBool>("Show Range & Bearing", route.showLegLabel,
                                    "Show Range and Bearing between two points on line", ROUTE_LEG_LABEL);
}

void CRoutePane::BuildCorridorRows(const CRoute& route) {
    auto& corridor = GetPropertyList().AddGroup("Corridor");
    corridor.Add<CMFCPropertyGridProperty>(
        "Display", route.displayCorridor, "Determine whether to display Corridor either side of route", ROUTE_CORRIDOR);
    corridor.Add<CMFCPropertyGridDouble>("Port Width", route.portWidth, "%7.1lfm", kWidthDescription, ROUTE_PORT_WIDTH);
    corridor.Add<CMFCPropertyGridDouble>("Starboard Width", route.starboardWidth, "%7.1lfm", kWidthDescription,
                                         ROUTE_STARBOARD_WIDTH);
    corridor.Add<CMFCPropertyGridFillStyleProperty>(route.fill, route.corridorColour, ROUTE_CORRIDOR_FILL);
    corridor.Add<CMFCPropertyGridPrimaryColourProperty>("Colour", route.corridorColour, kPaletteCount,
                                                        "Specifies the pen colour of the Corridor",
                                                        ROUTE_CORRIDOR_COLOUR);
}

bool CRoutePane::StoreRow(int index, CMFCPropertyGridProperty& row) {
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
        case ROUTE_CORRIDOR:
            return Take(route.displayCorridor, row);
        case ROUTE_PORT_WIDTH:
            differed = Take(route.portWidth, row);
            route.ComputeCorridor();
            return differed;
        case ROUTE_STARBOARD_WIDTH:
            differed = Take(route.starboardWidth, row);
            route.ComputeCorridor();
            return differed;
        case ROUTE_CORRIDOR_FILL:
            return Take(route.fill, row);
        case ROUTE_CORRIDOR_COLOUR:
            differed = Take(route.corridorColour, row);
            ColourRow(GetPropertyList(), ROUTE_CORRIDOR_FILL, route.corridorColour);
            return differed;
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
