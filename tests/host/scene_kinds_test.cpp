// What the chart is given of each kind of feature, over one small job.

#include <gmock/gmock.h>

#include <cmath>
#include <functional>
#include <numbers>

#include "host/scene_builder.h"
#include "platform/headless.h"
#include "support/scene_items.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr double kDegree = std::numbers::pi / 180.0;

/// Two wells and a wreck with a radius; a pipeline that runs east and comes back north-west; a route round a corner; a
/// sail line each way.
class SceneKindsTest : public ::testing::Test {
protected:
    SceneKindsTest() : platform(drives.Root(), "C:\\Programs\\Host.exe") {
        drives.Write("C:\\Job\\Wells.csv", "W-1, 100, 200, 0\r\nW-2, 300, 200, 40\r\n");
        Settings("Wells_GRID_WAYPOINT.INI",
                 "Data Order = 8\r\nUse = 1\r\nClearance = 10\r\nTolerance = 25\r\nSymbol = 18\r\n"
                 "Colour = 255\r\nSize = 3\r\nLabel Mode = 1\r\nLabel Position = 4\r\n"
                 "Draw Rings = 1\r\nNo Rings = 2\r\nRing Size Metres = 50\r\n"
                 "Ring Size NM = 1\r\nRing Colour = 65280\r\nCatenary Mode = 0\r\n");
        Settings("GRID_Waypoints.FLS", "[]\r\nC:\\Job\\Wells.csv\r\n");
        drives.Write("C:\\Job\\Pipe.csv", "0, 1\r\n2500, 1\r\n500, 2001\r\n");
        Settings("Pipe_PIPELINE.INI",
                 "Data Order = 0\r\nUse = 1\r\nDiameter = 24\r\nDisplay Corridor = 1\r\n"
                 "Port Corridor = 100\r\nStdb Corridor = 50\r\nCorridor Pen = 128, 1, 1, 3\r\n"
                 "Clearance = 1\r\nTolerance = 1\r\nPipeline Pen = 16711680, 0, 3, 0\r\n"
                 "Start KP = 0\r\nIncreasing KPs = 1\r\nLabel KPs = 1\r\nKP Interval = 1\r\n");
        Settings("Pipelines.FLS", "[]\r\nC:\\Job\\Pipe.csv\r\n");
        Settings("Active_Pipeline.INI", "Path = C:\\Job\\Pipe.csv\r\n");
        drives.Write("C:\\Job\\Run.csv", "A, 10, 10\r\nB, 10, 310\r\nC, 410, 310\r\n");
        Settings("Run_DATA_ORDER.INI", "Data Order = 1\r\n");
        Settings("Route_List.FLS", "[Route]\r\nC:\\Job\\Run.csv\r\n");
        drives.Write("C:\\Job\\Block.csv", "10, 10, 10, 500\r\n60, 500, 60, 10\r\n");
        Settings("Sail_Line_List.FLS", "[SailLine]\r\nC:\\Job\\Block.csv\r\n");
        job = std::make_unique<Job>(platform);
        job->Open();
        scenes = std::make_unique<SceneBuilder>(job->Record());
    }

    void Settings(const std::string& name, std::string_view lines) {
        drives.Write("C:\\MySettings\\Host\\" + name, lines);
    }
    SceneItems Layer(std::uint64_t id) {
        scene = scenes->Build();
        for (const ChartLayer& layer : scene.layers) {
            if (layer.id == id) return SceneItems(layer);
        }
        throw std::logic_error("no such layer");
    }
    SceneItems Layer(KIND kind) { return Layer(static_cast<std::uint64_t>(kind)); }
    JobPoint Hit(KIND kind, std::size_t path, std::uint32_t point, tagXY at = {}, bool isVertex = true) {
        return scenes->PointOf({.layer = static_cast<std::uint64_t>(kind),
                                .item = Layer(kind).pathPlaces.at(path),
                                .kind = isVertex ? HIT_KIND::VERTEX : HIT_KIND::SEGMENT,
                                .hit = {.point = point, .isVertex = isVertex, .at = at, .next = point}});
    }
    /// The cursor of a list and what its pane shows, after a click.
    void ExpectChosen(KIND kind, CFileListBase& list, const JobPoint& point) {
        ASSERT_TRUE(job->SelectPoint(point));
        EXPECT_EQ(list.editState.editFileIndex, point.file);
        EXPECT_EQ(list.editState.editPointIndex, point.point);
        auto& pane = dynamic_cast<CFeaturePane&>(*job->PaneOf(kind));
        EXPECT_EQ(pane.GetCombo().GetCurSel(), point.file);
        EXPECT_EQ(pane.GetTable().GetSelection(), point.point);
    }
    static std::vector<std::string> Labels(const ChartPath& path) {
        std::vector<std::string> labels;
        for (std::size_t i = 0; i < path.path->Points().size(); ++i) labels.push_back(path.marks.label(i));
        return labels;
    }
    static std::vector<double> Radii(const SceneItems& layer) {
        std::vector<double> radii;
        for (const SceneItems::Circle& circle : layer.circles) radii.push_back(circle.radius);
        return radii;
    }

    ScratchDrives drives;
    HeadlessPlatform platform;
    std::unique_ptr<Job> job;
    std::unique_ptr<SceneBuilder> scenes;
    ChartScene scene;
};

// ---- Route position lists ----

/// A quarter turn of 100 m of radius to starboard, then one of 30 m to port, tighter than the corridor of 50 m is wide.
class RplSceneTest : public SceneKindsTest {
protected:
    RplSceneTest() {
        drives.Write("C:\\Job\\Cable.csv", "100,100,0\r\n100,1100,100\r\n1100,1100,30\r\n1100,2100,0\r\n");
        Settings("Cable_RPL.INI",
                 "Use = 1\r\nDisplay Corridor = 1\r\nPort Corridor = 50\r\nStdb Corridor = 50\r\n"
                 "Corridor Pen = 128, 1, 1, 3\r\nPipeline Pen = 255, 0, 2, 0\r\n");
        job->Record().rpls.Add("C:\\Job\\Cable.csv");
    }
    static double Off(tagXY a, tagXY b) { return std::hypot(a.x - b.x, a.y - b.y); }
};

TEST_F(RplSceneTest, TrueArcsTangentPointsAndCorridor) {
    const SceneItems layer = Layer(KIND::RPL);
    ASSERT_THAT(layer.paths, SizeIs(3));
    // At the finest zoom of 0.1 mm a pixel the middle of a chord lies a third of a pixel off its arc.
    std::vector<tagXY> line = SceneItems::PointsOf(layer.paths[1]);
    const tagXY centre{200, 1000};
    EXPECT_EQ(line.front(), (tagXY{100, 100}));
    double turned = 0;
    for (std::size_t i = 1; i + 1 < line.size(); ++i) {
        const tagXY a = line[i], b = line[i + 1];
        if (std::fabs(Off(a, centre) - 100) > 1e-6 || std::fabs(Off(b, centre) - 100) > 1e-6) continue;
        EXPECT_LT(100 - Off({(a.x + b.x) / 2, (a.y + b.y) / 2}, centre), 0.3e-4);
        turned += Off(a, b);
    }
    EXPECT_NEAR(turned, 100 * std::numbers::pi / 2, 1e-3);
    const ChartPath& marks = layer.paths[2];
    EXPECT_THAT(SceneItems::PointsOf(marks), SizeIs(6));
    EXPECT_THAT(Labels(marks), ElementsAre("KP 0.000", "KP 0.900", "KP 1.057", "KP 1.927", "KP 1.974", "KP 2.944"));
    // Outside the first curve 150 m from its centre; inside the second the sides of the legs meet.
    std::vector<tagXY> outline = SceneItems::PointsOf(layer.paths[0]);
    const auto has = [&outline](tagXY at) {
        return std::any_of(outline.begin(), outline.end(), [at](tagXY p) { return Off(p, at) < 0.01; });
    };
    EXPECT_TRUE(has({50, 1000}));
    EXPECT_TRUE(has({200, 1150}));
    EXPECT_TRUE(has({1050, 1150}));
    EXPECT_FALSE(layer.paths[0].canBeHit);
}

TEST_F(RplSceneTest, HitsNameTheRecordAndItsKp) {
    const SceneItems layer = Layer(KIND::RPL);
    const std::uint32_t last = static_cast<std::uint32_t>(layer.paths[1].path->Points().size()) - 1;
    for (const auto& [point, record] :
         {std::pair{0u, 0}, std::pair{1u, 1}, std::pair{last / 4, 1}, std::pair{last, 3}}) {
        EXPECT_EQ(Hit(KIND::RPL, 1, point), (JobPoint{KIND::RPL, 0, record})) << point;
    }
    const JobKind& kind = KindOf(KIND::RPL);
    const JobRecord& record = job->Record();
    const double s = 100 / std::numbers::sqrt2;
    EXPECT_NEAR(kind.kpAt(record, 0, {200 - s, 1000 + s}), 0.9 + 0.05 * std::numbers::pi / 2, 1e-9);
    EXPECT_NEAR(kind.kpAt(record, 0, {90, 600}), 0.5, 1e-9);
    for (const double kp : {0.0, 0.5, 0.95, 1.5, 1.95, 2.5}) {
        const auto place = kind.placeAtKp(record, 0, kp);
        ASSERT_TRUE(place);
        EXPECT_NEAR(kind.kpAt(record, 0, *place), kp, 1e-9);
    }
    EXPECT_FALSE(kind.placeAtKp(record, 0, 3.0));
}

// ---- Waypoints ----

TEST_F(SceneKindsTest, WaypointsAreSymbolsThatNothingJoins) {
    const SceneItems layer = Layer(KIND::WAYPOINT);
    ASSERT_THAT(layer.paths, SizeIs(1));
    const ChartPath& wells = layer.paths[0];
    EXPECT_THAT(SceneItems::PointsOf(wells), ElementsAre(tagXY{100, 200}, tagXY{300, 200}));
    EXPECT_EQ(wells.path->Full().PartCount(), 2u);
    EXPECT_EQ(wells.line.thickness, 0);
    EXPECT_EQ(wells.marks.symbol, 18);
    EXPECT_EQ(wells.marks.size, 3);
    EXPECT_EQ(wells.marks.colour, RGB(255, 0, 0));
    EXPECT_EQ(wells.marks.labelPosition, 4);
    EXPECT_THAT(Labels(wells), ElementsAre("W-1", "W-2"));
    ExpectChosen(KIND::WAYPOINT, job->Record().waypoints, Hit(KIND::WAYPOINT, 0, 1));
}

TEST_F(SceneKindsTest, RingsOfAWaypoint) {
    CGridWaypoint& wells = job->Record().waypoints[0];
    struct Row {
        const char* what;
        std::function<void()> change;
        std::vector<double> radii;
    };
    const std::vector<Row> rows = {
        {"range rings of both", [] {}, {50, 100, 50, 100}},
        {"none without a size", [&] { wells.ringSizeMetres = 0.0; }, {}},
        {"no more than the pane offers", [&] { wells.ringSizeMetres = 1.0, wells.ringCount = 32000; },
         [] {
             std::vector<double> radii;
             for (int i = 0; i < 50; ++i) radii.push_back(i % 25 + 1);
             return radii;
         }()},
        {"the tolerance, or the radius, and the clearance round it",
         [&] { wells.catenaryMode = true; },
         {25, 35, 40, 50}},
        {"without a clearance", [&] { wells.clearance = 0.0; }, {25, 40}},
        {"a radius that isn't known", [&] { wells[1].radius = MISSING_VALUE; }, {25, 25}},
        {"without a tolerance either", [&] { wells.tolerance = 0.0; }, {}},
        {"switched off", [&] { wells.tolerance = 5.0, wells.drawRings = false; }, {}},
    };
    for (const Row& row : rows) {
        row.change();
        const SceneItems layer = Layer(KIND::WAYPOINT);
        EXPECT_EQ(Radii(layer), row.radii) << row.what;
        for (const SceneItems::Circle& ring : layer.circles) {
            EXPECT_EQ(ring.colour, wells.catenaryMode ? wells.colour : wells.ringColour) << row.what;
        }
    }
}

// ---- Pipelines ----

TEST_F(SceneKindsTest, APipelineLiesInItsCorridor) {
    const SceneItems layer = Layer(KIND::PIPELINE);
    ASSERT_THAT(layer.paths, SizeIs(2));
    const ChartPath& corridor = layer.paths[0];
    EXPECT_FALSE(corridor.canBeHit);
    EXPECT_FALSE(corridor.extends);
    const std::vector<tagXY> outline = SceneItems::PointsOf(corridor);
    ASSERT_THAT(outline, SizeIs(6));
    EXPECT_NEAR(outline.front().y, 101, 1e-9) << "port of a line to the east is north";
    EXPECT_NEAR(outline.back().y, -49, 1e-9);
    EXPECT_EQ(corridor.fill.style, 3);
    EXPECT_EQ(corridor.fill.colour, 128u);
    EXPECT_EQ(corridor.line.style, 1);
    const ChartPath& pipe = layer.paths[1];
    EXPECT_THAT(SceneItems::PointsOf(pipe), ElementsAre(tagXY{0, 1}, tagXY{2500, 1}, tagXY{500, 2001}));
    EXPECT_EQ(pipe.line.colour, 16711680u);
    EXPECT_EQ(pipe.line.thickness, 3);
    EXPECT_EQ(Hit(KIND::PIPELINE, 0, 0), JobPoint());
    ExpectChosen(KIND::PIPELINE, job->Record().pipelines, Hit(KIND::PIPELINE, 1, 2));
}

TEST_F(SceneKindsTest, KpsStandAcrossTheirLineOnItsStarboardSide) {
    const SceneItems layer = Layer(KIND::PIPELINE);
    struct Row {
        const char* text;
        tagXY at;
        double along;
    };
    // The second leg runs north-west, so what is starboard of it is north-east.
    const double back = (3.0 - 2.5) * 1000.0 / std::numbers::sqrt2;
    const std::vector<Row> rows = {
        {"0", {0, 1}, 180}, {"1", {1000, 1}, 180}, {"2", {2000, 1}, 180}, {"3", {2500 - back, 1 + back}, 45}};
    ASSERT_GE(layer.texts.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const SceneItems::Text& text = layer.texts[i];
        EXPECT_EQ(text.text, rows[i].text);
        EXPECT_NEAR(text.at.x, rows[i].at.x, 1e-6);
        EXPECT_NEAR(text.at.y, rows[i].at.y, 1e-6);
        ASSERT_TRUE(text.along);
        EXPECT_NEAR(std::remainder(*text.along - rows[i].along * kDegree, 2 * std::numbers::pi), 0.0, 1.1 * kDegree);
        EXPECT_EQ(text.position, 4);
        EXPECT_NEAR(text.gap, 10, 1);
        EXPECT_EQ(text.colour, 16711680u);
    }
    job->Record().pipelines[0].labelKps = false;
    job->Record().pipelines[0].ComputeKpListing();
    EXPECT_THAT(Layer(KIND::PIPELINE).texts, IsEmpty());
}

TEST_F(SceneKindsTest, ThePipeRouteStandsBackBehindThePipelineThatItIs) {
    const SceneItems layer = Layer(KIND::PIPE_ROUTE);
    ASSERT_THAT(layer.paths, SizeIs(2));
    EXPECT_FALSE(layer.paths[1].canBeHit) << "one would point at the same line twice";
    EXPECT_EQ(layer.texts.size(), 6u);
    job->Record().pipelines[0].use = false;
    EXPECT_TRUE(Layer(KIND::PIPE_ROUTE).paths[1].canBeHit);
    job->Record().pipeRoute.Clear();
    EXPECT_THAT(Layer(KIND::PIPE_ROUTE).paths, IsEmpty());
}

// ---- Routes ----

TEST_F(SceneKindsTest, ARouteHasItsPointsAndLegsNamed) {
    CRoute& route = job->Record().routes[0];
    ASSERT_THAT(Layer(KIND::ROUTE).paths, SizeIs(1));
    EXPECT_FALSE(Layer(KIND::ROUTE).paths[0].legText) << "legs are silent until they are switched on";
    route.showLegLabel = true;
    route.displayCorridor = true;
    route.portWidth = route.starboardWidth = 20.0;
    route.corridorColour = RGB(0, 200, 200);
    route.fill = 2;
    route.ComputeCorridor();
    const SceneItems layer = Layer(KIND::ROUTE);
    ASSERT_THAT(layer.paths, SizeIs(2));
    EXPECT_THAT(SceneItems::PointsOf(layer.paths[0]), ElementsAre(tagXY{-10, 10}, tagXY{-10, 330}, tagXY{410, 330},
                                                                  tagXY{410, 290}, tagXY{30, 290}, tagXY{30, 10}));
    EXPECT_EQ(layer.paths[0].fill.colour, RGB(0, 200, 200));
    EXPECT_THAT(Labels(layer.paths[1]), ElementsAre("A", "B", "C"));
    EXPECT_THAT(layer.paths[1].legText(0), ::testing::HasSubstr("300"));
    EXPECT_THAT(layer.paths[1].legText(1), ::testing::AllOf(::testing::HasSubstr("400"), ::testing::HasSubstr("90")));
    EXPECT_EQ(layer.paths[1].legText(7), "");
    const JobPoint nearer = Hit(KIND::ROUTE, 1, 1, {400, 310}, false);
    EXPECT_EQ(nearer, (JobPoint{KIND::ROUTE, 0, 2}));
    ExpectChosen(KIND::ROUTE, job->Record().routes, nearer);
}

// ---- Sail lines ----

TEST_F(SceneKindsTest, SailLinesAreNumberedWhereTheyStart) {
    const SceneItems layer = Layer(KIND::SAIL_LINE);
    ASSERT_THAT(layer.paths, SizeIs(1));
    const ChartPath& block = layer.paths[0];
    EXPECT_THAT(SceneItems::PointsOf(block), ElementsAre(tagXY{10, 10}, tagXY{10, 500}, tagXY{60, 500}, tagXY{60, 10}));
    EXPECT_EQ(block.path->Full().PartCount(), 2u) << "no line from the end of one to the start of the next";
    EXPECT_TRUE(block.arrows);
    EXPECT_THAT(Labels(block), ElementsAre("1", "", "2", ""));
    EXPECT_EQ(Hit(KIND::SAIL_LINE, 0, 1), (JobPoint{KIND::SAIL_LINE, 0, 0})) << "the end of line 1";
    ExpectChosen(KIND::SAIL_LINE, job->Record().sailLines, Hit(KIND::SAIL_LINE, 0, 2, {60, 20}, false));
    EXPECT_EQ(job->Record().sailLines.editState.editPointIndex, 1);
}

// ---- All ----

TEST_F(SceneKindsTest, WhatIsSwitchedOffIsNotDrawn) {
    JobRecord& features = job->Record();
    features.waypoints[0].display = false;
    features.pipelines[0].use = false;
    features.pipeRoute.use = false;
    features.routes[0].Status = false;
    features.sailLines[0].Status = false;
    for (const ChartLayer& layer : scenes->Build().layers) {
        EXPECT_THAT(layer.items, IsEmpty()) << layer.id;
    }
    EXPECT_TRUE(scenes->IsEmpty());
}

TEST_F(SceneKindsTest, KeepsSharpBendsAndFilesOfNoUseOffTheChart) {
    drives.Write("C:\\Job\\Hairpin.csv", "10, 10\r\n10, 1010\r\n11, 10\r\n");
    drives.Write("C:\\Job\\Empty.csv", "");
    JobRecord& features = job->Record();
    features.routes.Add("C:\\Job\\Hairpin.csv");
    CRoute& hairpin = features.routes[1];
    hairpin.displayCorridor = true;
    hairpin.portWidth = hairpin.starboardWidth = 20;
    hairpin.ComputeCorridor();
    ASSERT_GT(hairpin[1].portCorridorStart.y, 30000) << "by the rule of the crossing lines";
    const std::size_t paths[] = {Layer(KIND::ROUTE).paths.size(), Layer(KIND::BOUNDARY).paths.size(),
                                 Layer(KIND::SAIL_LINE).paths.size()};
    for (CFileListBase* const list :
         std::initializer_list<CFileListBase*>{&features.routes, &features.boundaries, &features.sailLines}) {
        ASSERT_TRUE(list->Add("C:\\Job\\Empty.csv"));
    }
    EXPECT_THAT(Layer(KIND::BOUNDARY).paths, SizeIs(paths[1]));
    EXPECT_THAT(Layer(KIND::SAIL_LINE).paths, SizeIs(paths[2]));
    const SceneItems routes = Layer(KIND::ROUTE);
    EXPECT_THAT(routes.paths, SizeIs(paths[0]));
    for (const ChartPath& path : routes.paths) {
        for (const tagXY& point : SceneItems::PointsOf(path)) EXPECT_LT(std::abs(point.y), 1300);
    }
    EXPECT_EQ(ExtentOf(scene).maxY, 2001) << "the points' own, without a corridor";
}

}  // namespace
}  // namespace quillon
