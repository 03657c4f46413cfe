#include "panes/sail_line_pane.h"

#include <array>

#include "features/sail_line_columns.h"
#include "panes/row_values.h"

namespace quillon {
namespace {

using enum EQUAL_VALUE;
using enum POST;

constexpr std::uint8_t kSaveDrawing = 1;

// clang-format off
constexpr std::array<RowEffect, 4> kEffects = {{
    // row                equal   save          changed  messages
    {SAIL_LINE_DISPLAY,   ENDS,   kSaveDrawing, true,    {REDRAW}},
    {SAIL_LINE_ORDER,     COUNTS, 0,            false,   {REDRAW, RECOMPUTE}},
    {SAIL_LINE_COLOUR,    ENDS,   kSaveDrawing, true,    {REDRAW}},
    {SAIL_LINE_THICKNESS, ENDS,   kSaveDrawing, true,    {REDRAW}},
}};
// clang-format on

constexpr FeaturePaneTraits kTraits = {.strip = {.combo = 12043, .add = 12044, .remove = 12045},
                                       .tableId = 12016,
                                       .fileKind = "SailLine",
                                       .listRows = 24,
                                       .type = FEATURE_TYPES::SAIL_LINE,
                                       .added = {REDRAW, RECOMPUTE, FEATURE_UPDATE},
                                       .removed = {FEATURE_UPDATE, REDRAW},
                                       .cursor = COMBO_CURSOR::FOLLOWS,
                                       .removeMovesCursor = true,
                                       .effects = kEffects};

constexpr auto kShownColumns =
    ColumnsWithHeaders(kSailLineColumns, "Line No", "SOL Eng", "SOL Nng", "EOL Eng", "EOL Nng", "Range", "Bearing");

}  // namespace

CSailLinePane::CSailLinePane(Platform& owner) : CFeaturePane(owner, kTraits) {}

bool CSailLinePane::Create(CWnd* parent, UINT id, CSailLineList& features) {
    return CFeaturePane::Create(parent, id, kTitle, features);
}

void CSailLinePane::BuildRows(int index) {
    const CSailLine& lines = Member(index);
    const COLORREF colour = lines.pen.colour;
    auto& properties = GetPropertyList().AddGroup("Properties");
    properties.Add<CMFCPropertyGridProperty>("Display", lines.Status, "Determine whether to display SailLine File",
                                             SAIL_LINE_DISPLAY);
    AddOrderRow(properties, kSailLineOrderTxt, lines.dataOrder, "Order of data within Pipeline File", SAIL_LINE_ORDER);
    auto& line = GetPropertyList().AddGroup("Line");
    line.Add<CMFCPropertyGridPrimaryColourProperty>("Colour", colour, kPaletteCount,
                                                    "Specifies the pen colour of the Line", SAIL_LINE_COLOUR);
    line.Add<CMFCPropertyGridLineThicknessProperty>(lines.pen.thickness, colour, SAIL_LINE_THICKNESS);
}

bool CSailLinePane::StoreMemberRow(int index, CMFCPropertyGridProperty& row) {
    CSailLine& lines = Member(index);
    switch (static_cast<SAIL_LINE_ROW>(row.GetData())) {
        case SAIL_LINE_DISPLAY:
            return Take(lines.Status, row);
        case SAIL_LINE_ORDER:
            ReadAnew(lines, ChosenOption(row));
            return true;
        case SAIL_LINE_COLOUR: {
            const bool differed = Take(lines.pen.colour, row);
            ColourRow(GetPropertyList(), SAIL_LINE_THICKNESS, lines.pen.colour);
            return differed;
        }
        case SAIL_LINE_THICKNESS:
            return Take(lines.pen.thickness, row);
    }
    return false;
}

void CSailLinePane::ReadAnew(CSailLine& lines, int order) {
    if (order < 0) return;
    lines.dataOrder = order;
    lines.SaveOrder();
    lines.ReadLines();
    List().SetEditCursor(-1, -1);
    CreateTable();
}

void CSailLinePane::SaveMember(int index, std::uint8_t) {
    Member(index).SaveDrawingOptions();
}

PointsTable CSailLinePane::MakeTable(int index) {
    return MakePointsTable(kShownColumns, RecordsOf<SailLineDef>(static_cast<CSailLineList&>(List()), index));
}

bool CSailLinePane::PointOfRow(int index, int row, tagXY& point) const {
    if (!Member(index).IsValidIndex(row)) return false;
    point = Member(index)[row].Middle();
    return true;
}

}  // namespace quillon
