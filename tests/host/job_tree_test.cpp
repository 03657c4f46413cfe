// The job tree, and what is done to files from outside of their panes.

#include "host/job_tree.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "host/read_findings.h"
#include "host/save_watch.h"
#include "panes/boundary_pane.h"
#include "platform/headless.h"
#include "platform/text.h"
#include "platform/user_actions.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr auto BOUNDARY = KIND::BOUNDARY;
constexpr const char* kSquare = "100, 200\r\n110, 200\r\n110, 210\r\n";

JobFile Boundary(const char* name) {
    return {BOUNDARY, std::string("C:\\Job\\") + name + ".csv"};
}

/// Keeps rows of its own by what the tree tells, as a view does.
class Mirror : public JobTreeObserver {
public:
    explicit Mirror(JobTree& shown) : tree(shown) {
        tree.SetObserver(this);
        for (const JobKind& kind : JobKinds()) EXPECT_TRUE(tree.FilesOf(kind.id).empty());
    }
    void OnFilesComing(KIND kind, int first, int last) override {
        log += Format("+%d-%d ", first, last);
        coming = {kind, first, last};
    }
    void OnFilesCame() override {
        auto& own = rows[coming.kind];
        const auto& shown = tree.FilesOf(coming.kind);
        own.insert(own.begin() + coming.first, shown.begin() + coming.first, shown.begin() + coming.last + 1);
    }
    void OnFilesGoing(KIND kind, int first, int last) override {
        log += Format("-%d-%d ", first, last);
        auto& own = rows[kind];
        own.erase(own.begin() + first, own.begin() + last + 1);
    }
    void OnFilesGone() override {}
    void OnFilesChanged(KIND kind, int first, int last) override {
        log += Format("~%d-%d ", first, last);
        for (int i = first; i <= last; ++i) rows[kind].at(i) = tree.FilesOf(kind).at(i);
    }
    /// What was told by a refresh; the own rows are the tree's after it.
    std::string Told() {
        tree.Refresh();
        for (const JobKind& kind : JobKinds()) EXPECT_EQ(rows[kind.id], tree.FilesOf(kind.id)) << kind.name;
        return std::exchange(log, {});
    }

private:
    struct {
        KIND kind;
        int first, last;
    } coming{};
    JobTree& tree;
    std::map<KIND, std::vector<TreeFile>> rows;
    std::string log;
};

class JobTreeTest : public ::testing::Test {
protected:
    JobTreeTest() : platform(drives.Root(), "C:\\Programs\\Host.exe") {
        for (const char* const name : {"A", "B", "C", "D"}) drives.Write(Boundary(name).path, kSquare);
        drives.Write("C:\\Job\\Cut.csv", "0, 0\r\n100, 200\r\nnothing\r\n300, 1\r\n");
        drives.Write("C:\\Job\\Empty.csv", "words\r\n");
        job = std::make_unique<Job>(platform);
        job->Open();
        tree = std::make_unique<JobTree>(job->Record());
        mirror = std::make_unique<Mirror>(*tree);
        EXPECT_EQ(mirror->Told(), "");
    }
    void Add(const std::vector<JobFile>& files) {
        std::vector<std::string> paths;
        for (const JobFile& file : files) paths.push_back(file.path);
        platform.AnswerFiles(paths);
        EXPECT_TRUE(AddFiles(*job, BOUNDARY));
        platform.Messages().Pump();
    }
    CBoundaryList& Boundaries() { return job->Record().boundaries; }
    TREE_MARK MarkOf(const char* name) {
        tree->Refresh();
        return tree->FilesOf(BOUNDARY).at(static_cast<std::size_t>(tree->RowOf(Boundary(name)))).mark;
    }
    std::string News() { return NewsText(*tree, tree->TakeNews()); }
    int Shown() { return job->PaneOf(BOUNDARY)->GetFileControls().choice->GetCurSel(); }

    ScratchDrives drives;
    HeadlessPlatform platform;
    std::unique_ptr<Job> job;
    std::unique_ptr<JobTree> tree;
    std::unique_ptr<Mirror> mirror;
};

TEST_F(JobTreeTest, TellsRowByRowWhatHasChanged) {
    Add({Boundary("A"), Boundary("B"), Boundary("C"), Boundary("D")});
    EXPECT_EQ(mirror->Told(), "+0-3 ");
    EXPECT_EQ(News(), "") << "nothing was found in them";
    EXPECT_EQ(mirror->Told(), "");
    Boundaries()[2].pen.thickness = 5;
    Boundaries()[0].Status = false;
    EXPECT_EQ(mirror->Told(), "~0-0 ~2-2 ");
    Boundaries().RemoveAt(1);
    EXPECT_EQ(mirror->Told(), "-1-1 ");
    // Two at once that stand apart: what lies between goes with them and comes back.
    Boundaries().RemoveAt(2);
    Boundaries().RemoveAt(0);
    EXPECT_EQ(mirror->Told(), "-0-2 +0-0 ");
    EXPECT_EQ(tree->RowOf(Boundary("C")), 0);
    EXPECT_EQ(tree->RowOf(Boundary("A")), -1);
}

TEST_F(JobTreeTest, ActsGoThePanesWay) {
    Add({Boundary("A"), Boundary("B"), Boundary("C")});
    EXPECT_EQ(Shown(), 2);
    EXPECT_TRUE(SetDisplayed(*job, Boundary("A"), false));
    EXPECT_EQ(Shown(), 0) << "the pane is on the file that it changes";
    EXPECT_FALSE(Boundaries()[0].Status);
    EXPECT_TRUE(Boundaries()[1].Status);
    EXPECT_TRUE(Boundaries()[2].Status);
    platform.Messages().Pump();
    EXPECT_THAT(drives.Read("C:\\Job\\A.INI"), HasSubstr("0")) << "the flag is kept beside the data";

    EXPECT_TRUE(RemoveFile(*job, Boundary("B")));
    EXPECT_EQ(Boundaries().GetCount(), 2);
    EXPECT_THAT(drives.Read("C:\\MySettings\\Host\\Boundary_List.FLS"), ::testing::Not(HasSubstr("B.csv")));
    EXPECT_TRUE(drives.Exists(Boundary("B").path)) << "the file itself stays";
    EXPECT_TRUE(ShowFile(*job, Boundary("C")));
    EXPECT_EQ(Shown(), 1);

    // What has gone by the time that the act arrives.
    for (const JobFile& gone : {Boundary("B"), JobFile{}, JobFile{KIND::PIPE_ROUTE, "C:\\Job\\A.csv"}}) {
        EXPECT_FALSE(ShowFile(*job, gone));
        EXPECT_FALSE(SetDisplayed(*job, gone, true));
        EXPECT_FALSE(RemoveFile(*job, gone));
        EXPECT_FALSE(ReadAgain(*job, gone));
    }
    EXPECT_EQ(Boundaries().GetCount(), 2);
    EXPECT_TRUE(CanSetDisplayed(*job, BOUNDARY));
    EXPECT_FALSE(CanSetDisplayed(*job, KIND::ROUTE)) << "without a file the pane has no such row";
}

TEST_F(JobTreeTest, MarksWhatIsWrongWithAFile) {
    Add({Boundary("A"), Boundary("Cut"), Boundary("Empty"), Boundary("Nowhere")});
    EXPECT_EQ(MarkOf("A"), TREE_MARK::NONE);
    EXPECT_EQ(MarkOf("Cut"), TREE_MARK::LINES_PASSED_OVER);
    EXPECT_EQ(MarkOf("Empty"), TREE_MARK::STUB);
    EXPECT_EQ(MarkOf("Nowhere"), TREE_MARK::MISSING);
    EXPECT_EQ(tree->FilesOf(BOUNDARY)[1].points, 2);
    EXPECT_EQ(tree->FilesOf(BOUNDARY)[2].points, 0) << "the point of a stub is none";
    EXPECT_THAT(tree->TipOf(BOUNDARY, 1), HasSubstr("2 of 4 lines passed over"));
    EXPECT_THAT(tree->TipOf(BOUNDARY, 3), HasSubstr("Can't be read: "));
    EXPECT_EQ(News(), "3 files: 3 lines passed over or taken in part, 1 can't be read");

    const std::vector<FileFindings> found = FindingsOf(job->Record());
    ASSERT_EQ(found.size(), 3u);
    ASSERT_EQ(found[0].findings.size(), 2u);
    EXPECT_EQ(FindingText(found[0].file, found[0].findings[1]), "C:\\Job\\Cut.csv, line 3: no easting");
}

TEST_F(JobTreeTest, NoticesWhatOtherProgramsWriteAndReadsItAgain) {
    Add({Boundary("A"), Boundary("B"), Boundary("C")});
    tree->Refresh();
    EXPECT_THAT(FilesChangedOnDisk(job->Record()), IsEmpty());
    drives.Write(Boundary("A").path, "1, 2\r\n3, 4\r\n5, 6\r\nx\r\n7, 8\r\n");
    std::filesystem::remove(drives.Files().Native(Boundary("C").path));
    const std::vector<ChangedFile> changed = FilesChangedOnDisk(job->Record());
    EXPECT_THAT(changed, ElementsAre(ChangedFile{Boundary("A"), DISK_CHANGE::RENEWED},
                                     ChangedFile{Boundary("C"), DISK_CHANGE::GONE}));
    tree->SetChanged(changed);
    EXPECT_EQ(MarkOf("A"), TREE_MARK::CHANGED);

    EXPECT_TRUE(ReadAgain(*job, Boundary("A")));
    EXPECT_FALSE(ReadAgain(*job, Boundary("C"))) << "there is nothing to read";
    EXPECT_EQ(Boundaries()[2].GetSize(), 3) << "what was read of it stays";
    tree->SetChanged(FilesChangedOnDisk(job->Record()));
    EXPECT_EQ(MarkOf("A"), TREE_MARK::LINES_PASSED_OVER);
    EXPECT_EQ(News(), "2 files: 1 line passed over or taken in part, 1 can't be read");
    auto& pane = dynamic_cast<CFeaturePane&>(*job->PaneOf(BOUNDARY));
    ShowFile(*job, Boundary("A"));
    EXPECT_EQ(pane.GetTable().GetItemCount(), 4);
}

// A notice stands until a save of that very file succeeds; what a rewrite loses is told once.
TEST_F(JobTreeTest, SavesThatFailAndRewritesThatLose) {
    Add({Boundary("A")});
    SaveWatch saves(job->Record());
    int told = 0;
    saves.onChanged = [&] { ++told; };
    const std::string options = "C:\\MyData\\Boundaries\\A.DRW";
    std::filesystem::remove(drives.Files().Native(options));
    drives.MakeFolder(options);
    Boundaries()[0].pen.thickness = 7;
    Boundaries()[0].SaveDrawingOptions();
    Boundaries()[0].SaveDrawingOptions();
    ASSERT_EQ(saves.Failures().size(), 1u);
    EXPECT_THAT(FailureText(saves.Failures()), ::testing::StartsWith("A.DRW can't be saved: "));
    Boundaries().Save();
    EXPECT_EQ(saves.Failures().size(), 1u) << "another file says nothing about this one";
    std::filesystem::remove(drives.Files().Native(options));
    Boundaries()[0].SaveDrawingOptions();
    EXPECT_THAT(saves.Failures(), IsEmpty());
    EXPECT_GE(told, 3);

    drives.Write("C:\\Job\\R.csv", "100, 200, North\r\n# remark\r\n300.12345, 400, South\r\n");
    CRouteList& routes = job->Record().routes;
    ASSERT_TRUE(routes.Add("C:\\Job\\R.csv"));
    EXPECT_TRUE(routes[0].SaveRoute());
    const std::vector<SaveWatch::Loss> losses = saves.TakeLosses();
    ASSERT_EQ(losses.size(), 1u);
    EXPECT_THAT(LossText(losses[0]), ::testing::StartsWith("R.csv was rewritten and lost lines without a point (1), "));
    EXPECT_THAT(LossText(losses[0]), ::testing::EndsWith("; it is kept as it was in R (original).csv"));
    EXPECT_THAT(saves.TakeLosses(), IsEmpty());
    CStdioFile undone(platform.Files());
    ASSERT_TRUE(undone.OpenForWriting("C:\\Job\\R.csv", FILE_MODE::BINARY));
    undone.WriteString(drives.Read("C:\\Job\\R (original).csv"));
    EXPECT_TRUE(undone.Commit());
    EXPECT_THAT(saves.TakeLosses(), IsEmpty()) << "the file is as it was";
}

}  // namespace
}  // namespace quillon
