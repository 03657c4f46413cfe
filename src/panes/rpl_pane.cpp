#include "panes/rpl_pane.h"

#include <algorithm>
#include <array>
#include <limits>

#include "display/grid_list_ctrl.h"
#include "frame/select_feature_files.h"
#include "panes/corridor_rows.h"
#include "panes/line_rows.h"
#include "panes/row_values.h"
#include "panes/rpl_table.h"
#include "platform/text.h"

namespace quillon {
namespace {

using enum EQUAL_VALUE;
using enum POST;

constexpr std::uint8_t kSaveSettings = 1;

// clang-format off
constexpr std::array<RowEffect, 11> kEffects = {{
    // row                equal   save           changed  messages
    {RPL_DISPLAY,         COUNTS, kSaveSettings, false,   {REDRAW}},
    {RPL_DIAMETER,        COUNTS, kSaveSettings, false,   {RECOMPUTE}},
    {RPL_COLOUR,          COUNTS, kSaveSettings, false,   {REDRAW}},
    {RPL_THICKNESS,       COUNTS, kSaveSettings, false,   {REDRAW}},
    {RPL_CORRIDOR,        COUNTS, kSaveSettings, false,   {REDRAW}},
    // The edges of the corridor are those of the last load.
    {RPL_PORT_WIDTH,      COUNTS, kSaveSettings, false,   {REDRAW}},
    {RPL_STARBOARD_WIDTH, COUNTS, kSaveSettings, false,   {REDRAW}},
    {RPL_CORRIDOR_FILL,   COUNTS, kSaveSettings, false,   {REDRAW}},
    {RPL_CORRIDOR_COLOUR, COUNTS, kSaveSettings, false,   {REDRAW}},
    {RPL_CLEARANCE,       COUNTS, kSaveSettings, false,   {RECOMPUTE}},
    {RPL_TOLERANCE,       COUNTS, kSaveSettings, false,   {RECOMPUTE}},
}};
// clang-format on

constexpr LineRowIds kLineRows = {.colour = RPL_COLOUR, .thickness = RPL_THICKNESS};

constexpr CorridorRowIds kCorridorRows = {.display = RPL_CORRIDOR,
                                          .portWidth = RPL_PORT_WIDTH,
                                          .starboardWidth = RPL_STARBOARD_WIDTH,
                                          .fill = RPL_CORRIDOR_FILL,
                                          .colour = RPL_CORRIDOR_COLOUR};

CorridorValues CorridorOf(CRPL& rpl) {
    return {rpl.displayCorridor, rpl.portCorridor, rpl.starboardCorridor, rpl.corridorPen.fill, rpl.corridorPen.colour};
}

constexpr std::string_view kFileFilter =
    "RPL Files (*.csv)|*.csv|Evia RLX Files (*.rlx)|*.rlx|Text Files (*.txt)|*.txt|All Files (*.*)|*.*||";

constexpr FeaturePaneTraits kTraits = {.strip = {.combo = 12014, .add = 12008, .remove = 12011},
                                       .tableId = 12020,
                                       .fileKind = "RPL",
                                       .listRows = 20,
                                       .type = FEATURE_TYPES::NONE,
                                       .added = {REDRAW, RECOMPUTE},
                                       .removed = {REDRAW, RECOMPUTE},
                                       .cursor = COMBO_CURSOR::STAYS,
                                       .removeMovesCursor = false,
                                       .effects = kEffects};

}  // namespace

CRPLPane::CRPLPane(Platform& owner)
    : CFeaturePane(owner, kTraits,
                   [](CWnd& pane, UINT id) -> std::unique_ptr<CListCtrl> {
                       auto table = std::make_unique<CMyListCtrl>(pane, id);
                       table->ModifyStyle(LVS_EDITLABELS);
                       return table;
                   }),
      alarm(GetPropertyList(), {RPL_CLEARANCE, RPL_TOLERANCE, 0}, {}) {}

bool CRPLPane::Create(CWnd* parent, UINT id, CRPLList& features) {
    return CFeaturePane::Create(parent, id, kTitle, features);
}

// ---- Rows ----

void CRPLPane::InitPropList(std::string_view path, bool force) {
    if (!force && !path.empty() && EqualNoCase(path, shownPath)) return;
    if (!List().IsEmpty()) GetCombo().SetCurSel(std::max(List().Find(path), 0));
    CPropertyPane::InitPropList();
}

void CRPLPane::BuildPropertyRows() {
    shownPath = Current() < 0 ? std::string() : List().GetPath(Current());
    CFeaturePane::BuildPropertyRows();
}

void CRPLPane::BuildRows(int index) {
    CRPL& rpl = Member(index);
    auto& properties = GetPropertyList().AddGroup("Properties");
    properties.Add<CMFCPropertyGridProperty>("Display", rpl.use, "Determine whether to display RPL File", RPL_DISPLAY);
    properties
        .Add<CMFCPropertyGridProperty>("Diameter (Inches)", std::int32_t{rpl.diameter},
                                       "Enter the RPL diameter in Inches", RPL_DIAMETER)
        .EnableSpinControl(true, 0, std::numeric_limits<std::int16_t>::max());

    BuildLineRows(GetPropertyList(), kLineRows, rpl.linePen);
    BuildCorridorRows(GetPropertyList(), kCorridorRows, CorridorOf(rpl), "Width of Corridor either side of RPL ");
    alarm.Build(rpl.clearance, rpl.tolerance, "ERROR if cable gets close than clearance + Tolerance distance");
}

bool CRPLPane::StoreMemberRow(int index, CMFCPropertyGridProperty& row) {
    CRPL& rpl = Member(index);
    switch (static_cast<RPL_ROW>(row.GetData())) {
        case RPL_DISPLAY:
            return Take(rpl.use, row);
        case RPL_DIAMETER:
            return Take(rpl.diameter, row);
        case RPL_COLOUR:
        case RPL_THICKNESS:
            return StoreLineRow(GetPropertyList(), kLineRows, rpl.linePen, row);
        case RPL_CORRIDOR:
        case RPL_PORT_WIDTH:
        case RPL_STARBOARD_WIDTH:
        case RPL_CORRIDOR_FILL:
        case RPL_CORRIDOR_COLOUR:
            return StoreCorridorRow(GetPropertyList(), kCorridorRows, CorridorOf(rpl), row);
        case RPL_CLEARANCE:
            return Take(rpl.clearance, row);
        case RPL_TOLERANCE:
            return Take(rpl.tolerance, row);
    }
    return false;
}

void CRPLPane::SaveMember(int index, std::uint8_t) {
    Member(index).WriteSettings();
}

// ---- Files ----

void CRPLPane::OnCommand(UINT control) {
    control == kTraits.strip.combo ? OnRPLCombo() : CFeaturePane::OnCommand(control);
}

void CRPLPane::OnRPLCombo() {
    if (Current() >= 0 && !EqualNoCase(List().GetPath(Current()), shownPath)) OnCombo();
}

bool CRPLPane::AskForFiles(std::vector<std::string>& paths) {
    return AskForFeatureFiles(*this, "RPL Files....", kFileFilter, paths);
}

/// The one that takes the removed one's place.
int CRPLPane::ShownAfterRemoval(int removed) const {
    return std::clamp(removed, 0, List().GetCount() - 1);
}

// ---- The route ----

PointsTable CRPLPane::MakeTable(int index) {
    if (index < 0) return {};
    return MakeRplTable(RecordsOf<RPLDef>(static_cast<CRPLList&>(List()), index));
}

void CRPLPane::SelectPoint(int point) {
    const int index = Current();
    if (index < 0) return;
    GetTable().SetSelection(RplTableRow(Member(index).GetRecords(), point));
}

}  // namespace quillon
