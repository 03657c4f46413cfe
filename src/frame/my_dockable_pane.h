#pragma once

#include <string>
#include <string_view>

#include "foundation/values.h"
#include "frame/messages.h"
#include "platform/dockable_pane.h"

namespace quillon {

/// The base of all panes: what it shows goes to a parent window as messages.
class CMyDockablePane : public CDockablePane {
public:
    using CDockablePane::CDockablePane;

    /// The window that receives the pane's messages: its parent, or the application's main window. May be null.
    CWnd* GetReceiver() const;

    /// The section of the profile that holds whether this pane is shown.
    static std::string ProfileSection(UINT id);

protected:
    /// Creates the pane, hidden if the host has never said otherwise in the profile.
    bool CreatePane(CWnd* parentWindow, UINT paneId, std::string_view paneTitle);

    // What panes tell their host; all are posted to the receiver.

    /// Something that is drawn has changed.
    void BroadcastRedraw();
    /// The same, and this point is to be shown.
    void BroadcastRedraw(tagXY point);
    void BroadcastRecompute();
    void BroadcastFeatureUpdate(FEATURE_TYPES type);

private:
    void PostRedrawPair(WPARAM point);
    void PostToReceiver(UINT message, WPARAM wParam = 0);

    CWnd* parent = nullptr;
};

}  // namespace quillon
