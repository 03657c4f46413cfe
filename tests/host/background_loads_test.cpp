// What lies under the chart: loaded behind a job that is open already, and what the chart is given of it.

#include "host/background_loads.h"

#include <gmock/gmock.h>

#include "host/scene_builder.h"
#include "panes/dtm_pane.h"
#include "platform/headless.h"
#include "platform/user_actions.h"
#include "support/scratch_drives.h"
#include "support/shape_bytes.h"

namespace quillon {
namespace {

constexpr const char* kSeabed = "C:\\Job\\Seabed.xyz";
constexpr const char* kUtm31 =
    "Grid Chosen = 1\r\nEllipsoid = 26\r\nEllipsoid Name = \r\nSemi Major Axis = 6378137\r\n"
    "Inverse Flattening = 298.257223563\r\nGrid Type = 0\r\nGrid Zone = 31\r\nGrid Subtype = 0\r\n";

class BackgroundLoadsTest : public ::testing::Test, private JobObserver {
protected:
    BackgroundLoadsTest() : platform(drives.Root(), "C:\\Programs\\Host.exe") {
        drives.Write(kSeabed, "500000 5840000 -20\n500010 5840000 -21\n500020 5840000 -22.5\n500000 5840010 -30\n");
        Settings("DTM.INI", std::string("Dtm One File Name = ") + kSeabed + "\r\n");
        ShapeBytes coast(SHAPE_POLYGON), buoys(SHAPE_POINT);
        coast.AddPaths(SHAPE_POLYGON, {{{3, 52}, {3, 53}, {4, 53}, {3, 52}}, {{3.1, 52.5}, {3.2, 52.6}, {3.1, 52.6}}});
        coast.SetBounds({3, 52}, {4, 53});
        coast.AddNull();
        buoys.AddPoint({500100, 5840100});
        buoys.AddPoint({500200, 5840200});
        buoys.SetBounds({500100, 5840100}, {500200, 5840200});
        for (const auto& [name, bytes] : {std::pair{"Coast", &coast}, {"Buoys", &buoys}}) {
            drives.Write(std::string("C:\\Job\\") + name + ".shp", bytes->Shp());
            drives.Write(std::string("C:\\Job\\") + name + ".shx", bytes->Shx());
        }
        drives.Write("C:\\Job\\Buoys.dbf", DbaseBytes({"NAME"}, {{"North"}, {"South"}}));
        drives.Write("C:\\Job\\Buoys.INI",
                     "Status = 1\r\nStyle = 0\r\nSize = 1\r\nColour = 255\r\nFill = 0\r\nLabel Mode = 1\r\n"
                     "Label Position = 4\r\nLabel Column = 0\r\nIcon Mode = 1\r\n");
        Settings("Shape_File_List.FLS", "[]\r\nC:\\Job\\Coast.shp\r\nC:\\Job\\Gone.shp\r\nC:\\Job\\Buoys.shp\r\n");
        Settings("Geodesy.INI", kUtm31);
    }
    void Open() {
        job = std::make_unique<Job>(platform);
        job->SetObserver(this);
        job->Open();
    }
    void Settings(const std::string& name, std::string_view lines) {
        drives.Write("C:\\MySettings\\Host\\" + name, lines);
    }
    std::vector<ChartItem> Layer(const ChartScene& scene, KIND kind) {
        for (const ChartLayer& layer : scene.layers) {
            if (layer.id == static_cast<std::uint64_t>(kind)) return layer.items;
        }
        return {};
    }
    CDtm& Dtm() { return job->Record().dtm; }

    void OnDrawingChanged() override { ++drawn; }
    void OnPointShown(tagXY) override {}
    void OnClearanceStale() override {}
    void OnFeatureUpdate(KIND) override {}
    void OnFocusFeature(KIND) override {}

    ScratchDrives drives;
    HeadlessPlatform platform;
    std::unique_ptr<Job> job;
    int drawn = 0;
};

TEST_F(BackgroundLoadsTest, TheJobIsOpenBeforeTheyAreThere) {
    Open();
    EXPECT_TRUE(job->Loads().IsBusy());
    EXPECT_FALSE(Dtm().IsLoaded());
    platform.RunModal([this] { return !job->Loads().IsBusy(); });
    EXPECT_TRUE(Dtm().IsLoaded());
    EXPECT_EQ(drawn, 4) << "the model, two shapes, and one that isn't there";
    auto& pane = dynamic_cast<CDtmPane&>(*job->PaneOf(KIND::DTM));
    EXPECT_EQ(pane.GetPropertyList().GetProperty(pane.GetPropertyList().GetPropertyCount() - 1).GetName(), "Depth");
    const JobKind& shapes = KindOf(KIND::SHAPE);
    EXPECT_EQ(shapes.report(job->Record(), 1).fault, "there is no .shp file");
    EXPECT_EQ(shapes.report(job->Record(), 0).passedOver, 1U);
    EXPECT_TRUE(shapes.report(job->Record(), 0).opened);
    EXPECT_EQ(shapes.notes(job->Record(), 0).back(),
              "converted from degrees to Grid Zone 31 (3\xB0 E) N, its datum (not told) taken for the job's (WGS84)");
    EXPECT_THAT(shapes.notes(job->Record(), 2).back(), ::testing::HasSubstr("doesn't tell a projection"));
}

TEST_F(BackgroundLoadsTest, WhatTheOperatorChangedMeanwhileStands) {
    Open();
    Dtm().fileName[0] = "C:\\Job\\Other.xyz";
    job->Record().shapes.Remove("C:\\Job\\Coast.shp");
    job->Loads().Settle();
    EXPECT_FALSE(Dtm().IsLoaded());
    EXPECT_EQ(job->Record().shapes.shapes.size(), 1U);
    platform.Messages().Pump();
    job.reset();
    // The end of a job in the middle of a load.
    Open();
    job.reset();
    platform.Messages().Pump();
}

TEST_F(BackgroundLoadsTest, TheChartShowsDepthsUnderShapesUnderFeatures) {
    Open();
    job->Loads().Settle();
    SceneBuilder scenes(job->Record());
    const ChartScene scene = scenes.Build();
    EXPECT_EQ(scene.layers[0].id, static_cast<std::uint64_t>(KIND::DTM));
    EXPECT_EQ(scene.layers[1].id, static_cast<std::uint64_t>(KIND::SHAPE));
    const std::vector<ChartItem> depths = Layer(scene, KIND::DTM);
    ASSERT_EQ(depths.size(), 2U);
    const auto& image = std::get<ChartImage>(depths[0]);
    EXPECT_EQ(image.raster->Box(), (ChartBox{499995, 5839995, 500025, 5840015})) << "samples in the middle of cells";
    for (const tagXY place : {tagXY{500004, 5840004}, {500006, 5840004}, {499996, 5840014}, {500011, 5840014}}) {
        const std::int32_t shown = image.raster->ValueAt(place);
        EXPECT_EQ(shown == ChartRaster::kNone ? MISSING_VALUE : shown / 100.0, Dtm().DepthAt(place)) << place.x;
    }
    ASSERT_TRUE(scene.legend);
    EXPECT_EQ(scene.legend->colours->least * scene.legend->unit, 20.0);
    EXPECT_LT(image.heightPerValue, 0.0) << "depths go down";
    EXPECT_EQ(std::get<ChartPath>(depths[1]).path->Box(), (ChartBox{500000, 5840000, 500020, 5840010}));

    const std::vector<ChartItem> shapes = Layer(scene, KIND::SHAPE);
    ASSERT_EQ(shapes.size(), 3U);
    const auto& coast = std::get<ChartPath>(shapes[0]);
    EXPECT_EQ(coast.path->Full().PartCount(), 2U);
    EXPECT_NEAR(coast.path->Points()[0].x, 500000.0, 1e-3) << "the middle of the zone";
    EXPECT_NEAR(coast.path->Points()[0].y, 5761038.21, 0.01) << "52 N, by PROJ";
    EXPECT_FALSE(coast.extends);
    const auto& names = std::get<ChartTexts>(shapes[1]);
    EXPECT_EQ(names.textOf(1).text, "South");
    const auto& buoys = std::get<ChartPath>(shapes[2]);
    EXPECT_EQ(buoys.path->Points()[1], (tagXY{500200, 5840200})) << "as it stands";
    EXPECT_GT(buoys.marks.symbol, 1) << "an icon";
    EXPECT_EQ(ExtentOf(scene), (ChartBox{499995, 5839995, 500025, 5840015})) << "not the coast";

    scenes.options = {.depthPicture = false};
    Dtm().displayCoverage = false;
    EXPECT_TRUE(Layer(scenes.Build(), KIND::DTM).empty());
    EXPECT_FALSE(scenes.Build().legend);
}

}  // namespace
}  // namespace quillon
