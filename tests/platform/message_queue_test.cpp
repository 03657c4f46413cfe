#include "platform/message_queue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

#include "platform/headless.h"
#include "platform/text.h"
#include "platform/window.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

using std::chrono::milliseconds;

/// Notes what arrives, as "name message/wParam/lParam" and "name timer id", in a log shared by all windows.
class LoggingWindow : public CWnd {
public:
    LoggingWindow(Platform& owner, std::string windowName, std::vector<std::string>& sharedLog)
        : CWnd(owner), name(std::move(windowName)), log(sharedLog) {}

    LRESULT OnMessage(const MSG& message) override {
        log.push_back(name + Format(" %u/%zu/%zd", message.message, message.wParam, message.lParam));
        if (onMessage) onMessage(message);
        return 77;
    }
    void OnTimer(UINT timer) override {
        log.push_back(name + Format(" timer %u", timer));
        if (onTimer) onTimer(timer);
    }
    std::function<void(const MSG&)> onMessage;
    std::function<void(UINT)> onTimer;

private:
    std::string name;
    std::vector<std::string>& log;
};

using Log = std::vector<std::string>;

class Messages : public ::testing::Test {
protected:
    MessageQueue& Queue() { return platform.Messages(); }
    Log Taken() { return std::exchange(log, {}); }

    ScratchDrives drives;
    HeadlessPlatform platform{drives.Root()};
    Log log;
    LoggingWindow a{platform, "a", log};
    LoggingWindow b{platform, "b", log};
};

TEST_F(Messages, ArriveInTheOrderOfPosting) {
    EXPECT_TRUE(a.PostMessage(1, 10, -20));
    b.PostMessage(2);
    a.PostMessage(3);
    EXPECT_EQ(Taken(), Log{}) << "nothing before the pump";
    EXPECT_EQ(b.SendMessage(9), 77) << "sent ones don't wait";
    EXPECT_EQ(Queue().Pump(), 3);
    EXPECT_EQ(Taken(), (Log{"b 9/0/0", "a 1/10/-20", "b 2/0/0", "a 3/0/0"}));
    EXPECT_FALSE(Queue().PumpOne());
}

TEST_F(Messages, ToAWindowThatHasGoneAreDropped) {
    auto gone = std::make_unique<LoggingWindow>(platform, "gone", log);
    const WindowId id = gone->GetId();
    gone->PostMessage(1);
    gone->SetTimer(1, milliseconds(5));
    a.PostMessage(2);
    gone.reset();
    EXPECT_FALSE(Queue().Post(id, {3, 0, 0}));
    EXPECT_EQ(Queue().Send(id, {3, 0, 0}), 0);
    Queue().SetTimer(id, 1, milliseconds(5));
    EXPECT_FALSE(Queue().NextDue());
    platform.Advance(milliseconds(20));
    EXPECT_EQ(Taken(), Log{"a 2/0/0"});
    LoggingWindow next(platform, "next", log);
    EXPECT_NE(next.GetId(), id);
}

TEST_F(Messages, ComeFromAnyThread) {
    constexpr int kThreads = 4, kEach = 500;
    std::atomic<int> wakes{0};
    Queue().SetWake([&] { ++wakes; });
    std::vector<int> last(kThreads, -1);
    int arrived = 0;
    a.onMessage = [&](const MSG& message) {
        EXPECT_EQ(message.lParam, last[message.wParam] + 1) << "each thread's own order";
        last[message.wParam] = static_cast<int>(message.lParam);
        ++arrived;
    };
    auto shortLived = std::make_unique<LoggingWindow>(platform, "short", log);
    const WindowId shortId = shortLived->GetId();
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            for (int i = 0; i < kEach; ++i) {
                Queue().Post(a.GetId(), {1, static_cast<WPARAM>(t), i});
                Queue().Post(shortId, {2, 0, 0});
            }
        });
    }
    Queue().Pump();
    shortLived.reset();
    while (arrived < kThreads * kEach) {
        Queue().WaitForPost(milliseconds(100));
        Queue().Pump();
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(Queue().Pump(), 0);
    EXPECT_GE(wakes, kThreads * kEach);
}

// ---- Timers ----

TEST_F(Messages, TimersFireInTheOrderInWhichTheyFallDue) {
    a.SetTimer(1, milliseconds(100));
    b.SetTimer(2, milliseconds(40));
    EXPECT_EQ(Queue().NextDue(), milliseconds(40));
    platform.Advance(milliseconds(39));
    EXPECT_EQ(Taken(), Log{});
    platform.Advance(milliseconds(81));
    EXPECT_EQ(Taken(), (Log{"b timer 2", "b timer 2", "a timer 1", "b timer 2"}));
    EXPECT_EQ(platform.GetClock().Now(), milliseconds(120));
}

TEST_F(Messages, ATimerWaitsForWhatIsPosted) {
    a.SetTimer(1, milliseconds(10));
    a.onTimer = [&](UINT) { b.PostMessage(5); };
    b.onMessage = [&](const MSG& message) {
        if (message.message == 5) b.PostMessage(6);
    };
    b.PostMessage(4);
    platform.Advance(milliseconds(10));
    EXPECT_EQ(Taken(), (Log{"b 4/0/0", "a timer 1", "b 5/0/0", "b 6/0/0"}));
}

TEST_F(Messages, ATimerThatFellBehindFiresOnce) {
    ManualClock clock;
    MessageQueue queue(clock);
    const WindowId id = queue.Attach(a);
    queue.SetTimer(id, 1, milliseconds(10));
    clock.Advance(milliseconds(95));
    EXPECT_EQ(queue.Pump(), 1);
    EXPECT_EQ(queue.NextDue(), milliseconds(105));
    queue.Detach(id);
    EXPECT_FALSE(queue.NextDue());
}

TEST_F(Messages, AHandlerMayKillAndRestartTimers) {
    a.SetTimer(1, milliseconds(10));
    b.SetTimer(2, milliseconds(10));
    a.onTimer = [&](UINT timer) {
        a.KillTimer(timer);
        b.KillTimer(2);
        a.SetTimer(3, milliseconds(30));
    };
    platform.Advance(milliseconds(39));
    EXPECT_EQ(Taken(), Log{"a timer 1"});
    a.SetTimer(3, milliseconds(30));  // from now
    platform.Advance(milliseconds(29));
    EXPECT_EQ(Taken(), Log{});
    platform.Advance(milliseconds(1));
    EXPECT_EQ(Taken(), Log{"a timer 3"});
}

TEST_F(Messages, AWindowMayGoInItsOwnTimer) {
    auto pane = std::make_unique<LoggingWindow>(platform, "pane", log);
    pane->SetTimer(1, milliseconds(1));
    a.SetTimer(1, milliseconds(1));
    a.onTimer = [&](UINT) { pane.reset(); };
    platform.Advance(milliseconds(1));
    platform.Advance(milliseconds(1));
    EXPECT_EQ(Taken(), (Log{"pane timer 1", "a timer 1", "a timer 1"}));
}

// ---- The platform without a window system ----

TEST_F(Messages, AModalLoopRunsUntilAWorkerEndsIt) {
    bool ended = false;
    a.onMessage = [&](const MSG&) { ended = true; };
    std::thread worker([&] { Queue().Post(a.GetId(), {1, 0, 0}); });
    platform.RunModal([&] { return ended; });
    worker.join();
    EXPECT_EQ(Taken(), Log{"a 1/0/0"});
}

}  // namespace
}  // namespace quillon
