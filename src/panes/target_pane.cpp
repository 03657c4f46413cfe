#include "panes/target_pane.h"

namespace quillon {
namespace {

using enum TARGET_STEP;

constexpr UINT kTabsId = 1;

}  // namespace

CTargetPane::CTargetPane(Platform& owner) : CMyDockablePane(owner), tabs(*this, kTabsId, *this) {
    AddControl(tabs);
}

bool CTargetPane::Create(CWnd* parent, UINT id, CBarge* vessel) {
    return CreateOver(parent, id, kVesselTitle, vessel);
}

bool CTargetPane::Create(CWnd* parent, UINT id, CTemplate* seabedTemplate) {
    return CreateOver(parent, id, kTemplateTitle, seabedTemplate);
}

bool CTargetPane::CreateOver(CWnd* parent, UINT id, std::string_view title, COutline* edited) {
    if (!CreatePane(parent, id, title)) return false;
    object = edited;
    tabs.Build(object);
    tabs.ColourActiveList(GetNightMode());
    AdjustLayout();
    return true;
}

void CTargetPane::SetObject(COutline* edited) {
    object = edited;
    tabs.SetObject(object);
}

// ---- The host's ----

void CTargetPane::UpdateCrp() {
    tabs.DoStep(TRACK);
}

void CTargetPane::UpdateSailLine() {
    tabs.DoStep(SHOW_SAIL_LINE);
}

void CTargetPane::UpdateWaypoint() {
    for (const TARGET_STEP step : {SHOW_ALIGNMENT, SHOW_WAYPOINT, TRACK}) tabs.DoStep(step);
}

void CTargetPane::UpdateVessel() {
    if (!object) return;
    tabs.GetShadowPage().ShowType();
    for (const TARGET_STEP step : {SHOW_OFFSETS, SHOW_OFFSET, TRACK}) tabs.DoStep(step);
    object->Save();
    BroadcastAll({POST::REDRAW});
}

void CTargetPane::InitTargetPropList() {
    tabs.GetWaypointPage().Init();
}

void CTargetPane::InitSailLinePropList() {
    if (CSailLinePage* const page = tabs.GetSailLinePage()) page->Init();
}

void CTargetPane::InitShadowPropList() {
    tabs.GetShadowPage().Init();
}

void CTargetPane::Refresh() {
    RefreshRows();
    AdjustLayout();
}

// ---- Looks ----

/// The lists behind take the colours when they come to the front.
void CTargetPane::SetNightMode(bool on) {
    NoteNightMode(on);
    tabs.ColourActiveList(on);
}

void CTargetPane::AdjustLayout() {
    tabs.MoveWindow({0, 0, GetClientSize().width, GetClientSize().height});
    tabs.AdjustLayout();
}

void CTargetPane::OnActiveTabChanged() {
    tabs.ColourActiveList(GetNightMode());
    tabs.AdjustLayout();
}

LRESULT CTargetPane::OnMessage(const MSG& message) {
    if (message.message != AFX_WM_CHANGE_ACTIVE_TAB) return CMyDockablePane::OnMessage(message);
    OnActiveTabChanged();
    return 0;
}

void CTargetPane::SaveFile(std::uint8_t) {
    object->Save();
}

}  // namespace quillon
