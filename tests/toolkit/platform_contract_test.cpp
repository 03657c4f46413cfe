// What both platforms promise, headless and over the toolkit alike.

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <filesystem>
#include <thread>

#include "platform/headless.h"
#include "platform/window.h"
#include "toolkit/qt_platform.h"

namespace quillon {
namespace {

constexpr std::chrono::milliseconds kPatience{5000};

/// A platform, and the passing of time on it.
class Host {
public:
    virtual ~Host() = default;
    virtual Platform& Get() = 0;
    /// Lets messages and timers arrive until `done`, for a while at most.
    virtual void RunUntil(const std::function<bool()>& done) = 0;
};

class ScratchFolder {
public:
    ScratchFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "quillon-XXXXXX").string();
        path = mkdtemp(name.data());
    }
    ~ScratchFolder() { std::filesystem::remove_all(path); }
    std::filesystem::path path;
};

class HeadlessHost : public Host {
public:
    Platform& Get() override { return platform; }
    void RunUntil(const std::function<bool()>& done) override {
        for (int i = 0; i < 500 && !done(); ++i) platform.Advance(std::chrono::milliseconds(10));
    }

private:
    ScratchFolder scratch;
    HeadlessPlatform platform{scratch.path};
};

class QtHost : public Host {
public:
    Platform& Get() override { return platform; }
    void RunUntil(const std::function<bool()>& done) override {
        QElapsedTimer waited;
        waited.start();
        while (!done() && waited.elapsed() < kPatience.count())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }

private:
    ScratchFolder scratch;
    QtPlatform platform{scratch.path, scratch.path / "profile.ini"};
};

class LoggingWindow : public CWnd {
public:
    using CWnd::CWnd;
    std::vector<UINT> messages;
    std::vector<UINT> timers;
    std::function<void(UINT)> onMessage;

    LRESULT OnMessage(const MSG& message) override {
        messages.push_back(message.message);
        if (onMessage) onMessage(message.message);
        return 42;
    }
    void OnTimer(UINT timer) override { timers.push_back(timer); }
};

class PlatformContract : public testing::TestWithParam<std::string> {
protected:
    PlatformContract() {
        if (GetParam() == "headless") {
            host = std::make_unique<HeadlessHost>();
        } else {
            host = std::make_unique<QtHost>();
        }
    }
    Platform& Get() { return host->Get(); }
    std::unique_ptr<Host> host;
};

INSTANTIATE_TEST_SUITE_P(Both, PlatformContract, testing::Values("headless", "toolkit"),
                         [](const auto& suite) { return suite.param; });

TEST_P(PlatformContract, PostedMessagesArriveInOrderAndOnlyWhenTheLoopRuns) {
    LoggingWindow window(Get());
    for (const UINT message : {7u, 5u, 6u}) window.PostMessage(message);
    EXPECT_TRUE(window.messages.empty());
    host->RunUntil([&] { return window.messages.size() >= 3; });
    EXPECT_EQ(window.messages, (std::vector<UINT>{7, 5, 6}));
    EXPECT_EQ(window.SendMessage(9), 42);
    EXPECT_EQ(window.messages.back(), 9u);
}

// A wake-up lost between the two threads would leave the last messages lying.
TEST_P(PlatformContract, EveryMessageOfAWorkerArrives) {
    LoggingWindow window(Get());
    constexpr std::size_t kCount = 5000;
    std::thread worker([&] {
        for (std::size_t i = 0; i < kCount; ++i) window.PostMessage(static_cast<UINT>(i));
    });
    host->RunUntil([&] { return window.messages.size() >= kCount; });
    worker.join();
    host->RunUntil([&] { return window.messages.size() >= kCount; });
    ASSERT_EQ(window.messages.size(), kCount);
    EXPECT_TRUE(std::is_sorted(window.messages.begin(), window.messages.end()));
}

TEST_P(PlatformContract, MessagesOfAWindowThatWentAreDropped) {
    LoggingWindow other(Get());
    {
        LoggingWindow window(Get());
        window.PostMessage(1);
        window.SetTimer(1, std::chrono::milliseconds(1));
    }
    other.PostMessage(2);
    host->RunUntil([&] { return !other.messages.empty(); });
    EXPECT_EQ(other.messages, (std::vector<UINT>{2}));
}

TEST_P(PlatformContract, TimersComeAgainUntilTheyAreKilled) {
    LoggingWindow window(Get());
    window.SetTimer(3, std::chrono::milliseconds(5));
    window.SetTimer(4, std::chrono::milliseconds(20));
    host->RunUntil([&] { return std::count(window.timers.begin(), window.timers.end(), 4u) >= 2; });
    EXPECT_GT(std::count(window.timers.begin(), window.timers.end(), 3u), 2);
    window.KillTimer(3);
    window.timers.clear();
    host->RunUntil([&] { return window.timers.size() >= 2; });
    EXPECT_EQ(window.timers, (std::vector<UINT>{4, 4}));
}

TEST_P(PlatformContract, AModalLoopDeliversMessagesAndEndsWithinAMessage) {
    LoggingWindow window(Get());
    bool ended = false;
    bool innerEnded = false;
    window.onMessage = [&](UINT message) {
        if (message == 2) innerEnded = true;
        if (message != 1) return;
        // A loop within the handling of a message must get messages too.
        window.PostMessage(2);
        Get().RunModal([&] { return innerEnded; });
        ended = true;
    };
    window.PostMessage(1);
    Get().RunModal([&] { return ended; });
    EXPECT_EQ(window.messages, (std::vector<UINT>{1, 2}));
}

TEST_P(PlatformContract, TheProfileKeepsNumbersAndTexts) {
    Profile& profile = Get().GetProfile();
    EXPECT_EQ(profile.GetInt("Workspace\\BasePane-12047", "IsVisible", -1), -1);
    profile.SetInt("Workspace\\BasePane-12047", "IsVisible", 1);
    profile.SetInt("Workspace\\BasePane-12048", "IsVisible", 0);
    EXPECT_EQ(profile.GetInt("Workspace\\BasePane-12047", "IsVisible", -1), 1);
    EXPECT_EQ(profile.GetInt("Workspace\\BasePane-12048", "IsVisible", -1), 0);
    for (const char* text : {"", "C:\\Job\\caf\xE9.csv", "a, \"b\"; c=d", "@Variant", " blanks "}) {
        profile.SetText("Files", "Last", text);
        EXPECT_EQ(profile.GetText("Files", "Last", "missing"), text);
    }
    EXPECT_EQ(profile.GetText("Files", "Other", "missing"), "missing");
}

TEST_P(PlatformContract, TheClipboardKeepsTheLibrarysText) {
    for (const char* text : {"Caf\xE9 \x80 57\xB0", "a\tb", ""}) {
        Get().SetClipboardText(text);
        EXPECT_EQ(Get().ClipboardText(), text);
    }
}

}  // namespace
}  // namespace quillon
