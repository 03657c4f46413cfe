#include "platform/tab_ctrl.h"

#include "platform/errors.h"
#include "platform/platform.h"

namespace quillon {

CMFCTabCtrl::CMFCTabCtrl(CWnd& tabOwner, UINT tabId) : CControl(tabOwner, tabId), CWnd(tabOwner.GetPlatform()) {}

void CMFCTabCtrl::AddTab(CControl& page, std::string_view label) {
    tabs.push_back({std::string(label), &page});
    if (active < 0) active = 0;
    page.ShowWindow(GetTabsNum() - 1 == active);
    Changed(CONTROL_CHANGE::CONTENT);
}

const CMFCTabCtrl::Tab& CMFCTabCtrl::At(int tab) const {
    if (tab < 0 || tab >= GetTabsNum()) throw InvalidArgument("tab out of range");
    return tabs[static_cast<std::size_t>(tab)];
}

const std::string& CMFCTabCtrl::GetTabLabel(int tab) const {
    return At(tab).label;
}

CControl& CMFCTabCtrl::GetTabWnd(int tab) const {
    return *At(tab).page;
}

CControl* CMFCTabCtrl::GetActiveWnd() const {
    return active < 0 ? nullptr : At(active).page;
}

void CMFCTabCtrl::SetActiveTab(int tab) {
    if (tab == active || tab < 0 || tab >= GetTabsNum()) return;
    At(active).page->ShowWindow(false);
    active = tab;
    At(active).page->ShowWindow(true);
    Changed(CONTROL_CHANGE::SELECTION);
    GetOwner().SendMessage(AFX_WM_CHANGE_ACTIVE_TAB, static_cast<WPARAM>(tab));
}

int CMFCTabCtrl::GetTabsHeight() const {
    return GetPlatform().GetMetric(SYSTEM_METRIC::TAB_HEIGHT);
}

void CMFCTabCtrl::EnableAutoColor(bool enable) {
    autoColour = enable;
    Changed(CONTROL_CHANGE::COLOURS);
}

void CMFCTabCtrl::EnableActiveTabBoldFont(bool enable) {
    boldFont = enable;
    Changed(CONTROL_CHANGE::COLOURS);
}

}  // namespace quillon
