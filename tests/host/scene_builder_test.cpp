#include "host/scene_builder.h"

#include <gmock/gmock.h>

#include <set>

#include "platform/headless.h"
#include "platform/user_actions.h"
#include "support/scene_items.h"
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
        scenes = std::make_unique<SceneBuilder>(job->Record());
    }

    CBoundary& Square() { return job->Record().boundaries[0]; }
    static SceneItems ItemsOf(const ChartScene& drawn) {
        for (const ChartLayer& layer : drawn.layers) {
            if (layer.id == kLayer) return SceneItems(layer);
        }
        throw std::logic_error("no layer of boundaries");
    }
    SceneItems Layer() { return ItemsOf(scene = scenes->Build()); }
    JobPoint Hit(std::size_t path, std::uint32_t point, HIT_KIND kind, tagXY at = {}) {
        const std::vector<std::size_t> places = Layer().pathPlaces;
        const std::size_t item = path < places.size() ? places[path] : 99;
        return scenes->PointOf({.layer = kLayer, .item = item, .kind = kind, .hit = {.point = point, .at = at}});
    }
    std::vector<const PathLod*> Paths() {
        std::vector<const PathLod*> all;
        for (const ChartPath& path : Layer().paths) all.push_back(path.path.get());
        return all;
    }

    ScratchDrives drives;
    HeadlessPlatform platform;
    std::unique_ptr<Job> job;
    std::unique_ptr<SceneBuilder> scenes;
    ChartScene scene;
    static constexpr auto kLayer = static_cast<std::uint64_t>(KIND::BOUNDARY);
};

TEST_F(SceneBuilderTest, DrawsABoundaryAsItsOptionsSay) {
    Square().pen = {.style = 1, .thickness = 4, .colour = RGB(1, 2, 3), .fill = 5};
    Square().labelPosition = 5;
    const SceneItems layer = Layer();
    ASSERT_EQ(layer.paths.size(), 2u);
    const ChartPath& square = layer.paths[0];
    EXPECT_EQ(square.path->Points().size(), 4u);
    EXPECT_FALSE(HitPath(*square.path, {100, 150}, 1.0)) << "taken as drawn: nothing joins the last point to the first";
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
        job->Record().boundaries[1].Status = false;
        Square().labelMode = row.mode;
        Square().labelPosition = row.position;
        const SceneItems layer = Layer();
        ASSERT_EQ(layer.texts.size(), row.text ? 1u : 0u) << row.mode << ' ' << row.position;
        if (!row.text) continue;
        EXPECT_EQ(layer.texts[0].text, row.text);
        EXPECT_EQ(layer.texts[0].position, row.position);
    }
}

TEST_F(SceneBuilderTest, WhatIsHiddenIsNotThereAndHitsStillFindTheirFile) {
    EXPECT_EQ(Hit(1, 0, HIT_KIND::VERTEX), (JobPoint{KIND::BOUNDARY, 1, 0}));
    Square().Status = false;
    EXPECT_EQ(Layer().paths.size(), 1u);
    EXPECT_EQ(Hit(0, 1, HIT_KIND::VERTEX), (JobPoint{KIND::BOUNDARY, 1, 1}));
    EXPECT_EQ(Hit(1, 0, HIT_KIND::VERTEX), JobPoint());
    EXPECT_EQ(scenes->PointOf({.layer = 99}), JobPoint());
    EXPECT_EQ(Hit(0, 0, HIT_KIND::AREA), (JobPoint{KIND::BOUNDARY, 1, -1})) << "the file alone";
}

TEST_F(SceneBuilderTest, PathsAreMadeAnewOnlyWhenTheirPointsAreOthers) {
    const auto first = Paths();
    const ChartScene keepsThem = scene;
    Square().pen.colour = RGB(9, 9, 9);
    EXPECT_EQ(Paths(), first) << "another colour is no other geometry";
    Square()[1] = tagXY(Square()[1]);
    EXPECT_EQ(Paths(), first) << "nor is what was touched and is the same";
    Square()[1].x += 1;
    EXPECT_NE(Paths()[0], first[0]);
    EXPECT_EQ(Paths()[1], first[1]);
    const auto boundaries = std::find_if(keepsThem.layers.begin(), keepsThem.layers.end(),
                                         [](const ChartLayer& layer) { return layer.id == kLayer; });
    EXPECT_EQ(std::get<ChartPath>(boundaries->items[1]).path->Points()[1], (tagXY{200, 100}))
        << "what was drawn stays as it was";
    user::Press(dynamic_cast<CFeaturePane&>(*job->PaneOf(KIND::BOUNDARY)).GetRemoveButton());
    EXPECT_THAT(Paths(), ::testing::ElementsAre(first[1])) << "what moved up keeps its own";
}

TEST_F(SceneBuilderTest, LongPathsAreSketchedUntilTheyAreMade) {
    std::vector<tagXY> points;
    for (int i = 0; i < 100000; ++i) points.push_back({i * 1.0, i % 7 * 1.0});
    Square().Adopt(std::vector<tagXY>(points));
    std::atomic<int> told = 0;
    ItemMaker maker([&] { ++told; });
    scenes = std::make_unique<SceneBuilder>(job->Record(), &maker);
    const auto lod = [this] { return Layer().paths[0].path; };
    const PathPtr sketch = lod();
    EXPECT_LE(sketch->Full().VertexCount(), 8100u);
    maker.Wait();
    EXPECT_EQ(lod()->Full().VertexCount(), points.size()) << "swapped in whole";
    EXPECT_EQ(lod(), lod());
    const PathPtr whole = lod();
    Square()[5].y = 50;
    EXPECT_EQ(lod(), whole) << "what was drawn stays until the new one is ready";
    Square()[5].y = 60;
    lod();
    maker.Wait();
    EXPECT_EQ(lod()->Points()[5].y, 60) << "the one in between isn't wanted";
    Square()[5].y = 70;
    lod();
    Square().Status = false;
    Layer();
    maker.Wait();
    EXPECT_TRUE(maker.Take().empty()) << "what is hidden isn't made";
    EXPECT_GE(told, 2);
}

}  // namespace
}  // namespace quillon
