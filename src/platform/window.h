#pragma once

#include <chrono>
#include <string>

#include "platform/geometry.h"
#include "platform/message_queue.h"

namespace quillon {

class Platform;

/// A window: something that messages and timers reach. Lives on the user-interface thread.
class CWnd {
public:
    explicit CWnd(Platform& platform);
    virtual ~CWnd();
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    Platform& GetPlatform() const { return platform; }
    WindowId GetId() const { return id; }

    bool PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    void SetTimer(UINT timer, std::chrono::milliseconds interval);
    void KillTimer(UINT timer);

    /// A posted or sent message has arrived.
    virtual LRESULT OnMessage(const MSG& message);
    virtual void OnTimer(UINT timer);
    /// A button of this window was pressed, a choice made in one of its lists, a box ticked, a text edited.
    virtual void OnCommand(UINT control);
    /// An item of one of its list boxes was double-clicked, after the choice of it was told.
    virtual void OnDoubleClick(UINT control);

private:
    Platform& platform;
    WindowId id;
};

}  // namespace quillon
