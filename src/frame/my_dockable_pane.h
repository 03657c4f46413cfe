#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "foundation/values.h"
#include "frame/messages.h"
#include "frame/posts.h"
#include "platform/dockable_pane.h"

namespace quillon {

/// The controls of a pane by which files come, go and are chosen; null for what a pane doesn't have.
struct FileControls {
    CButton* add = nullptr;
    CButton* remove = nullptr;    ///< removes the one that is chosen
    CComboBox* choice = nullptr;  ///< an item per file, in their order
};

/// The base of all panes: what it shows goes to a parent window as messages, and its controls turn with day and night.
/// What stands in it is put together by the pane itself, of a property list or several, and parts such as `CFileStrip`.
class CMyDockablePane : public CDockablePane {
public:
    using CDockablePane::CDockablePane;

    /// The window that receives the pane's messages: its parent, or the application's main window. May be null.
    CWnd* GetReceiver() const;

    /// The section of the profile that holds whether this pane is shown.
    static std::string ProfileSection(UINT id);

    /// Turns the property lists and the other controls that have night colours; those on the pages of tabs too.
    virtual void SetNightMode(bool on);
    void SetDaylightMode() { SetNightMode(false); }
    bool GetNightMode() const { return night; }
    void SetVSDotNetLook(int look);

    /// Places the controls in the client area.
    virtual void AdjustLayout() = 0;
    /// Brings the rows of the property lists up to date with what the pane edits.
    virtual void RefreshRows() = 0;
    /// Brings all controls up to date with what the pane edits. For a host that has changed it by itself.
    virtual void Refresh() = 0;
    void OnSettingChange() override { AdjustLayout(); }
    /// The button that asks the operator for files, for a host that offers it elsewhere too; null where there is none.
    virtual CButton* GetFileButton() { return nullptr; }
    /// The same for all that a pane offers for its files.
    virtual FileControls GetFileControls() { return {.add = GetFileButton()}; }

protected:
    /// Creates the pane, hidden if the host has never said otherwise in the profile.
    bool CreatePane(CWnd* parentWindow, UINT paneId, std::string_view paneTitle);
    void OnSize(tagSIZE) override { AdjustLayout(); }
    /// Notes day or night and colours nothing.
    void NoteNightMode(bool on) { night = on; }

    /// Posts to the receiver, in this order.
    void BroadcastAll(const Posts& posts);
    /// The redraw pair with the point that is to be shown.
    void BroadcastRedraw(tagXY point);

    // What the messages are about.
    virtual FEATURE_TYPES GetFeatureType() const { return FEATURE_TYPES::NONE; }
    virtual bool IsHighlighted() const { return false; }
    /// Without one, the redraw pair goes out without a point.
    virtual std::optional<tagXY> GetShownPoint() const { return std::nullopt; }

private:
    void BroadcastOne(POST post);
    void PostRedrawPair(WPARAM point);
    void PostToReceiver(UINT message, WPARAM wParam = 0);

    CWnd* parent = nullptr;
    bool night = false;
};

}  // namespace quillon
