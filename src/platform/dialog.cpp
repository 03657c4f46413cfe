#include "platform/dialog.h"

#include "platform/platform.h"

namespace quillon {

CDialog::CDialog(Platform& owner, std::string_view title, tagSIZE size, CWnd* parentWindow)
    : CControlWindow(owner), parent(parentWindow) {
    Prepare(title, size);
}

CDialog::~CDialog() = default;

void CDialog::Show(STATE shown) {
    state = shown;
    ended = false;
    result = 0;
    OnInitDialog();
    if (!ended && IsOpen()) view = GetPlatform().ShowDialog(*this);
}

void CDialog::Close() {
    // What shows the dialog may still be at work in one of its own handlers; it must find the dialog closed.
    state = STATE::CLOSED;
    view.reset();
}

int CDialog::DoModal() {
    if (IsOpen()) return IDCANCEL;
    struct Closer {
        CDialog& dialog;
        ~Closer() { dialog.Close(); }
    } closer{*this};
    Show(STATE::MODAL);
    GetPlatform().RunModal([this] { return ended; });
    return result;
}

bool CDialog::Create() {
    if (IsOpen()) return false;
    Show(STATE::MODELESS);
    return IsOpen();
}

void CDialog::DestroyWindow() {
    if (IsModal()) {
        EndDialog(IDCANCEL);
    } else {
        Close();
    }
}

void CDialog::EndDialog(int dialogResult) {
    if (!IsOpen()) return;
    result = dialogResult;
    ended = true;
    if (!IsModal()) Close();
}

void CDialog::OnOK() {
    EndDialog(IDOK);
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

void CDialog::OnCommand(UINT control) {
    if (control == IDOK) OnOK();
    if (control == IDCANCEL) OnCancel();
}

}  // namespace quillon
