#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls.h"

namespace quillon {

/// Another tab is in front: sent to the owner of the tab control, wParam the tab's index.
inline constexpr UINT AFX_WM_CHANGE_ACTIVE_TAB = 0x0400 + 0x1001;

/// Pages under a row of tabs, one control a page; the control in front is shown, the others are hidden. It is a window
/// too: its pages belong to it and report to it. Their rectangles count from its upper left corner, the tabs included.
class CMFCTabCtrl : public CControl, public CWnd {
public:
    CMFCTabCtrl(CWnd& tabOwner, UINT tabId);
    using CControl::GetOwner;

    /// Adds a page behind the others; the first comes to the front. The control is the caller's and lives as long as
    /// this.
    void AddTab(CControl& page, std::string_view label);
    int GetTabsNum() const { return static_cast<int>(tabs.size()); }
    /// Both raise InvalidArgument where there is no such tab.
    const std::string& GetTabLabel(int tab) const;
    CControl& GetTabWnd(int tab) const;

    /// -1 without a tab.
    int GetActiveTab() const { return active; }
    /// The page in front; null without a tab.
    CControl* GetActiveWnd() const;
    /// Tells the owner if another tab comes to the front. An index that is no tab's is passed over.
    void SetActiveTab(int tab);

    /// Height of the row of tabs, pixels.
    int GetTabsHeight() const;

    /// Each tab in a shade of its own.
    void EnableAutoColor(bool enable);
    bool IsAutoColor() const { return autoColour; }
    void EnableActiveTabBoldFont(bool enable);
    bool IsActiveTabBoldFont() const { return boldFont; }

private:
    struct Tab {
        std::string label;
        CControl* page;
    };
    const Tab& At(int tab) const;

    std::vector<Tab> tabs;
    int active = -1;
    bool autoColour = false;
    bool boldFont = false;
};

}  // namespace quillon
