#include "background/load_dlg.h"

#include "platform/platform.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr int kButtonWidth = 90;
constexpr int kButtonHeight = 30;
constexpr int kBarHeight = 18;
/// Positions of the bar from end to end.
constexpr int kBarRange = 1000;

}  // namespace

CLoadDlg::CLoadDlg(Platform& owner, LoadProgress& shared, UINT end, tagSIZE size, CWnd* parent, UINT progressId)
    : CColourDialogEx(owner, "", size, parent),
      progress(shared),
      endMessage(end),
      bar(*this, progressId),
      text(*this, kTextId, "0 Bytes of 0 Bytes"),
      quit(*this, IDCANCEL, "Quit", GetNightMode()) {
    const int right = size.width - kMargin;
    const int bottom = size.height - kMargin;
    text.MoveWindow({kMargin, kMargin, right, kMargin + kLine});
    bar.MoveWindow({kMargin, kMargin + kLine + 4, right, kMargin + kLine + 4 + kBarHeight});
    quit.MoveWindow({right - kButtonWidth, bottom - kButtonHeight, right, bottom});
    AddControl(text);
    AddControl(bar);
    AddControl(quit);
}

int CLoadDlg::DoModal() {
    struct Joiner {
        CLoadDlg& dialog;
        ~Joiner() {
            dialog.KillTimer(kTimer);
            if (!dialog.worker) return;
            dialog.worker->Cancel();
            dialog.worker->Join();
            dialog.failure = dialog.worker->GetFailure();
            dialog.worker.reset();
        }
    } joiner{*this};
    return CColourDialogEx::DoModal();
}

void CLoadDlg::OnInitDialog() {
    CColourDialogEx::OnInitDialog();
    bar.SetRange(0, kBarRange);
    bar.SetPos(0);
    SetWindowText(Caption());
    // The worker's target is safe as long as DoModal has not returned.
    if (IsModal()) {
        worker.emplace(*this, endMessage, progress, [this](LoadProgress&) { return Work(); });
        worker->Resume();
    }
    SetTimer(kTimer, kTick);
}

void CLoadDlg::OnTimer(UINT timer) {
    if (timer == kTimer) OnTick();
}

void CLoadDlg::ShowBytes() {
    ShowBar();
    text.SetWindowText(Format("Copied %llu bytes of %llu", static_cast<unsigned long long>(progress.GetPosition()),
                              static_cast<unsigned long long>(progress.GetTotal())));
}

void CLoadDlg::OnCancel() {
    progress.Cancel();
    result = IDCANCEL;
    CColourDialogEx::OnCancel();
}

LRESULT CLoadDlg::OnMessage(const MSG& message) {
    return message.message == endMessage ? OnEndThread(message.wParam) : CColourDialogEx::OnMessage(message);
}

LRESULT CLoadDlg::OnEndThread(WPARAM flag) {
    if (flag != 0 && EndsByFlag()) result = IDCANCEL;
    EndDialog(result);
    return 0;
}

}  // namespace quillon
