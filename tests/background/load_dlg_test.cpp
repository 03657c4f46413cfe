#include "background/load_dlg.h"

#include <gtest/gtest.h>

#include <functional>
#include <latch>
#include <stdexcept>
#include <vector>

#include "frame/messages.h"
#include "platform/headless.h"
#include "platform/user_actions.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

/// A load whose work is the test's.
class TestLoad : public CLoadDlg {
public:
    using Job = std::function<bool(LoadProgress&)>;

    TestLoad(Platform& owner, Job work, bool byFlag = false)
        : CLoadDlg(owner, progress, UM_DIG_THREAD, kLoadDlgSize, nullptr), job(std::move(work)), endsByFlag(byFlag) {}

    int BarPosition() { return Bar().GetPos(); }
    const std::string& TextShown() { return Text().GetWindowText(); }

protected:
    std::string Caption() const override { return "Loading a test"; }
    bool Work() override { return job(progress); }
    void OnTick() override { ShowBytes(); }
    bool EndsByFlag() const override { return endsByFlag; }

private:
    Job job;
    bool endsByFlag;
    LoadProgress progress;
};

class LoadDlg : public testing::Test {
protected:
    ScratchDrives drives;
    HeadlessPlatform platform{drives.Root()};
};

TEST_F(LoadDlg, EndsAsItsWorkerDoes) {
    struct Row {
        const char* why;
        TestLoad::Job job;
        bool byFlag;
        int result;
    };
    const auto fail = [](LoadProgress&) { return false; };
    const auto raise = [](LoadProgress&) -> bool { throw std::runtime_error("no memory"); };
    const std::vector<Row> rows = {
        {"done", [](LoadProgress&) { return true; }, false, IDOK},
        {"a drawing that can't be opened stays in its list", fail, false, IDOK},
        {"a shape that can't be opened ends as a cancel", fail, true, IDCANCEL},
        {"raised", raise, true, IDCANCEL},
    };
    for (const Row& row : rows) {
        TestLoad dialog(platform, row.job, row.byFlag);
        EXPECT_EQ(dialog.DoModal(), row.result) << row.why;
        EXPECT_EQ(dialog.GetWindowText(), "Loading a test");
        EXPECT_FALSE(dialog.IsOpen());
        // No timer goes on behind it.
        EXPECT_FALSE(platform.Messages().NextDue());
    }
}

TEST_F(LoadDlg, ShowsWhatTheWorkerHasCounted) {
    std::latch counted(1), seen(1);
    TestLoad dialog(platform, [&](LoadProgress& progress) {
        progress.Begin(386'000'000'000);
        progress.SetPosition(96'500'000'000);
        counted.count_down();
        seen.wait();
        return true;
    });
    platform.AnswerDialog([&](CDialog&) {
        EXPECT_EQ(dialog.TextShown(), "0 Bytes of 0 Bytes");
        counted.wait();
        platform.Advance(CLoadDlg::kTick);
        EXPECT_EQ(dialog.BarPosition(), 250);
        EXPECT_EQ(dialog.TextShown(), "Copied 96500000000 bytes of 386000000000");
        seen.count_down();
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

// Quit closes the window at once; when DoModal is back, nobody works on the target any more.
TEST_F(LoadDlg, QuitWaitsForTheWorkerBeforeItReturns) {
    struct Row {
        const char* when;
        bool started, finished;
    };
    for (const Row& row : std::vector<Row>{{"before the first block", false, false},
                                           {"in the middle", true, false},
                                           {"after the last block", true, true}}) {
        std::latch inTheMiddle(1), quit(1);
        std::atomic<bool> ended = false;
        TestLoad dialog(platform, [&](LoadProgress& progress) {
            if (!row.started) quit.wait();
            inTheMiddle.count_down();
            while (!row.finished && !progress.IsCancelled()) std::this_thread::yield();
            ended = true;
            return true;
        });
        platform.AnswerDialog([&](CDialog& open) {
            if (row.started) inTheMiddle.wait();
            while (row.finished && !ended) std::this_thread::yield();
            user::Press(static_cast<CButton&>(*open.GetDlgItem(IDCANCEL)));
            quit.count_down();
        });
        EXPECT_EQ(dialog.DoModal(), IDCANCEL) << row.when;
        EXPECT_TRUE(ended) << row.when;
    }
}

}  // namespace
}  // namespace quillon
