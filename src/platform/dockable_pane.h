#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls.h"

namespace quillon {

class CDockablePane;

/// What shows a pane: the dock of the host's toolkit.
class PaneObserver {
public:
    virtual ~PaneObserver() = default;
    /// Shown, hidden, or given another title.
    virtual void OnPaneChanged(CDockablePane& pane) = 0;
    /// The pane wants the keyboard on this control.
    virtual void OnPaneFocus(CDockablePane& pane, CControl& control) = 0;
    /// The pane is about to go; its controls have gone already. The observer must forget it.
    virtual void OnPaneGone(CDockablePane& pane) = 0;
};

/// A window that docks: a title, a client area and controls in it. The host gives it its size.
class CDockablePane : public CWnd {
public:
    using CWnd::CWnd;
    ~CDockablePane() override;

    bool Create(std::string_view title, tagSIZE size, UINT id);
    UINT GetDlgCtrlID() const { return id; }
    const std::string& GetWindowText() const { return title; }
    bool IsCreated() const { return created; }

    bool IsVisible() const { return visible; }
    void ShowPane(bool show);
    tagSIZE GetClientSize() const { return client; }
    /// The host's: the pane has got this client area.
    void Resize(tagSIZE size);
    /// The host's: the keyboard has come to the pane.
    virtual void OnSetFocus() {}
    /// The host's: fonts or metrics of the system have changed.
    virtual void OnSettingChange() {}

    /// The controls of the pane, in the order of the keyboard.
    const std::vector<CControl*>& GetControls() const { return controls; }

    void SetObserver(PaneObserver* newObserver) { observer = newObserver; }

protected:
    virtual void OnSize(tagSIZE size);
    void AddControl(CControl& control) { controls.push_back(&control); }
    void SetFocusTo(CControl& control);

private:
    UINT id = 0;
    std::string title;
    tagSIZE client;
    bool created = false;
    bool visible = true;
    std::vector<CControl*> controls;
    PaneObserver* observer = nullptr;
};

}  // namespace quillon
