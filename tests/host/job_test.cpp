#include "host/job.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "panes/boundary_pane.h"
#include "platform/headless.h"
#include "platform/text.h"
#include "platform/user_actions.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto BOUNDARY = FEATURE_TYPES::BOUNDARY;
constexpr std::string_view kListFile = "C:\\MySettings\\Host\\Boundary_List.FLS";
constexpr std::string_view kCursorFile = "C:\\MySettings\\Host\\Boundary_List.INI";

/// Writes down what a job tells.
class Told : public JobObserver {
public:
    void OnDrawingChanged() override { log.push_back("drawing"); }
    void OnPointShown(tagXY point) override { log.push_back(Format("point %.0lf %.0lf", point.x, point.y)); }
    void OnClearanceStale() override { log.push_back("stale"); }
    void OnFeatureUpdate(FEATURE_TYPES type) override { log.push_back(Format("update %d", static_cast<int>(type))); }
    void OnFocusFeature(FEATURE_TYPES type) override { log.push_back(Format("focus %d", static_cast<int>(type))); }
    std::vector<std::string> log;
};

/// A job of two boundaries, the cursor on the second point of the second.
class JobTest : public ::testing::Test {
protected:
    JobTest() : platform(drives.Root(), "C:\\Programs\\Host.exe") {
        drives.Write("C:\\Job\\Inner.csv", "100, 200\r\n110, 200\r\n110, 210\r\n");
        drives.Write("C:\\Job\\Outer.csv", "0, 1\r\n500, 1\r\n500, 500\r\n0, 500\r\n");
        drives.Write(kListFile, "[Boundary]\r\nC:\\Job\\Inner.csv\r\nC:\\Job\\Outer.csv\r\n");
        drives.Write(kCursorFile, "Edit File Index = 1\r\nEdit Point Index = 1\r\n");
    }

    Job& Open() {
        job = std::make_unique<Job>(platform);
        job->Open();
        job->SetObserver(&told);
        return *job;
    }
    CFeaturePane& Pane() { return *job->PaneOf(BOUNDARY); }
    bool Edit(UINT row, RowValue value) {
        return user::Edit(Pane().GetPropertyList(), *Pane().GetPropertyList().FindItemByData(row), std::move(value));
    }
    std::vector<std::string> Pump() {
        platform.Messages().Pump();
        return std::exchange(told.log, {});
    }

    ScratchDrives drives;
    HeadlessPlatform platform;
    Told told;
    std::unique_ptr<Job> job;
};

TEST_F(JobTest, StartsWhereItsListFilesLeftOffAndWritesNothing) {
    const std::string cursor = drives.Read(kCursorFile);
    Open();
    EXPECT_EQ(Pane().GetCombo().GetCurSel(), 1);
    EXPECT_EQ(Pane().GetTable().GetItemCount(), 4);
    EXPECT_EQ(job->Features().boundaries.editState.editFileIndex, 1);
    EXPECT_EQ(job->Features().boundaries.editState.editPointIndex, 1);
    EXPECT_EQ(drives.Read(kCursorFile), cursor);
    EXPECT_THAT(Pump(), IsEmpty());
}

TEST_F(JobTest, AnswersWhatThePanesPost) {
    Open();
    user::Click(Pane().GetTable(), 2);
    // The click's own message reaches the pane, whose answer is a pair.
    EXPECT_THAT(Pump(), ElementsAre("point 500 500", "point 500 500"));
    EXPECT_EQ(job->ShownPoint(), (tagXY{500, 500}));

    job->Features().boundaries.changed = true;
    EXPECT_TRUE(Edit(BOUNDARY_COLOUR, COLORREF{RGB(255, 0, 0)}));
    EXPECT_THAT(Pump(), ElementsAre("drawing", "drawing"));
    EXPECT_FALSE(job->Features().boundaries.changed);
    EXPECT_EQ(job->ShownPoint(), (tagXY{500, 500})) << "another colour is no reason to lose the mark";

    EXPECT_FALSE(job->IsClearanceStale());
    EXPECT_TRUE(Edit(BOUNDARY_HIGHLIGHT, true));
    EXPECT_THAT(Pump(), ElementsAre("stale"));
    EXPECT_TRUE(job->IsClearanceStale());

    user::Press(Pane().GetRemoveButton());
    EXPECT_THAT(Pump(), ElementsAre("drawing", "drawing", "stale"));
    EXPECT_FALSE(job->ShownPoint()) << "the mark may not outlive the file it was in";
}

TEST_F(JobTest, AnswersTheMessagesOfTheOtherPanes) {
    struct Row {
        UINT message;
        WPARAM wParam;
        const char* told;
    };
    Open();
    for (const Row& row : {Row{UM_FEATURE_UPDATE, 2, "update 2"}, Row{UM_SET_FOCUS_FEATURE, 7, "focus 7"},
                           Row{UM_UPDATE_DTM, 0, "drawing"}, Row{UM_REDRAW_VECTOR_DISPLAY, 0, "drawing"}}) {
        EXPECT_TRUE(job->PostMessage(row.message, row.wParam));
        EXPECT_THAT(Pump(), ElementsAre(row.told)) << RegisteredMessageName(row.message);
    }
}

TEST_F(JobTest, TakesThePointOfARedrawBeforeTheNextOneOverwritesIt) {
    Open();
    user::Click(Pane().GetTable(), 0);
    Pump();
    const tagXY first = *job->ShownPoint();
    user::Click(Pane().GetTable(), 1);
    EXPECT_EQ(job->ShownPoint(), first);
    Pump();
    EXPECT_EQ(job->ShownPoint(), (tagXY{500, 1}));
}

TEST_F(JobTest, APointChosenOnTheChartMovesCursorComboAndRow) {
    Open();
    EXPECT_TRUE(job->SelectPoint({BOUNDARY, 0, 2}));
    EXPECT_EQ(Pane().GetCombo().GetCurSel(), 0);
    EXPECT_EQ(Pane().GetTable().GetItemCount(), 3);
    EXPECT_EQ(Pane().GetTable().GetSelection(), 2);
    EXPECT_THAT(Pump(), ElementsAre("point 110 210"));
    EXPECT_EQ(drives.Read(kCursorFile), "Edit File Index = 0\r\nEdit Point Index = 2\r\n");

    for (const JobPoint& nowhere : {JobPoint{BOUNDARY, 2, 0}, JobPoint{BOUNDARY, 0, 3}, JobPoint{BOUNDARY, 0, -1},
                                    JobPoint{BOUNDARY, -1, 0}, JobPoint{FEATURE_TYPES::NONE, 0, 0}}) {
        EXPECT_FALSE(job->SelectPoint(nowhere));
    }
    EXPECT_EQ(Pane().GetTable().GetSelection(), 2);
    EXPECT_THAT(Pump(), IsEmpty());
}

TEST_F(JobTest, AHiddenFeatureStaysHiddenAtTheNextStart) {
    Open();
    EXPECT_TRUE(Edit(BOUNDARY_DISPLAY, false));
    Pump();
    EXPECT_EQ(drives.Read("C:\\Job\\Outer.INI"), "Status = 0\r\nHighlight = 0\r\n");
    EXPECT_FALSE(drives.Exists("C:\\Job\\Inner.INI")) << "only the flags that changed are written";
    job.reset();
    EXPECT_FALSE(Open().Features().boundaries[1].Status);
    EXPECT_TRUE(job->Features().boundaries[0].Status);
}

TEST_F(JobTest, AFileAddedIsListedAndShownAtTheNextStart) {
    drives.Write("C:\\Job\\New.csv", "7, 8\r\n");
    Open();
    platform.AnswerFiles({"C:\\Job\\New.csv"});
    user::Press(Pane().GetAddButton());
    EXPECT_THAT(Pump(), ElementsAre("drawing", "drawing", "stale"));
    job.reset();
    Open();
    EXPECT_EQ(Pane().GetCombo().GetCount(), 3);
    EXPECT_EQ(Pane().GetCombo().GetCurSel(), 2);
}

TEST_F(JobTest, NightReachesEveryPane) {
    Open().SetNightMode(true);
    for (const auto& pane : job->Panes()) EXPECT_TRUE(pane->GetNightMode());
}

/// Every file that the sample's lists name is there and has points; every kind of the workbench has its pane.
TEST(SampleJobTest, IsWhole) {
    ScratchDrives drives("Quillon");
    std::filesystem::copy(QUILLON_SAMPLE_JOB "/c", drives.Root() / "c",
                          std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
    HeadlessPlatform platform(drives.Root());
    Job job(platform);
    job.Open();
    for (const FeatureKind& kind : FeatureKinds()) {
        const CFileListBase& list = kind.list(job.Features());
        for (int i = 0; i < list.GetCount(); ++i) {
            EXPECT_TRUE(drives.Exists(list.GetPath(i))) << list.GetPath(i);
            EXPECT_GT(list.GetPointCount(i), 1) << list.GetPath(i);
        }
        EXPECT_NE(job.PaneOf(kind.type), nullptr);
    }
    EXPECT_GT(job.Features().boundaries.GetCount(), 8);
    // Drawing options come from files that are named after the data files: a slip there would give all the same blue.
    for (int i = 0; i < job.Features().boundaries.GetCount(); ++i) {
        EXPECT_NE(job.Features().boundaries[i].pen.colour, CDrawingOptions().pen.colour);
    }
}

}  // namespace
}  // namespace quillon
