#include "job/outline_list.h"

#include "support/job_fixture.h"

namespace quillon {
namespace {

class OutlineListTest : public JobFixture {
protected:
    OutlineListTest() {
        drives.MakeFolder("C:\\MyData\\Vessel");
        drives.Write("C:\\Jobs\\Wells.csv", "500000,6000000,0,W1\r\n500100,6000100,0,W2\r\n500200,6000200,0,W3\r\n");
        drives.Write("C:\\Jobs\\Rigs.csv", "510000,6010000,0,R1\r\n");
        drives.Write("C:\\Jobs\\Lines.csv", "1000,2000,1300,2400\r\n1000,2000,1000,3000\r\n");
        drives.Write("C:\\Shapes\\hull.txt", "M -5 -20\r\nL 6 -20\r\nL 0 30\r\nL -5 -20\r\n");
        for (const char* path : {"C:\\Jobs\\Rigs.csv", "C:\\Jobs\\Wells.csv"}) EXPECT_TRUE(job->waypoints.Add(path));
        EXPECT_TRUE(job->sailLines.Add("C:\\Jobs\\Lines.csv"));
    }
    CBarge& Vessel() { return *job->vessels.GetCurrent(); }

    std::string fault;
};

TEST_F(OutlineListTest, VesselsComeGoAndAreThereAtTheNextStart) {
    CVesselList& vessels = job->vessels;
    EXPECT_EQ(vessels.AddNew("Survey", "C:\\Shapes\\hull.txt", fault), 0);
    EXPECT_EQ(Vessel().points.size(), 4u);
    EXPECT_EQ(Vessel().lengthA, 30);
    EXPECT_EQ(Vessel().widthB, 6);
    EXPECT_EQ(vessels.AddNew("Tug", "", fault), 1);
    vessels.SetPlace(0, tagXY{499000, 5999000});
    for (const char* const taken : {"survey", "", " Tug", "a:b"})
        EXPECT_EQ(vessels.AddNew(taken, "", fault), -1) << taken;
    EXPECT_EQ(vessels.AddNew("Third", "C:\\Shapes\\gone.txt", fault), -1);
    EXPECT_EQ(fault, "C:\\Shapes\\gone.txt can't be read");
    EXPECT_FALSE(vessels.SetOutlineFile(0, "C:\\Shapes\\gone.dxf", fault));
    EXPECT_EQ(Vessel().name, "Tug");
    EXPECT_EQ(vessels[0].points.size(), 4u) << "the old outline stays";
    Restart();
    ASSERT_EQ(job->vessels.GetCount(), 2);
    EXPECT_EQ(Vessel().name, "Tug");
    EXPECT_FALSE(Vessel().waypointValid) << "no target is chosen until one is";
    EXPECT_EQ(job->vessels[0].points.size(), 4u);
    EXPECT_EQ(job->vessels.PlaceOf(0), (tagXY{499000, 5999000}));
    job->vessels.RemoveAt(1);
    EXPECT_EQ(Vessel().name, "Survey");
    job->vessels.RemoveAt(0);
    EXPECT_EQ(job->vessels.GetCurrent(), nullptr);
    EXPECT_EQ(job->vessels.AddNew("Tug", "", fault), -1) << "its file is still there";
    EXPECT_EQ(job->vessels.Open("C:\\MyData\\Vessel\\tug.VSL", fault), 0) << fault;
}

// A file from elsewhere is copied into the folder, and never over another vessel's.
TEST_F(OutlineListTest, OpensFromElsewhere) {
    EXPECT_EQ(job->vessels.AddNew("Survey", "", fault), 0);
    const std::string own = drives.Read("C:\\MyData\\Vessel\\Survey.VSL");
    drives.Write("D:\\Stick\\Survey.VSL", own);
    drives.Write("D:\\Stick\\Other.VSL", own);
    EXPECT_EQ(job->vessels.Open("D:\\Stick\\Survey.VSL", fault), -1);
    EXPECT_EQ(job->vessels.Open("D:\\Stick\\Other.VSL", fault), 1);
    EXPECT_EQ(drives.Read("C:\\MyData\\Vessel\\Other.VSL"), own);
    EXPECT_EQ(job->vessels.Open("D:\\Stick\\None.VSL", fault), -1);
    EXPECT_EQ(job->vessels.GetCount(), 2);
}

// Anchors are run by it: the target is the same waypoint whatever becomes of lists and files, or there is none.
TEST_F(OutlineListTest, ATargetIsNeverSilentlyAnother) {
    job->vessels.AddNew("Survey", "", fault);
    Vessel().SetWaypoint(1, 1);
    Vessel().SetSailLine(0, 1);
    EXPECT_TRUE(Vessel().Save());
    job->vessels.FollowSources();
    EXPECT_FALSE(job->vessels.FollowSources());

    job->waypoints.RemoveAt(0);
    EXPECT_TRUE(job->vessels.FollowSources());
    EXPECT_EQ(Vessel().waypointFileIndex, 0);
    EXPECT_EQ(Vessel().waypoint.name, "W2");
    // A point ahead of it goes, and it moves itself.
    drives.Write("C:\\Jobs\\Wells.csv", "500150,6000150,0,W2\r\n500200,6000200,0,W3\r\n");
    EXPECT_TRUE(job->waypoints.ReadAgain(0));
    EXPECT_TRUE(job->vessels.FollowSources());
    EXPECT_EQ(Vessel().waypointIndex, 0);
    EXPECT_EQ(Vessel().waypoint.easting, 500150);
    EXPECT_EQ(Vessel().trackedPosition, (tagXY{500150, 6000150}));
    job->waypoints.Save();
    Restart();
    EXPECT_EQ(Vessel().waypoint.name, "W2");
    drives.Write("C:\\Jobs\\Wells.csv", "500200,6000200,0,W3\r\n");
    EXPECT_TRUE(job->waypoints.ReadAgain(0));
    EXPECT_TRUE(job->vessels.FollowSources());
    EXPECT_FALSE(Vessel().waypointValid);
    drives.Write("C:\\Jobs\\Lines.csv", "1000,2000,1000,3000\r\n");
    EXPECT_TRUE(job->sailLines.ReadAgain(0));
    EXPECT_TRUE(job->vessels.FollowSources());
    EXPECT_EQ(Vessel().sailLineIndex, 0);
    EXPECT_EQ(Vessel().sailLine.eol.y, 3000);
    job->sailLines.RemoveAt(0);
    job->vessels.FollowSources();
    EXPECT_FALSE(Vessel().sailLineValid);
    Restart();
    EXPECT_FALSE(Vessel().waypointValid || Vessel().sailLineValid) << "also at the next start";
}

// Files put back behind its back: a vessel is what its file says, and one that came is gone while nobody may hold it
// yet.
TEST_F(OutlineListTest, FollowsFilesThatWerePutBack) {
    constexpr std::string_view kList = "C:\\MySettings\\Host\\Vessel_List.INI",
                               kPlot = "C:\\MySettings\\Host\\Target_Plot.INI";
    job->vessels.AddNew("Survey", "", fault);
    COutline& survey = Vessel();
    const std::string before = drives.Read(survey.SettingsPath()), listBefore = drives.Read(kList);
    survey.trueAlignment = 45;
    survey.SetWaypoint(0, 0);
    EXPECT_TRUE(survey.Save());
    job->vessels.AddNew("Tug", "", fault);
    const COutline& tug = Vessel();
    drives.Write(survey.SettingsPath(), before);
    drives.Write(kList, listBefore);
    drives.Write(kPlot, "Latitude = 0.5\r\n");
    const std::vector<std::string> other = {"C:\\MySettings\\Host\\Other.INI"};
    EXPECT_FALSE(job->ReadTargetsRestored(other));
    const std::vector<std::string> paths = {survey.SettingsPath(), std::string(kList), std::string(kPlot)};
    EXPECT_TRUE(job->ReadTargetsRestored(paths));
    ASSERT_EQ(job->vessels.GetCount(), 1);
    EXPECT_EQ(&job->vessels[0], &survey) << "who shows it goes on showing it";
    EXPECT_EQ(survey.trueAlignment, 0);
    EXPECT_FALSE(survey.waypointValid);
    EXPECT_EQ(tug.name, "Tug");
    job->vessels.DropRetired();
    EXPECT_EQ(job->targetPlot.centre.y, 0.5);
}

TEST_F(OutlineListTest, AnotherGridTurnsTheTarget) {
    job->vessels.AddNew("Survey", "", fault);
    Vessel().SetWaypoint(0, 0);
    job->vessels.FollowSources();
    GeodesyChoice utm;
    utm.zone = 31;
    ASSERT_EQ(job->geodesy.Choose(utm), GEODESY_FAULT::NONE);
    EXPECT_TRUE(job->vessels.FollowSources());
    EXPECT_NEAR(Vessel().gridAlignment + Vessel().convergence, 360, 1e-9);
    EXPECT_GT(Vessel().convergence, 0.05);
    EXPECT_NEAR(Vessel().target.stopZone, Vessel().gridAlignment + 5 - 360, 1e-9);
}

}  // namespace
}  // namespace quillon
