#include "host/scene_builder.h"

#include <gmock/gmock.h>

#include <set>

#include "platform/headless.h"
#include "platform/user_actions.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

/// A square of 100 m with a vertex in each corner, a line of two points, and a file of no use.
class SceneBuilderTest : public ::testing::Test {
protected:
    SceneBuilderTest() : platform(drives.Root(), "C:\\Programs\\Host.exe") {
        drives.Write("C:\\Job\\Square.csv", "100, 100\r\n200, 100\r\n200, 200\r\n100, 200\r\n");
        drives.Write("C:\\Job\\Line.csv", "0, 1\r\n1000, 1\r\n");
        drives.Write("C:\\MySettings\\Host\\Boundary_List.FLS",
                     "[Boundary]\r\nC:\\Job\\Square.csv\r\nC:\\Job\\Line.csv\r\n");
        job = std::make_unique<Job>(platform);
        job->Open();
        scenes = std::make_unique<SceneBuilder>(job->Features());
    }

    CBoundary& Square() { return job->Features().boundaries[0]; }
    const ChartLayer& Layer() {
        scene = scenes->Build();
        for (const ChartLayer& layer : scene.layers) {
            if (layer.id == static_cast<std::uint64_t>(FEATURE_TYPES::BOUNDARY)) return layer;
        }
        throw std::logic_error("no layer of boundaries");
    }
    JobPoint Hit(std::size_t path, std::uint32_t point, bool isVertex, tagXY at = {}) {
        return scenes->PointOf({Layer().id, path, {point, isVertex, at, 0.0}});
    }

    ScratchDrives drives;
    HeadlessPlatform platform;
    std::unique_ptr<Job> job;
    std::unique_ptr<SceneBuilder> scenes;
    ChartScene scene;
};

TEST_F(SceneBuilderTest, DrawsABoundaryAsItsOptionsSay) {
    Square().pen = {.style = 1, .thickness = 4, .colour = RGB(1, 2, 3), .fill = 5};
    Square().labelPosition = 5;
    const ChartLayer& layer = Layer();
    ASSERT_EQ(layer.paths.size(), 2u);
    const ChartPath& square = layer.paths[0];
    EXPECT_EQ(square.points.size(), 4u);
    EXPECT_FALSE(square.closed) << "taken as drawn: nothing joins the last point to the first";
    EXPECT_EQ(square.line.colour, RGB(1, 2, 3));
    EXPECT_EQ(square.line.thickness, 4);
    EXPECT_EQ(square.line.style, 1);
    EXPECT_EQ(square.fill.style, 5);
    EXPECT_EQ(square.fill.colour, RGB(1, 2, 3));
    EXPECT_EQ(layer.paths[1].fill.style, kFillNone) << "two points bound no area";
    ASSERT_EQ(layer.texts.size(), 2u);
    EXPECT_EQ(layer.texts[0].text, "Square");
    EXPECT_NEAR(layer.texts[0].at.x, 150, 2);
    EXPECT_EQ(layer.texts[0].position, 5);
}

TEST_F(SceneBuilderTest, LabelsFollowModeAndPosition) {
    struct Row {
        SYMBOL_LABEL_MODE mode;
        LABEL_POSITION position;
        const char* text;  ///< null: none
        tagXY at;
    };
    for (const Row& row :
         {Row{0, 1, nullptr, {}}, Row{1, 0, nullptr, {}}, Row{4, 1, nullptr, {}}, Row{1, 1, "Square", {200, 200}},
          Row{1, 2, "Square", {100, 100}}, Row{2, 2, "100.0 E  100.0 N", {100, 100}},
          Row{3, 3, "Square  100.0 E  100.0 N", {100, 100}}, Row{99, 1, nullptr, {}}}) {
        job->Features().boundaries[1].Status = false;
        Square().labelMode = row.mode;
        Square().labelPosition = row.position;
        const ChartLayer& layer = Layer();
        ASSERT_EQ(layer.texts.size(), row.text ? 1u : 0u) << row.mode << ' ' << row.position;
        if (!row.text) continue;
        EXPECT_EQ(layer.texts[0].text, row.text);
        EXPECT_EQ(layer.texts[0].position, row.position);
    }
}

TEST_F(SceneBuilderTest, WhatIsHiddenIsNotThereAndHitsStillFindTheirFile) {
    EXPECT_EQ(Hit(1, 0, true), (JobPoint{FEATURE_TYPES::BOUNDARY, 1, 0}));
    Square().Status = false;
    EXPECT_EQ(Layer().paths.size(), 1u);
    EXPECT_EQ(Hit(0, 1, true), (JobPoint{FEATURE_TYPES::BOUNDARY, 1, 1}));
    EXPECT_EQ(Hit(1, 0, true), JobPoint());
    EXPECT_EQ(scenes->PointOf({99, 0, {}}), JobPoint());
}

TEST_F(SceneBuilderTest, AHitOnASegmentIsItsNearerPoint) {
    EXPECT_EQ(Hit(0, 1, false, {200, 120}).point, 1);
    EXPECT_EQ(Hit(0, 1, false, {200, 180}).point, 2);
    EXPECT_EQ(Hit(0, 3, false, {100, 190}).point, 3);
    EXPECT_EQ(Hit(0, 4, true), JobPoint()) << "a point that has gone meanwhile";
    EXPECT_EQ(Hit(0, 3, false, {100, 110}).point, 0) << "the segment that closes the ring";
}

TEST_F(SceneBuilderTest, PointsKeepTheirGenerationUntilTheyAreOthers) {
    const auto generations = [this] {
        std::vector<std::uint64_t> all;
        for (const ChartPath& path : Layer().paths) all.push_back(path.generation);
        return all;
    };
    const auto first = generations();
    Square().pen.colour = RGB(9, 9, 9);
    EXPECT_EQ(generations(), first) << "another colour is no other geometry";
    user::Press(job->PaneOf(FEATURE_TYPES::BOUNDARY)->GetRemoveButton());
    EXPECT_THAT(generations(), ::testing::ElementsAre(first[1])) << "what moved up keeps its own";
    platform.AnswerFiles({"C:\\Job\\Square.csv"});
    user::Press(job->PaneOf(FEATURE_TYPES::BOUNDARY)->GetAddButton());
    EXPECT_NE(generations()[1], first[0]) << "a number is never used twice";
}

}  // namespace
}  // namespace quillon
