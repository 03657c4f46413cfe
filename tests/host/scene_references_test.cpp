#include "host/scene_references.h"

#include <gtest/gtest.h>

#include "foundation/angle_units.h"
#include "host/scene_builder.h"
#include "platform/headless.h"
#include "support/scene_items.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

TEST(SceneReferences, TracksAndWindFarmsLieOnTheGridOfTheJob) {
    ScratchDrives drives;
    HeadlessPlatform platform(drives.Root(), "Host");
    Job job(platform);
    job.Open();
    JobRecord& record = job.Record();
    drives.Write("C:\\Jobs\\day.gpx",
                 "<gpx><wpt lat='52' lon='3'><name>Buoy</name></wpt><trk><trkseg><trkpt lat='52' lon='3'/>"
                 "<trkpt lat='52' lon='3.01'/></trkseg><trkseg><trkpt lat='52' lon='120'/><trkpt lat='52' lon='3.02'/>"
                 "<trkpt lat='52' lon='3.03'/></trkseg></trk></gpx>");
    ASSERT_TRUE(record.gpx.Load("C:\\Jobs\\day.gpx"));
    TurbineDef turbine;
    turbine.id = "A1";
    turbine.farm = "North";
    turbine.longitude = 3 / kDegreesPerRadian;
    turbine.latitude = 52 / kDegreesPerRadian;
    const double east = 3.1 / kDegreesPerRadian, north = 52.1 / kDegreesPerRadian;
    record.windFarms.Take(
        {turbine},
        {{"North", {east, north}, {{{turbine.longitude, turbine.latitude}, {east, turbine.latitude}, {east, north}}}}});
    SceneBuilder scenes(record);
    EXPECT_NE(scenes.Build().layers.front().id, kReferenceLayer) << "no grid";
    const auto layer = [&] {
        const ChartScene scene = scenes.Build();
        EXPECT_EQ(scene.layers.front().id, kReferenceLayer) << "below all features";
        return SceneItems(scene.layers.front());
    };
    ASSERT_EQ(record.geodesy.Choose({}), GEODESY_FAULT::NONE);
    record.windFarms.labelTurbines = true;
    const std::vector<ChartPath> paths = layer().paths;
    ASSERT_EQ(paths.size(), 5u) << "site, turbines, name, track, waypoints";
    const std::vector<tagXY> track = SceneItems::PointsOf(paths[3]);
    ASSERT_EQ(track.size(), 4u) << "what lies outside the grid is left out";
    EXPECT_NEAR(track[0].x, 500000, 1e-3);
    EXPECT_NEAR(track[0].y, 5761038.2131, 1e-3);
    EXPECT_EQ(paths[1].marks.label(0) + paths[2].marks.label(0) + paths[4].marks.label(0), "A1NorthBuoy");
    record.gpx.tracks[0].show = false;
    record.gpx.showWaypoints = false;
    record.windFarms.displayTurbines = false;
    EXPECT_EQ(layer().paths.size(), 2u);
    EXPECT_EQ(scenes.PointOf({.layer = kReferenceLayer, .item = 0}), JobPoint()) << "nothing to choose";
}

}  // namespace
}  // namespace quillon
