#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls.h"

namespace quillon {

class CControlWindow;

/// What shows a window with controls: a dock or a dialog of the host's toolkit.
class WindowObserver {
public:
    virtual ~WindowObserver() = default;
    /// Shown, hidden, given another title, other colours or one more control.
    virtual void OnWindowChanged(CControlWindow& window) = 0;
    /// The window wants the keyboard on this control.
    virtual void OnWindowFocus(CControlWindow& window, CControl& control) = 0;
    /// The window is about to go; its controls have gone already. The observer must forget it.
    virtual void OnWindowGone(CControlWindow& window) = 0;
};

/// A window with controls in it, pane and dialog alike: a title, a client area, and the controls in the order in which
/// the keyboard goes through them. The host gives it its size; the window places its controls.
class CControlWindow : public CWnd {
public:
    ~CControlWindow() override;

    const std::string& GetWindowText() const { return title; }
    void SetWindowText(std::string_view text);
    bool IsVisible() const { return visible; }
    tagSIZE GetClientSize() const { return client; }

    /// The host's: the window has got this client area.
    void Resize(tagSIZE size);
    /// The host's: the keyboard has come to the window.
    virtual void OnSetFocus() {}
    /// The host's: fonts or metrics of the system have changed.
    virtual void OnSettingChange() {}

    const std::vector<CControl*>& GetControls() const { return controls; }
    /// The control with that id, or null.
    CControl* GetDlgItem(UINT control) const;
    void SetObserver(WindowObserver* newObserver) { observer = newObserver; }

    // For the window and the parts that it is put together from.

    /// Adds a control behind those that are there. The control belongs to the caller and lives as long as the window.
    void AddControl(CControl& control);
    /// Asks for the keyboard.
    void SetFocusTo(CControl& control);

protected:
    using CWnd::CWnd;
    virtual void OnSize(tagSIZE) {}
    /// Sets title and size before anything shows the window.
    void Prepare(std::string_view text, tagSIZE size);
    void SetVisible(bool show);
    /// Tells the observer that the window looks different.
    void Changed();

private:
    std::string title;
    tagSIZE client;
    bool visible = true;
    std::vector<CControl*> controls;
    WindowObserver* observer = nullptr;
};

}  // namespace quillon
