#include <gmock/gmock.h>

#include <numbers>

#include "host/find.h"
#include "host/identify.h"
#include "host/measure.h"
#include "platform/headless.h"
#include "platform/text.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// An area with two wrecks at one place of it, a pipeline along its middle that is the pipe route too, and a route.
class ChartActsTest : public ::testing::Test {
protected:
    ChartActsTest() : platform(drives.Root(), "C:\\Programs\\Host.exe") {
        drives.Write("C:\\Job\\Field.csv", "1,1\r\n1000,1\r\n1000,1000\r\n1,1000\r\n1,1\r\n");
        drives.Write("C:\\Job\\Wrecks.csv", "300,500,20,Anna\r\n301,500,20,\r\n900,900,20,Banner\r\n");
        drives.Write("C:\\Job\\Export.csv", "100,500\r\n600,500\r\n600,900\r\n");
        drives.Write("C:\\Job\\Transit.csv", "100,100\r\n100,400\r\n");
        const auto list = [this](const char* name, const char* files) {
            drives.Write(Format("C:\\MySettings\\Host\\%s.FLS", name), Format("[]\r\n%s\r\n", files));
        };
        list("Boundary_List", "C:\\Job\\Field.csv");
        list("GRID_Waypoints", "C:\\Job\\Wrecks.csv");
        list("Pipelines", "C:\\Job\\Export.csv");
        list("Route_List", "C:\\Job\\Transit.csv");
        drives.Write("C:\\MySettings\\Host\\Active_Pipeline.INI", "Path = C:\\Job\\Export.csv\r\n");
        job = std::make_unique<Job>(platform);
        job->Open();
        job->Record().boundaries[0].pen.fill = kFillSolid;
        job->Record().pipelines[0].startKp = 12.0;
        job->Record().pipelines[0].ComputeKps();
        scenes = std::make_unique<SceneBuilder>(job->Record());
        scene = scenes->Build();
        view.SetSize(400, 400);
        view.SetCentre({500, 500});
        view.SetScale(2.5);
    }

    std::vector<Identified> At(tagXY place) { return Identify(*scenes, HitsOf(scene, view, view.ToPixel(place), 8.0)); }
    std::vector<std::string> Names(tagXY place) {
        std::vector<std::string> names;
        for (const Identified& one : At(place)) names.push_back(one.text);
        return names;
    }
    std::vector<std::string> Find(std::string_view text, std::size_t step = 1) {
        Finder finder(job->Record());
        finder.Ask(text);
        while (finder.Look(step)) {
        }
        std::vector<std::string> names;
        for (const FoundPlace& one : finder.Found()) {
            names.push_back(one.text + Format(" @ %.0lf %.0lf", one.at.x, one.at.y));
        }
        return names;
    }

    ScratchDrives drives;
    HeadlessPlatform platform;
    std::unique_ptr<Job> job;
    std::unique_ptr<SceneBuilder> scenes;
    ChartScene scene;
    ChartView view;
};

TEST_F(ChartActsTest, NamesAllThatLiesThere) {
    // The wrecks lie a pixel from each other, and on the line at KP 12.2.
    EXPECT_THAT(Names({300.2, 500}), ElementsAre("Waypoint Wrecks: Anna", "Waypoint Wrecks: Wpt 2",
                                                 "Pipeline Export: KP 12.200", "Boundary Field"));
    EXPECT_THAT(Names({600, 500}), ElementsAre("Pipeline Export: point 2, KP 12.500", "Boundary Field"));
    EXPECT_THAT(Names({100, 250}), ElementsAre("Route Transit: KP 0.150", "Boundary Field"));
    EXPECT_THAT(Names({1000, 500}), ElementsAre("Boundary Field")) << "its edge and its area are one thing";
    EXPECT_THAT(Names({1200, 500}), IsEmpty());
}

TEST_F(ChartActsTest, ClicksAtOnePlaceGoRoundAndOthersBeginAnew) {
    ClickRound round;
    const auto click = [&](tagXY place, double aside = 0.0) {
        PixelPoint at = view.ToPixel(place);
        at.x += aside;
        const auto chosen = round.Next(at, view, At(place));
        return chosen ? chosen->text : "nothing";
    };
    EXPECT_EQ(click({600, 500}), "Pipeline Export: point 2, KP 12.500");
    EXPECT_EQ(click({600, 500}, 2.0), "Boundary Field");
    EXPECT_EQ(click({600, 500}), "Pipeline Export: point 2, KP 12.500") << "round and round";
    EXPECT_EQ(click({600, 500}, 6.0), "Pipeline Export: point 2, KP 12.500") << "another place";
    EXPECT_EQ(click({600, 500}, 6.0), "Boundary Field");
    EXPECT_EQ(click({1200, 500}), "nothing");
    EXPECT_EQ(click({300.2, 500}), "Waypoint Wrecks: Anna");
}

/// A file is chosen by its area: pane and edit cursor come to it, though no point was hit. The pipe route is in no
/// list, and yet its rows can be chosen.
TEST_F(ChartActsTest, WhatWasClickedIsInItsPane) {
    drives.Write("C:\\Job\\Second.csv", "0,0\r\n10,0\r\n10,10\r\n");
    job->Record().boundaries.Add("C:\\Job\\Second.csv");
    job->BringUpToDate(*job->PaneOf(KIND::BOUNDARY));
    EXPECT_TRUE(job->SelectFile(KIND::BOUNDARY, 1));
    EXPECT_EQ(dynamic_cast<CFeaturePane&>(*job->PaneOf(KIND::BOUNDARY)).GetCombo().GetCurSel(), 1);
    EXPECT_EQ(job->Record().boundaries.editState.editFileIndex, 1);
    EXPECT_FALSE(job->SelectFile(KIND::BOUNDARY, 2));
    EXPECT_FALSE(job->SelectFile(KIND::NONE, 0));
    EXPECT_TRUE(job->SelectPoint({KIND::PIPE_ROUTE, 0, 2}));
    EXPECT_EQ(job->ShownPoint(), (tagXY{600, 900}));
}

TEST_F(ChartActsTest, PlacesBesideTheChosenLine) {
    const JobPoint line = ChosenLine(job->Record());
    EXPECT_EQ(line, (JobPoint{KIND::PIPELINE, 0, -1}));
    const PathPtr path = scenes->PathOf(scene, line.kind, line.file);
    ASSERT_TRUE(path);
    const struct {
        tagXY place;
        const char* text;
    } kRows[] = {
        {{200, 510}, "KP 12.100, 10.0 m to port"},       // north of a leg to the east
        {{200, 490}, "KP 12.100, 10.0 m to starboard"},  // south of it
        {{610, 700}, "KP 12.700, 10.0 m to starboard"},  // east of a leg to the north
        {{100, 500}, "KP 12.000, on the line"},
        {{600, 1000}, "KP 12.900, 100.0 m to starboard"},  // beyond the end
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(LinePlaceText(*PlaceBesideLine(job->Record(), line, *path, row.place)), row.text);
    }
    EXPECT_EQ(MeasureText({0, 0}, {-300, 400}), "500.00m  323.1\xB0 grid");
    job->Record().pipelines.RemoveAt(0);
    EXPECT_EQ(ChosenLine(job->Record()).kind, KIND::PIPE_ROUTE);
}

TEST_F(ChartActsTest, FindsNamesKpsAndPositions) {
    for (const std::size_t step : {1u, 1000u}) {
        EXPECT_THAT(Find("ann", step),
                    ElementsAre("Waypoint Wrecks: Anna @ 300 500", "Waypoint Wrecks: Banner @ 900 900"));
        EXPECT_THAT(Find(" EXPORT ", step), ElementsAre("Pipeline Export @ 100 500", "Pipe Route Export @ 100 500"));
        EXPECT_THAT(Find("kp 12.6", step), ElementsAre("Pipeline Export: KP 12.600 @ 600 600"));
        EXPECT_THAT(Find("KP12.5", step), ElementsAre("Pipeline Export: KP 12.500 @ 600 500")) << "at a point, once";
        EXPECT_THAT(Find("kp 0", step), ElementsAre("Route Transit: KP 0.000 @ 100 100"));
        EXPECT_THAT(Find("kp 99", step), IsEmpty());
        EXPECT_THAT(Find("", step), IsEmpty());
    }
    for (const char* text : {"503150.5 5843620", "503150.5, 5843620", "503150.5E 5843620N", "e 503 150.5  n 5 843 620",
                             "E 503\xABU+202F\xBB"
                             "150.500   N 5\xABU+202F\xBB"
                             "843\xABU+202F\xBB"
                             "620.000"}) {
        EXPECT_THAT(Find(text), ElementsAre("E 503150.500  N 5843620.000 @ 503150 5843620")) << text;
    }
    EXPECT_THAT(Find("1e999 5"), IsEmpty());
    EXPECT_THAT(Find("Wreck E"), IsEmpty());
}

/// Whoever removes a file while a search is under way gets no place out of a file that is gone.
TEST_F(ChartActsTest, ASearchSurvivesItsJob) {
    std::string lines;
    for (int i = 0; i < 3000; ++i) lines += Format("%d,%d,0,Buoy %d\r\n", i + 1, i + 1, i);
    drives.Write("C:\\Job\\Buoys.csv", lines);
    job->Record().waypoints.Add("C:\\Job\\Buoys.csv");
    Finder finder(job->Record());
    finder.Ask("buoy");
    EXPECT_TRUE(finder.Look(10));
    EXPECT_FALSE(finder.IsOutOfDate());
    job->Record().waypoints.RemoveAt(1);
    EXPECT_TRUE(finder.IsOutOfDate());
    while (finder.Look(10)) {
    }
    job->Record().waypoints.Add("C:\\Job\\Buoys.csv");
    finder.Ask("buoy");
    while (finder.Look(100)) {
    }
    EXPECT_EQ(finder.Found().size(), Finder::kMostFound);
    EXPECT_TRUE(finder.IsCut());
}

}  // namespace
}  // namespace quillon
