#pragma once

#include <optional>
#include <string>

#include "background/load_thread.h"
#include "frame/colour_button.h"
#include "frame/colour_dialog.h"
#include "platform/dialog_controls.h"

namespace quillon {

/// The window of a background load: modal, a bar, what its kind shows beside it, and Quit. While it is open one worker
/// does the work and a timer turns the worker's counters into text.
///
///     class CLoadDig : public CLoadDlg {  // the progress is a member, the work a function over it
///         ...
///         std::string Caption() const override { return Format("Loading DIG %s.........", ...); }
///         bool Work() override { return LoadDigFile(*dig, progress); }
///         void OnTick() override { ShowBytes(); }
///     };
///
/// It ends with IDOK when the worker has done, with IDCANCEL after Quit. Quit closes it at once for the eye; `DoModal`
/// then waits for the worker, which stops at its next look at the flag, so that nobody works on the target when the
/// caller goes on.
class CLoadDlg : public CColourDialogEx {
public:
    static constexpr UINT kProgressId = 12061;
    static constexpr UINT kTextId = 32241;
    static constexpr UINT kTimer = 1;
    static constexpr std::chrono::milliseconds kTick{100};

    /// Once an object. The result is IDOK or IDCANCEL.
    int DoModal();
    /// What the worker raised, memory that couldn't be had for one; empty if nothing.
    const std::string& GetFailure() const { return failure; }

    void OnTimer(UINT timer) override;
    void OnCancel() override;
    LRESULT OnMessage(const MSG& message) override;
    LRESULT OnEndThread(WPARAM flag);

protected:
    /// `shared` is the progress that the work runs over, a member of the derived window. Quit stands at the lower right
    /// of the client area.
    CLoadDlg(Platform& owner, LoadProgress& shared, UINT endMessage, tagSIZE size, CWnd* parent,
             UINT progressId = kProgressId);

    virtual std::string Caption() const = 0;
    /// On the worker's thread. False, or an exception, if the load has failed.
    virtual bool Work() = 0;
    /// What the timer shows. The bar, by itself, follows the thousandths.
    virtual void OnTick() { ShowBar(); }
    /// Whether a load that has failed ends the window as Quit does.
    virtual bool EndsByFlag() const { return false; }

    void ShowBar() { bar.SetPos(progress.GetThousandths()); }
    /// Bar and text: "Copied 4096 bytes of 386000000".
    void ShowBytes();
    CProgressCtrl& Bar() { return bar; }
    CStatic& Text() { return text; }

    void OnInitDialog() override;

    static constexpr int kMargin = 12;
    static constexpr int kLine = 20;

private:
    LoadProgress& progress;
    const UINT endMessage;
    int result = IDOK;
    CProgressCtrl bar;
    CStatic text;
    CColourButton quit;
    std::string failure;
    std::optional<CLoadThread> worker;
};

/// The size of a load's window that shows bar, text and Quit.
inline constexpr tagSIZE kLoadDlgSize = {420, 112};

}  // namespace quillon
