#include "job/job_record.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "support/scratch_drives.h"

namespace quillon {
namespace {

struct CommitCounter : CommitObserver {
    void OnCommitted(const FileCommit& commit) override { paths.push_back(commit.path); }
    std::vector<std::string> paths;
};

class JobRecordTest : public testing::Test {
protected:
    JobRecordTest() {
        drives.MakeFolder("C:\\MyData");
        drives.MakeFolder("C:\\MySettings");
        for (const char* stem : {"A", "B"}) {
            drives.Write(std::string("C:\\Job\\") + stem + ".csv", "1,2,3,4\n5,6,7,8\n9,9,9,9\n");
        }
        drives.AddDrive('d');
        drives.Write("D:\\Job\\Away.csv", "1,2,3,4\n5,6,7,8\n");
    }
    std::vector<CFileListBase*> Lists(JobRecord& job) {
        return {&job.boundaries, &job.waypoints, &job.pipelines, &job.routes, &job.sailLines};
    }

    ScratchDrives drives;
};

// A start with a drive that isn't there, then one with it: every list is as it was, and the files on the disk too.
TEST_F(JobRecordTest, MissingFilesKeepTheirPlace) {
    const std::vector<std::string> paths = {"C:\\Job\\A.csv", "D:\\Job\\Away.csv", "C:\\Job\\B.csv"};
    JobRecord first(drives);
    for (CFileListBase* list : Lists(first)) {
        for (const std::string& path : paths) EXPECT_TRUE(list->Add(path));
        list->SetEditCursor(2, 1);
        list->Save();
    }
    first.pipeRoute.Load("D:\\Job\\Away.csv");
    first.pipeRoute.WriteActive();

    const auto away = drives.Root() / "d";
    const auto hidden = drives.Root() / "elsewhere";
    std::filesystem::rename(away, hidden);
    CommitCounter commits;
    drives.Files().SetCommitObserver(&commits);
    for (const bool there : {false, true}) {
        if (there) std::filesystem::rename(hidden, away);
        JobRecord job(drives);
        job.Load();
        for (CFileListBase* list : Lists(job)) {
            SCOPED_TRACE(list->GetSettingsName());
            ASSERT_EQ(list->GetCount(), 3);
            for (int i = 0; i < 3; ++i) EXPECT_EQ(list->GetPath(i), paths[static_cast<std::size_t>(i)]);
            EXPECT_GE(list->GetPointCount(2), 2);
            const bool kept = list != &job.waypoints && list != &job.pipelines;
            EXPECT_EQ(list->editState.editFileIndex, kept ? 2 : -1);
            EXPECT_EQ(list->editState.editPointIndex, kept ? 1 : -1);
        }
        EXPECT_EQ(job.pipelines.GetPointCount(1), there ? 2 : 0);
        EXPECT_EQ(job.pipeRoute.GetPath(), "D:\\Job\\Away.csv");
        EXPECT_EQ(job.pipeRoute.GetSize(), there ? 2 : 0);
    }
    drives.Files().SetCommitObserver(nullptr);
    EXPECT_EQ(commits.paths, std::vector<std::string>());
}

/// Every kind notices what another program does to its file, and reads it again in its place.
TEST_F(JobRecordTest, FollowsTheFilesOnTheDisk) {
    using Changes = std::vector<CFileListBase::Changed>;
    const std::string path = "D:\\Job\\Away.csv";
    const std::string fresh = "1,2,3,4\n5,6,7,8\n9,10,11,12\n";
    JobRecord first(drives);
    for (CFileListBase* list : Lists(first)) list->Add(path);
    std::filesystem::remove(drives.Files().Native(path));
    JobRecord job(drives);
    job.Load();
    for (CFileListBase* list : Lists(job)) {
        SCOPED_TRACE(list->GetSettingsName());
        ASSERT_EQ(list->GetCount(), 1);
        EXPECT_TRUE(list->IsStub(0));
        EXPECT_EQ(list->ChangedOnDisk(), Changes());
        EXPECT_FALSE(list->ReadAgain(0));
        drives.Write(path, "1,2,3,4\n");
        EXPECT_EQ(list->ChangedOnDisk(), (Changes{{0, DISK_CHANGE::APPEARED}}));
        EXPECT_TRUE(list->ReadAgain(0));
        EXPECT_FALSE(list->IsStub(0));

        drives.Write(path, fresh);
        EXPECT_EQ(list->ChangedOnDisk(), (Changes{{0, DISK_CHANGE::RENEWED}}));
        EXPECT_TRUE(list->ReadAgain(0));
        EXPECT_EQ(list->GetSource(0)->GetReport().taken, 3u);
        EXPECT_EQ(list->GetPointCount(0), 3);
        EXPECT_EQ(list->ChangedOnDisk(), Changes());
        list->SetEditCursor(0, 2);
        drives.Write(path, "words\n");
        EXPECT_TRUE(list->ReadAgain(0));
        EXPECT_TRUE(list->IsStub(0));
        EXPECT_LE(list->editState.editPointIndex, -1);
        std::filesystem::remove(drives.Files().Native(path));
        EXPECT_EQ(list->ChangedOnDisk(), (Changes{{0, DISK_CHANGE::GONE}}));
        EXPECT_FALSE(list->ReadAgain(0));
    }
    // What was chosen for display stays, saved or not.
    drives.Write(path, fresh);
    for (CFileListBase* list : Lists(job)) list->ReadAgain(0);
    job.boundaries[0].pen.thickness = 7;
    job.waypoints[0].ringCount = 8;
    job.pipelines[0].startKp = 9;
    job.routes[0].portWidth = 50;
    job.sailLines[0].symbol = 6;
    drives.Write(path, "10,2,3,4\n10,20,7,8\n");
    for (CFileListBase* list : Lists(job)) EXPECT_TRUE(list->ReadAgain(0));
    EXPECT_EQ(job.boundaries[0].pen.thickness, 7);
    EXPECT_EQ(job.waypoints[0].ringCount, 8);
    EXPECT_EQ(job.pipelines[0][0].kp, 9);
    EXPECT_EQ(job.routes[0][1].portCorridorStart, (tagXY{-40, 20}));
    EXPECT_EQ(job.sailLines[0].symbol, 6);
}

// Two objects over one settings file, each stored by itself: no save takes back what the other has stored.
TEST_F(JobRecordTest, ASaveKeepsWhatAnotherOwnerOfItsFileStored) {
    drives.Write("C:\\Other\\A.csv", "1,2,3,4\n5,6,7,8\n");
    CPipeline line(drives), active(drives);
    CGridWaypoint wrecks(drives), others(drives);
    CRoute route(drives);
    CSailLine sail(drives);
    CRoute twin(drives);
    line.Load("C:\\Job\\A.csv");
    active.Load("C:\\Job\\A.csv");
    wrecks.Read("C:\\Job\\A.csv");
    others.Read("C:\\Other\\a.CSV");
    route.Read("C:\\Job\\A.csv");
    twin.Read("C:\\Other\\A.csv");
    sail.Read("C:\\Job\\A.csv");

    line.clearance = 5.0;
    line.WriteSettings();
    active.startKp = 7.0004;
    active.WriteSettings();
    EXPECT_EQ(active.clearance, 5.0);
    line.linePen.thickness = 3;
    line.WriteSettings();
    EXPECT_EQ(line[1].kp - line[1 - 1].kp, active[1].kp - active[0].kp);
    EXPECT_EQ(line[0].kp, 7.0) << "what hangs on a value follows with it";

    wrecks.tolerance = 0.0;
    wrecks.SaveSettings();
    others.clearance = 1.0;
    others.SaveSettings();
    EXPECT_EQ(others.tolerance, 0.0);
    wrecks.dataOrder = 4;
    wrecks.SaveSettings();
    others.SaveSettings();
    EXPECT_EQ(others[0].height, 3.0) << "read by the new order";

    route.pen.colour = RGB(1, 2, 3);
    route.SaveDrawingOptions();
    sail.symbol = 7;
    sail.SaveDrawingOptions();
    EXPECT_EQ(sail.pen.colour, RGB(1, 2, 3));
    route.portWidth = 20.0;
    route.SaveCorridorOptions();
    twin.starboardWidth = 30.0;
    twin.SaveCorridorOptions();
    EXPECT_EQ(twin.portWidth, 20.0);
    route.Highlight = true;
    route.SaveCommon();
    sail.Status = false;
    sail.SaveCommon();

    JobRecord job(drives);
    job.pipelines.Add("C:\\Job\\A.csv");
    job.waypoints.Add("C:\\Job\\A.csv");
    job.routes.Add("C:\\Job\\A.csv");
    EXPECT_EQ(job.pipelines[0].clearance, 5.0);
    EXPECT_EQ(job.pipelines[0].startKp, 7.0);
    EXPECT_EQ(job.pipelines[0].linePen.thickness, 3);
    EXPECT_EQ(job.waypoints[0].tolerance, 0.0);
    EXPECT_EQ(job.waypoints[0].clearance, 1.0);
    EXPECT_EQ(job.routes[0].pen.colour, RGB(1, 2, 3));
    EXPECT_EQ(job.routes[0].symbol, 7);
    EXPECT_EQ(job.routes[0].portWidth, 20.0);
    EXPECT_EQ(job.routes[0].starboardWidth, 30.0);
    EXPECT_TRUE(job.routes[0].Highlight);
    EXPECT_FALSE(job.routes[0].Status);
}

// Within a job they follow each other at once.
TEST_F(JobRecordTest, FeaturesOfOneNameFollowEachOther) {
    drives.Write("C:\\Other\\A.csv", "1,2,3,4\n5,6,7,8\n");
    JobRecord job(drives);
    for (CFileListBase* list : Lists(job)) {
        list->Add("C:\\Job\\A.csv");
        list->Add("C:\\Other\\A.csv");
        list->Add("C:\\Job\\B.csv");
    }
    job.pipeRoute.Load("C:\\Job\\A.csv");
    job.pipeRoute.startKp = 12.0;
    job.pipeRoute.WriteSettings();
    EXPECT_EQ(job.pipelines[0][0].kp, 12.0);
    EXPECT_EQ(job.pipelines[1][0].kp, 12.0);
    EXPECT_EQ(job.pipelines[2][0].kp, 0.0);
    job.pipelines[0].dataOrder = 1;
    job.pipelines[0].WriteSettings();
    EXPECT_EQ(job.pipeRoute[0].kp, 1.0);
    job.waypoints[1].ringColour = 5;
    job.waypoints[1].SaveSettings();
    EXPECT_EQ(job.waypoints[0].ringColour, 5u);
    job.sailLines[0].pen.thickness = 9;
    job.sailLines[0].SaveDrawingOptions();
    EXPECT_EQ(job.routes[1].pen.thickness, 9);
    EXPECT_EQ(job.boundaries[0].pen.thickness, 1) << "boundaries keep theirs in a folder of their own";
    job.boundaries[0].Status = false;
    job.boundaries[0].SaveCommon();
    EXPECT_FALSE(job.routes[0].Status);
    EXPECT_TRUE(job.routes[1].Status) << "flags lie beside the data";
    job.routes[0].portWidth = 50.0;
    job.routes[0].SaveCorridorOptions();
    EXPECT_NE(job.routes[1][0].portCorridorStart, job.routes[1][0].position);
    job.routes[0].dataOrder = 2;
    job.routes[0].SaveOrder();
    EXPECT_EQ(job.routes[1][0].name, "3");
    EXPECT_EQ(job.routes[2].pen.thickness, 1);
}

TEST_F(JobRecordTest, ClearsWhatKilledWritersLeft) {
    const std::vector<std::string> leftovers = {"C:\\MySettings\\Host\\Pipelines.FLS.new~",
                                                "C:\\MyData\\Routes\\A.DRW.new~", "C:\\Job\\A.INI.new~"};
    JobRecord job(drives);
    job.routes.Add("C:\\Job\\A.csv");
    for (const std::string& path : leftovers) drives.Write(path, "half");
    EXPECT_EQ(job.ClearLeftovers(), leftovers.size());
    for (const std::string& path : leftovers) EXPECT_FALSE(drives.Exists(path)) << path;
    EXPECT_TRUE(drives.Exists("C:\\Job\\A.csv"));
}

TEST_F(JobRecordTest, StandsUpToDamagedListFiles) {
    for (const char* list :
         {"", "[Boundary]", "\n\n", "[Boundary]\r\n\r\n  \r\nC:\\Job\\A.csv\r\nc:\\job\\a.CSV\r\n"}) {
        drives.Write("C:\\MySettings\\Host\\Boundary_List.FLS", list);
        for (const char* indexes : {"", "x", "a = 9\r\nb = 9\r\n", "a = -7\r\nb = -7\r\n", "a = 0\r\nb = 99999\r\n"}) {
            drives.Write("C:\\MySettings\\Host\\Boundary_List.INI", indexes);
            JobRecord job(drives);
            job.Load();
            const FeatureEditState& state = job.boundaries.editState;
            EXPECT_LE(job.boundaries.GetCount(), 1);
            EXPECT_TRUE(state.editFileIndex == -1 || job.boundaries.IsValidIndex(state.editFileIndex));
            EXPECT_EQ(state.editPointIndex, -1);
        }
    }
}

}  // namespace
}  // namespace quillon
