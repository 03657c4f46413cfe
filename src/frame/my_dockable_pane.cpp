#include "frame/my_dockable_pane.h"

#include <functional>

#include "frame/colour_schemes.h"
#include "frame/night_control.h"
#include "platform/platform.h"
#include "platform/tab_ctrl.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr tagSIZE kFirstSize = {200, 200};
/// What the profile gives for a pane that the host has never saved.
constexpr int kNeverSaved = -1;

/// The point behind the redraw pair. Its address travels in the messages, so it outlives every call; the next broadcast
/// overwrites it, which the receiver, on the same thread, has seen by then.
tagXY shownPoint;

/// Each control of the window, and each on the pages of its tabs.
void ForEachControl(const CControlWindow& window, const std::function<void(CControl&)>& act) {
    for (CControl* const control : window.GetControls()) {
        act(*control);
        const auto* const tabs = dynamic_cast<const CMFCTabCtrl*>(control);
        for (int i = 0; tabs && i < tabs->GetTabsNum(); ++i) act(tabs->GetTabWnd(i));
    }
}

}  // namespace

CWnd* CMyDockablePane::GetReceiver() const {
    return parent ? parent : GetPlatform().GetMainWindow();
}

std::string CMyDockablePane::ProfileSection(UINT id) {
    return Format("Workspace\\BasePane-%u", id);
}

bool CMyDockablePane::CreatePane(CWnd* parentWindow, UINT paneId, std::string_view paneTitle) {
    parent = parentWindow;
    if (!Create(paneTitle, kFirstSize, paneId)) return false;
    const int saved = GetPlatform().GetProfile().GetInt(ProfileSection(paneId), "IsVisible", kNeverSaved);
    if (saved == kNeverSaved) ShowPane(false);
    return true;
}

// ---- Colours ----

void CMyDockablePane::SetNightMode(bool on) {
    night = on;
    ForEachControl(*this, [on](CControl& control) {
        if (auto* const list = dynamic_cast<CMyMFCPropertyGridCtrl*>(&control)) {
            list->night = on;
            ApplyColourScheme(*list, list->colourScheme);
        }
        if (auto* const other = dynamic_cast<NightControl*>(&control)) other->SetNightMode(on);
    });
}

void CMyDockablePane::SetVSDotNetLook(int look) {
    ForEachControl(*this, [look](CControl& control) {
        auto* const list = dynamic_cast<CMyMFCPropertyGridCtrl*>(&control);
        if (!list) return;
        list->SetVSDotNetLook(look != 0);
        list->SetGroupNameFullWidth(look != 0);
    });
}

// ---- Messages ----

void CMyDockablePane::BroadcastAll(const Posts& posts) {
    for (const POST post : posts) BroadcastOne(post);
}

void CMyDockablePane::BroadcastOne(POST post) {
    const auto type = static_cast<WPARAM>(GetFeatureType());
    switch (post) {
        case POST::REDRAW:
            return PostRedrawPair(0);
        case POST::REDRAW_POINT:
            if (const auto point = GetShownPoint()) return BroadcastRedraw(*point);
            return PostRedrawPair(0);
        case POST::REDRAW_VECTOR:
            return PostToReceiver(UM_REDRAW_VECTOR_DISPLAY);
        case POST::RECOMPUTE:
            return PostToReceiver(UM_RECOMPUTE_CATENARY_DATA);
        case POST::RECOMPUTE_IF_HIGHLIGHTED:
            if (IsHighlighted()) PostToReceiver(UM_RECOMPUTE_CATENARY_DATA);
            return;
        case POST::FEATURE_UPDATE:
            return PostToReceiver(UM_FEATURE_UPDATE, type);
        case POST::SET_FOCUS_FEATURE:
            return PostToReceiver(UM_SET_FOCUS_FEATURE, type);
        case POST::UPDATE_DTM:
            return PostToReceiver(UM_UPDATE_DTM);
    }
}

void CMyDockablePane::BroadcastRedraw(tagXY point) {
    shownPoint = point;
    PostRedrawPair(reinterpret_cast<WPARAM>(&shownPoint));
}

void CMyDockablePane::PostRedrawPair(WPARAM point) {
    PostToReceiver(UM_REDRAW_CHART, point);
    PostToReceiver(UM_REDRAW_VECTOR_DISPLAY, point);
}

void CMyDockablePane::PostToReceiver(UINT message, WPARAM wParam) {
    if (CWnd* const receiver = GetReceiver()) receiver->PostMessage(message, wParam);
}

}  // namespace quillon
