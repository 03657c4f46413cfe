#include "host/graticule.h"

#include <gmock/gmock.h>

#include <cmath>
#include <numbers>
#include <set>

#include "host/grid_text.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

class GraticuleTest : public ::testing::Test {
protected:
    GraticuleTest() : geodesy(drives.Files()) {
        drives.MakeFolder("C:\\MySettings");
        EXPECT_EQ(geodesy.Choose({}), GEODESY_FAULT::NONE);
    }
    ScratchDrives drives;
    CJobGeodesy geodesy;
    ItemMaker::Stop stop = false;
};

// Every point of a line lies on a meridian or parallel at a whole number of steps, from a harbour to an ocean.
TEST_F(GraticuleTest, LinesLieOnWholeSteps) {
    struct Row {
        double metres;
        double step;
    };
    for (const Row& row : {Row{600, 5 / 3600.0}, Row{20000, 2 / 60.0}, Row{400000, 0.5}}) {
        SCOPED_TRACE(row.metres);
        const tagXY at{500000, 5843000};
        ChartBox box;
        box.Add(at.x - row.metres / 2, at.y - row.metres / 2);
        box.Add(at.x + row.metres / 2, at.y + row.metres / 2);
        const GraticuleLines lines = MakeGraticule(geodesy, box, stop);
        EXPECT_GE(lines.starts.size(), 6u);
        EXPECT_LE(lines.starts.size(), 40u);
        for (const tagXY point : lines.points) {
            const auto there = geodesy.ToGeographic(point);
            ASSERT_TRUE(there);
            const double off = std::min(std::fabs(std::remainder(there->latitude, row.step)),
                                        std::fabs(std::remainder(there->longitude, row.step)));
            EXPECT_LT(off, 1e-8);
        }
        std::set<std::string> texts;
        for (const auto& label : lines.labels) texts.insert(label.text);
        EXPECT_GE(texts.size(), 5u);
    }
    // Where the grid doesn't reach there is nothing to draw, and without a grid neither.
    ChartBox beyond;
    beyond.Add(1e9, 1e9);
    beyond.Add(2e9, 2e9);
    EXPECT_TRUE(MakeGraticule(geodesy, beyond, stop).points.empty());
}

TEST_F(GraticuleTest, Texts) {
    struct Row {
        double degrees, step;
        bool isLatitude;
        const char* text;
    };
    for (const Row& row :
         {Row{52.5, 0.5, true, "52\xB0 30'N"}, Row{-52, 1, true, "52\xB0S"},
          Row{-3.125, 30 / 3600.0, false, "003\xB0 07' 30\"W"}, Row{0, 1, false, "000\xB0"},
          Row{181, 1, false, "179\xB0W"}, Row{3 + 0.5 / 3600, 0.5 / 3600, false, "003\xB0 00' 00.5\"E"}}) {
        EXPECT_EQ(GraticuleText(row.degrees, row.step, row.isLatitude), row.text);
    }
    EXPECT_EQ(GridBadgeText(geodesy), "UTM Zone 31 N / WGS 84");
    const GridPlaceText place = TextOfPlace(geodesy, {500000, 0.0}, {});
    EXPECT_EQ(place.geographic, "00\xB0 00'.00000N  003\xB0 00'.00000E");
    EXPECT_EQ(place.scale, "convergence +0.0000\xB0  scale 0.999600");
    EXPECT_EQ(TextOfPlace(geodesy, {9e9, 9e9}, {}).geographic, "outside the grid");
    geodesy.Clear();
    EXPECT_EQ(GridBadgeText(geodesy), "no grid chosen");
    EXPECT_EQ(TextOfPlace(geodesy, {500000, 0.0}, {}).geographic, "");
}

TEST_F(GraticuleTest, TheLayerFollowsTheView) {
    GraticuleLayer layer([] {});
    ChartView view;
    view.SetSize(800, 600);
    view.SetCentre({500000, 5843000});
    layer.SetGrid(&geodesy);
    layer.SetView(view);
    layer.Wait();
    const auto first = layer.Layer();
    ASSERT_TRUE(first);
    const auto& path = std::get<ChartPath>(first->items[0]);
    EXPECT_LT(path.path->Box().minX, view.WorldBox().minX);
    view.Pan(100, 0);
    layer.SetView(view);
    layer.Wait();
    EXPECT_EQ(std::get<ChartPath>(layer.Layer()->items[0]).path, path.path) << "worked out with room to pan in";
    view.Zoom(4, {400, 300});
    layer.SetView(view);
    layer.Wait();
    EXPECT_NE(std::get<ChartPath>(layer.Layer()->items[0]).path, path.path);
    layer.SetGrid(nullptr);
    EXPECT_FALSE(layer.Layer());
}

}  // namespace
}  // namespace quillon
