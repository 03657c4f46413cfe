#pragma once

#include "platform/control_window.h"

namespace quillon {

/// A window that docks.
class CDockablePane : public CControlWindow {
public:
    explicit CDockablePane(Platform& platform) : CControlWindow(platform) {}

    /// False if the pane has been created before.
    bool Create(std::string_view title, tagSIZE size, UINT id);
    bool IsCreated() const { return created; }
    UINT GetDlgCtrlID() const { return id; }
    void ShowPane(bool show) { SetVisible(show); }

private:
    UINT id = 0;
    bool created = false;
};

}  // namespace quillon
