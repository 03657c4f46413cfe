#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace quillon {

using UINT = std::uint32_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;

/// Names a window for as long as the program runs; never used twice. 0 is no window.
using WindowId = std::uint32_t;

class CWnd;

struct MSG {
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    friend bool operator==(const MSG&, const MSG&) = default;
};

/// The number of a message string, the same for every caller of this process; from 0xC000 upwards. Any thread.
UINT RegisterWindowMessage(std::string_view name);
/// The string behind a registered number; empty for any other.
std::string_view RegisteredMessageName(UINT message);

/// A property row was changed by the operator: wParam is the property list's id, lParam the address of the row.
inline constexpr UINT AFX_WM_PROPERTY_CHANGED = 0x0400 + 0x1000;

/// Time that a test can move. Milliseconds since a start of its own.
class Clock {
public:
    using Time = std::chrono::milliseconds;
    virtual ~Clock() = default;
    virtual Time Now() const = 0;
};

class SteadyClock : public Clock {
public:
    Time Now() const override;
};

class ManualClock : public Clock {
public:
    Time Now() const override { return now; }
    void Advance(Time step) { now += step; }

private:
    Time now{0};
};

/// The windows of one user-interface thread, the messages posted to them and their timers.
///
/// `Post` may be called from any thread, also for a window that has gone (the message is dropped). All else belongs to
/// the user-interface thread. Posted messages arrive in the order of posting; a timer is due when nothing is posted,
/// and one that has fallen behind fires once.
class MessageQueue {
public:
    explicit MessageQueue(const Clock& clock);
    MessageQueue(const MessageQueue&) = delete;
    MessageQueue& operator=(const MessageQueue&) = delete;

    WindowId Attach(CWnd& window);
    void Detach(WindowId id);
    CWnd* Find(WindowId id) const;

    /// False if there is no such window.
    bool Post(WindowId target, const MSG& message);
    LRESULT Send(WindowId target, const MSG& message);

    void SetTimer(WindowId target, UINT timer, std::chrono::milliseconds interval);
    void KillTimer(WindowId target, UINT timer);

    /// Delivers one posted message or one due timer; false if there was none.
    bool PumpOne();
    /// Pumps until nothing is left; the count of deliveries.
    int Pump();

    /// When the next timer is due, on the queue's clock.
    std::optional<Clock::Time> NextDue() const;
    /// Waits until something is posted or the time is over. For a modal loop without a toolkit.
    void WaitForPost(std::chrono::milliseconds limit);

    /// Called after each post (any thread) and each new timer, so that an event loop of the host comes and pumps.
    void SetWake(std::function<void()> wake);

    /// Whether something posted waits to be delivered.
    bool HasPosted() const;
    /// Called each time that the last of what was posted has been delivered.
    void SetDrained(std::function<void()> call) { drained = std::move(call); }

private:
    struct Posted {
        WindowId target;
        MSG message;
    };
    struct Timer {
        WindowId target;
        UINT id;
        std::chrono::milliseconds interval;
        Clock::Time due;
    };

    bool DeliverPosted();
    bool DeliverTimer();
    void Wake() const;

    const Clock& clock;
    mutable std::mutex mutex;  // guards posted, windows and wake
    std::condition_variable arrived;
    std::deque<Posted> posted;
    std::map<WindowId, CWnd*> windows;
    std::function<void()> wake;
    std::function<void()> drained;  // user-interface thread only
    WindowId lastId = 0;
    std::vector<Timer> timers;  // user-interface thread only
};

}  // namespace quillon
