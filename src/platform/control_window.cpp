#include "platform/control_window.h"

#include <algorithm>

namespace quillon {

CControlWindow::~CControlWindow() {
    if (observer) observer->OnWindowGone(*this);
}

void CControlWindow::Prepare(std::string_view text, tagSIZE size) {
    title = text;
    client = size;
}

void CControlWindow::SetWindowText(std::string_view text) {
    title = text;
    Changed();
}

void CControlWindow::SetVisible(bool show) {
    if (visible == show) return;
    visible = show;
    Changed();
}

void CControlWindow::Resize(tagSIZE size) {
    client = size;
    OnSize(size);
}

CControl* CControlWindow::GetDlgItem(UINT control) const {
    const auto found = std::find_if(controls.begin(), controls.end(),
                                    [control](const CControl* c) { return c->GetDlgCtrlID() == control; });
    return found == controls.end() ? nullptr : *found;
}

void CControlWindow::AddControl(CControl& control) {
    controls.push_back(&control);
    Changed();
}

void CControlWindow::SetFocusTo(CControl& control) {
    if (observer) observer->OnWindowFocus(*this, control);
}

void CControlWindow::Changed() {
    if (observer) observer->OnWindowChanged(*this);
}

}  // namespace quillon
