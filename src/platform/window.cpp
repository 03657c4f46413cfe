#include "platform/window.h"

#include "platform/platform.h"

namespace quillon {

CWnd::CWnd(Platform& owner) : platform(owner), id(owner.Messages().Attach(*this)) {}
CWnd::~CWnd() {
    platform.Messages().Detach(id);
}

bool CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return platform.Messages().Post(id, {message, wParam, lParam});
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return platform.Messages().Send(id, {message, wParam, lParam});
}

void CWnd::SetTimer(UINT timer, std::chrono::milliseconds interval) {
    platform.Messages().SetTimer(id, timer, interval);
}
void CWnd::KillTimer(UINT timer) {
    platform.Messages().KillTimer(id, timer);
}

LRESULT CWnd::OnMessage(const MSG&) {
    return 0;
}
void CWnd::OnTimer(UINT) {}
void CWnd::OnCommand(UINT) {}
void CWnd::OnDoubleClick(UINT) {}

}  // namespace quillon
