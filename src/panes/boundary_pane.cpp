#include "panes/boundary_pane.h"

#include <array>

#include "features/boundary_columns.h"
#include "panes/row_values.h"

namespace quillon {
namespace {

using enum EQUAL_VALUE;
using enum POST;

constexpr std::uint8_t kSaveDrawing = 1;

// clang-format off
constexpr std::array<RowEffect, 5> kEffects = {{
    // row               equal  save          changed  messages
    {BOUNDARY_DISPLAY,   ENDS,  kSaveDrawing, true,    {REDRAW, RECOMPUTE_IF_HIGHLIGHTED}},
    {BOUNDARY_HIGHLIGHT, ENDS,  kSaveDrawing, false,   {RECOMPUTE}},
    {BOUNDARY_COLOUR,    ENDS,  kSaveDrawing, true,    {REDRAW}},
    {BOUNDARY_FILL,      ENDS,  kSaveDrawing, true,    {REDRAW}},
    {BOUNDARY_THICKNESS, ENDS,  kSaveDrawing, true,    {REDRAW}},
}};
// clang-format on

constexpr FeaturePaneTraits kTraits = {.strip = {.combo = 12057, .add = 12055, .remove = 12056},
                                       .tableId = 12015,
                                       .fileKind = "Boundary",
                                       .listRows = 16,
                                       .type = FEATURE_TYPES::BOUNDARY,
                                       .added = {REDRAW, RECOMPUTE},
                                       .removed = {REDRAW, RECOMPUTE},
                                       .cursor = COMBO_CURSOR::FOLLOWS,
                                       .removeMovesCursor = true,
                                       .effects = kEffects};

constexpr auto kShownColumns = ColumnsWithHeaders(kBoundaryColumns, "No", "Easting", "Northing");

}  // namespace

CBoundaryPane::CBoundaryPane(Platform& owner) : CFeaturePane(owner, kTraits) {}

bool CBoundaryPane::Create(CWnd* parent, UINT id, CBoundaryList& features) {
    return CFeaturePane::Create(parent, id, kTitle, features);
}

void CBoundaryPane::BuildRows(int index) {
    const CBoundary& boundary = Member(index);
    const COLORREF colour = boundary.pen.colour;
    auto& properties = GetPropertyList().AddGroup("Properties");
    properties.Add<CMFCPropertyGridProperty>("Display", boundary.Status, "Determine whether to display Boundary File",
                                             BOUNDARY_DISPLAY);
    properties
        .Add<CMFCPropertyGridProperty>("Data Order", std::string("Eng, Nng"), "Order of data within Boundary File", 0u)
        .AllowEdit(false);
    properties.Add<CMFCPropertyGridProperty>("Highlight", boundary.Highlight, "Show on Cross Profile",
                                             BOUNDARY_HIGHLIGHT);
    auto& area = GetPropertyList().AddGroup("Area");
    area.Add<CMFCPropertyGridPrimaryColourProperty>("Colour", colour, kPaletteCount,
                                                    "Specifies the pen color of the symbols", BOUNDARY_COLOUR);
    area.Add<CMFCPropertyGridFillStyleProperty>(boundary.pen.fill, colour, BOUNDARY_FILL);
    area.Add<CMFCPropertyGridLineThicknessProperty>(boundary.pen.thickness, colour, BOUNDARY_THICKNESS);
}

bool CBoundaryPane::StoreMemberRow(int index, CMFCPropertyGridProperty& row) {
    CBoundary& boundary = Member(index);
    switch (static_cast<BOUNDARY_ROW>(row.GetData())) {
        case BOUNDARY_DISPLAY:
            return Take(boundary.Status, row);
        case BOUNDARY_HIGHLIGHT:
            return Take(boundary.Highlight, row);
        case BOUNDARY_COLOUR: {
            const bool differed = Take(boundary.pen.colour, row);
            ColourRow(GetPropertyList(), BOUNDARY_FILL, boundary.pen.colour);
            ColourRow(GetPropertyList(), BOUNDARY_THICKNESS, boundary.pen.colour);
            return differed;
        }
        case BOUNDARY_FILL:
            return Take(boundary.pen.fill, row);
        case BOUNDARY_THICKNESS:
            return Take(boundary.pen.thickness, row);
    }
    return false;
}

void CBoundaryPane::SaveMember(int index, std::uint8_t) {
    Member(index).SaveDrawingOptions();
}

PointsTable CBoundaryPane::MakeTable(int index) {
    return MakePointsTable(kShownColumns, RecordsOf<tagXY>(static_cast<CBoundaryList&>(List()), index));
}

bool CBoundaryPane::PointOfRow(int index, int row, tagXY& point) const {
    if (!Member(index).IsValidIndex(row)) return false;
    point = Member(index)[row];
    return true;
}

}  // namespace quillon
