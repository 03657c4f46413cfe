#include "frame/base_edit_ctrl.h"

#include "frame/messages.h"
#include "platform/platform.h"

namespace quillon {

template <class Act>
auto CBaseEditCtrl::Do(const Act& act) {
    struct Teller {
        CBaseEditCtrl& control;
        ~Teller() { control.Changed(CONTROL_CHANGE::CONTENT); }
    } teller{*this};
    return act(Rules());
}

void CBaseEditCtrl::EnableEdit(bool on) {
    EnableWindow(on);
    Do([&](CBaseEdit& edit) { edit.Enable(on); });
}

void CBaseEditCtrl::SetReadOnly(bool on) {
    Rules().readOnly = on;
}

bool CBaseEditCtrl::OnChar(char key) {
    return Do([&](CBaseEdit& edit) { return edit.OnChar(key); });
}

void CBaseEditCtrl::OnDelete() {
    Do([](CBaseEdit& edit) { edit.OnDelete(); });
}

void CBaseEditCtrl::OnInsert() {
    Do([](CBaseEdit& edit) { edit.OnInsert(); });
}

void CBaseEditCtrl::OnFocus(bool in) {
    Do([&](CBaseEdit& edit) { in ? edit.OnSetFocus() : edit.OnKillFocus(); });
}

void CBaseEditCtrl::OnMenu(int command) {
    Do([&](CBaseEdit& edit) { edit.OnCommand(command); });
}

void CBaseEditCtrl::SetSelection(std::size_t from, std::size_t to) {
    Rules().SetSelection(from, to);
}

void CBaseEditCtrl::PostEditUpdate() {
    GetOwner().PostMessage(UM_EDIT_UPDATE, WPARAM{UM_EDIT_UPDATE} << 16 | (GetDlgCtrlID() & 0xFFFFu));
}

void CBaseEditCtrl::PostFocus(bool in) {
    CWnd* const main = GetOwner().GetPlatform().GetMainWindow();
    if (main) main->PostMessage(in ? UM_EDITBOX_FOCUS_DATA : UM_EDITBOX_KILL_FOCUS_DATA);
}

std::string CBaseEditCtrl::ClipboardText() {
    return GetOwner().GetPlatform().ClipboardText();
}

void CBaseEditCtrl::SetClipboardText(std::string_view text) {
    GetOwner().GetPlatform().SetClipboardText(text);
}

void CEditDoubleCtrl::SetDouble(double value) {
    edit.SetDouble(value);
    Changed(CONTROL_CHANGE::CONTENT);
}

}  // namespace quillon
