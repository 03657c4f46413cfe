#pragma once

#include <memory>

#include "platform/control_window.h"

namespace quillon {

/// The ids of the two buttons that end a dialog, and what it then ends with.
inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;

/// What a platform shows a dialog by. The dialog is shown as long as this lives.
class DialogView {
public:
    virtual ~DialogView() = default;
};

/// A dialog: a title, a client area of a size of its own, controls.
///
/// Modal: `DoModal` shows it and returns when `EndDialog` was called; messages and timers arrive meanwhile. Modeless:
/// `Create` shows it and returns at once; it stays until `DestroyWindow`. An object may be shown any number of times,
/// one after the other.
///
///     CRenameDlg dialog(platform, name);
///     if (dialog.DoModal() == IDOK) name = dialog.GetName();
class CDialog : public CControlWindow {
public:
    CDialog(Platform& platform, std::string_view title, tagSIZE size, CWnd* parent = nullptr);
    ~CDialog() override;

    CWnd* GetParent() const { return parent; }

    /// The number that EndDialog was given.
    int DoModal();
    /// False if the dialog is shown already.
    bool Create();
    void DestroyWindow();
    bool IsOpen() const { return state != STATE::CLOSED; }
    bool IsModal() const { return state == STATE::MODAL; }
    void EndDialog(int result);

    /// The operator agrees: Return, or the button with the id IDOK.
    virtual void OnOK();
    /// The operator leaves: Esc, the close box, or the button with the id IDCANCEL.
    virtual void OnCancel();
    /// Presses of IDOK and IDCANCEL; a dialog that answers more hands them on to this.
    void OnCommand(UINT control) override;

    /// Whether the operator may give it another size than its own, which is the least.
    virtual bool IsResizable() const { return false; }

protected:
    /// Before the dialog is shown. A dialog that ends here is never seen.
    virtual void OnInitDialog() {}

private:
    enum class STATE { CLOSED, MODAL, MODELESS };
    void Show(STATE shown);
    void Close();

    CWnd* parent;
    STATE state = STATE::CLOSED;
    bool ended = false;
    int result = 0;
    std::unique_ptr<DialogView> view;
};

}  // namespace quillon
