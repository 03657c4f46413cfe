#include "background/load_thread.h"

#include <gtest/gtest.h>

#include <latch>
#include <new>
#include <optional>
#include <vector>

#include "frame/messages.h"
#include "platform/headless.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

class Waiting : public CWnd {
public:
    using CWnd::CWnd;
    LRESULT OnMessage(const MSG& message) override {
        messages.push_back(message);
        return 0;
    }
    std::vector<MSG> messages;
};

class LoadThread : public testing::Test {
protected:
    ScratchDrives drives;
    HeadlessPlatform platform{drives.Root()};
    Waiting window{platform};
    LoadProgress progress;

    std::vector<MSG> Ended() {
        platform.Messages().Pump();
        return window.messages;
    }
};

TEST_F(LoadThread, PostsItsFlagAsTheLastAct) {
    struct Row {
        CLoadThread::Work work;
        WPARAM flag;
        const char* failure;
    };
    const std::vector<Row> rows = {
        {[](LoadProgress&) { return true; }, 0, ""},
        {[](LoadProgress&) { return false; }, 1, ""},
        // Memory that can't be had must not end the program.
        {[](LoadProgress&) -> bool { throw std::bad_alloc(); }, 1, "std::bad_alloc"},
    };
    for (const Row& row : rows) {
        window.messages.clear();
        CLoadThread worker(window, UM_DIG_THREAD, progress, row.work);
        ASSERT_TRUE(worker.Resume());
        worker.Join();
        EXPECT_EQ(Ended(), (std::vector<MSG>{{UM_DIG_THREAD, row.flag, 0}}));
        EXPECT_EQ(worker.GetFailure(), row.failure);
    }
}

TEST_F(LoadThread, IsStoppedAndJoinedByItsDestructor) {
    std::latch inTheMiddle(1);
    bool left = false;
    {
        CLoadThread worker(window, UM_SHAPE_THREAD, progress, [&](LoadProgress& shared) {
            shared.Begin(10);
            shared.SetPosition(4);
            inTheMiddle.count_down();
            while (!shared.IsCancelled()) std::this_thread::yield();
            left = true;
            return true;
        });
        ASSERT_TRUE(worker.Resume());
        inTheMiddle.wait();
        EXPECT_EQ(progress.GetThousandths(), 400);
    }
    EXPECT_TRUE(left);
    EXPECT_EQ(Ended(), (std::vector<MSG>{{UM_SHAPE_THREAD, 1, 0}}));
}

TEST_F(LoadThread, MayEndAfterItsWindow) {
    std::optional<Waiting> gone(std::in_place, platform);
    std::latch closed(1);
    CLoadThread worker(*gone, UM_DXF_THREAD, progress, [&](LoadProgress&) {
        closed.wait();
        return true;
    });
    ASSERT_TRUE(worker.Resume());
    gone.reset();
    closed.count_down();
    worker.Join();
    EXPECT_TRUE(Ended().empty());
}

}  // namespace
}  // namespace quillon
