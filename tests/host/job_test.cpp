#include "host/job.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "panes/boundary_pane.h"
#include "panes/pipe_route_pane.h"
#include "panes/pipeline_pane.h"
#include "panes/waypoint_pane.h"
#include "platform/headless.h"
#include "platform/text.h"
#include "platform/user_actions.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto BOUNDARY = KIND::BOUNDARY;
constexpr std::string_view kListFile = "C:\\MySettings\\Host\\Boundary_List.FLS";
constexpr std::string_view kCursorFile = "C:\\MySettings\\Host\\Boundary_List.INI";

std::string NameOf(KIND kind) {
    return kind == KIND::NONE ? "nothing" : std::string(KindOf(kind).name);
}

/// Writes down what a job tells.
class Told : public JobObserver {
public:
    void OnDrawingChanged() override { log.push_back("drawing"); }
    void OnPointShown(tagXY point) override { log.push_back(Format("point %.0lf %.0lf", point.x, point.y)); }
    void OnClearanceStale() override { log.push_back("stale"); }
    void OnFeatureUpdate(KIND kind) override { log.push_back("update " + NameOf(kind)); }
    void OnFocusFeature(KIND kind) override { log.push_back("focus " + NameOf(kind)); }
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
    CFeaturePane& Pane() { return dynamic_cast<CFeaturePane&>(*job->PaneOf(BOUNDARY)); }
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
    EXPECT_EQ(job->Record().boundaries.editState.editFileIndex, 1);
    EXPECT_EQ(job->Record().boundaries.editState.editPointIndex, 1);
    EXPECT_EQ(drives.Read(kCursorFile), cursor);
    EXPECT_THAT(Pump(), IsEmpty());
}

TEST_F(JobTest, AnswersWhatThePanesPost) {
    Open();
    user::Click(Pane().GetTable(), 2);
    // The click's own message reaches the pane, whose answer is a pair.
    EXPECT_THAT(Pump(), ElementsAre("point 500 500", "point 500 500"));
    EXPECT_EQ(job->ShownPoint(), (tagXY{500, 500}));

    job->Record().boundaries.changed = true;
    EXPECT_TRUE(Edit(BOUNDARY_COLOUR, COLORREF{RGB(255, 0, 0)}));
    EXPECT_THAT(Pump(), ElementsAre("drawing", "drawing"));
    EXPECT_FALSE(job->Record().boundaries.changed);
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
    for (const Row& row :
         {Row{UM_FEATURE_UPDATE, 2, "update Sail Line"}, Row{UM_SET_FOCUS_FEATURE, 99, "focus nothing"},
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
                                    JobPoint{BOUNDARY, -1, 0}, JobPoint{KIND::NONE, 0, 0}}) {
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
    EXPECT_FALSE(Open().Record().boundaries[1].Status);
    EXPECT_TRUE(job->Record().boundaries[0].Status);
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

/// Every file that the sample's lists name is there and has points; every kind of the workbench has its pane.
TEST(SampleJobTest, IsWhole) {
    ScratchDrives drives("Quillon");
    std::filesystem::copy(QUILLON_SAMPLE_JOB "/c", drives.Root() / "c",
                          std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
    HeadlessPlatform platform(drives.Root());
    Job job(platform);
    job.Open();
    job.Loads().Settle();
    for (const JobKind& kind : JobKinds()) {
        for (int i = 0; i < kind.fileCount(job.Record()); ++i) {
            const std::string& path = kind.path(job.Record(), i);
            EXPECT_TRUE(drives.Exists(path)) << path;
            // What the host loads later has no records yet.
            if (kind.id != KIND::DTM && kind.id != KIND::SHAPE) {
                EXPECT_GT(kind.report(job.Record(), i).taken, 1u) << path;
            }
            EXPECT_TRUE(kind.isDisplayed(job.Record(), i)) << path;
            EXPECT_NE(kind.look(job.Record(), i), KindLook()) << path;
        }
        EXPECT_NE(job.PaneOf(kind.id), nullptr);
    }
    EXPECT_GT(job.Record().boundaries.GetCount(), 8);
    // Drawing options come from files that are named after the data files: a slip there would give all the same blue.
    for (int i = 0; i < job.Record().boundaries.GetCount(); ++i) {
        EXPECT_NE(job.Record().boundaries[i].pen.colour, CDrawingOptions().pen.colour);
    }
}

/// The rows of a pane follow what another pane does to what they show; locks and selection stay.
TEST_F(JobTest, RowsFollowWhatOtherPanesStore) {
    drives.Write("C:\\Job\\Wrecks.csv", "1,2,3\r\n");
    drives.Write("C:\\MySettings\\Host\\GRID_Waypoints.FLS", "[]\r\nC:\\Job\\Wrecks.csv\r\n");
    drives.Write("C:\\MySettings\\Host\\Pipelines.FLS", "[]\r\nC:\\Job\\Outer.csv\r\n");
    drives.Write("C:\\MySettings\\Host\\Active_Pipeline.INI", "Path = C:\\Job\\Outer.csv\r\n");
    ASSERT_TRUE(platform.Passwords().Set("anchor"));
    Open();
    const auto list = [this](UINT id) -> CMFCPropertyGridCtrl& {
        for (const auto& pane : job->Panes()) {
            if (pane->GetDlgCtrlID() == id) return dynamic_cast<CPropertyPane&>(*pane).GetPropertyList();
        }
        throw std::logic_error("no such pane");
    };
    const auto type = [&](UINT pane, UINT row, std::string_view text) {
        EXPECT_TRUE(user::Type(list(pane), *list(pane).FindItemByData(row), text));
        platform.Messages().Pump();
    };
    const auto row = [&](UINT pane, UINT id) { return list(pane).FindItemByData(id); };
    const auto plain = CGridWaypointPane::kPlainId, cable = CGridWaypointPane::kCatenaryId;
    type(cable, WAYPOINT_PASSWORD, "anchor");
    type(cable, WAYPOINT_TOLERANCE, "100");
    CMFCPropertyGridProperty* const tolerance = row(cable, WAYPOINT_TOLERANCE);
    list(cable).SetCurSel(tolerance);
    type(plain, WAYPOINT_RING_SIZE, "75");
    EXPECT_EQ(row(cable, WAYPOINT_TOLERANCE), tolerance) << "the row itself stays";
    EXPECT_EQ(tolerance->FormatProperty(), "    0.0m");
    EXPECT_FALSE(tolerance->IsLocked());
    EXPECT_EQ(list(cable).GetCurSel(), tolerance);

    type(CPipelinePane::kTitleId, PIPELINE_COLOUR, "Red");
    EXPECT_EQ(row(CPipeRoutePane::kTitleId, PIPE_ROUTE_COLOUR)->FormatProperty(), "Red");
    type(CPipeRoutePane::kTitleId, PIPE_ROUTE_ORDER, "KP, Easting, Northing");
    EXPECT_EQ(row(CPipelinePane::kTitleId, PIPELINE_ORDER)->FormatProperty(), "KP, Easting, Northing");
    EXPECT_FALSE(row(CPipeRoutePane::kTitleId, PIPE_ROUTE_START_KP)->IsVisible());
}

}  // namespace
}  // namespace quillon
