#include "frame/my_dockable_pane.h"

#include "platform/platform.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr tagSIZE kFirstSize = {200, 200};
/// What the profile gives for a pane that the host has never saved.
constexpr int kNeverSaved = -1;

/// The point behind the redraw pair. Its address travels in the messages, so it outlives every call; the next broadcast
/// overwrites it, which the receiver, on the same thread, has seen by then.
tagXY shownPoint;

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

void CMyDockablePane::BroadcastRedraw() {
    PostRedrawPair(0);
}

void CMyDockablePane::BroadcastRedraw(tagXY point) {
    shownPoint = point;
    PostRedrawPair(reinterpret_cast<WPARAM>(&shownPoint));
}

void CMyDockablePane::BroadcastRecompute() {
    PostToReceiver(UM_RECOMPUTE_CATENARY_DATA);
}

void CMyDockablePane::BroadcastFeatureUpdate(FEATURE_TYPES type) {
    PostToReceiver(UM_FEATURE_UPDATE, static_cast<WPARAM>(type));
}

void CMyDockablePane::PostRedrawPair(WPARAM point) {
    PostToReceiver(UM_REDRAW_CHART, point);
    PostToReceiver(UM_REDRAW_VECTOR_DISPLAY, point);
}

void CMyDockablePane::PostToReceiver(UINT message, WPARAM wParam) {
    if (CWnd* const receiver = GetReceiver()) receiver->PostMessage(message, wParam);
}

}  // namespace quillon
