#include "target/target_plot.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/scratch_drives.h"

namespace quillon {
namespace {

CEllipsoid Wgs84() {
    CEllipsoid figure;
    figure.SetEllipsoid(CEllipsoid::kWgs84);
    return figure;
}

// Lengths of a degree at latitude 45 on WGS 84: 111131.78 m along the meridian, 78846.84 m along the parallel (National
// Geospatial-Intelligence Agency, The American Practical Navigator, 2019, table of the lengths of a degree).
TEST(TargetPlot, ScalesAtTheCentre) {
    CTargetPlot plot(Wgs84());
    plot.SetLatitude(std::atan(1.0));
    EXPECT_TRUE(plot.dirty);
    EXPECT_NEAR(plot.metresPerLatitude / 57.29577951, 111131.8, 0.5);
    EXPECT_NEAR(plot.metresPerLongitude / 57.29577951, 78846.8, 0.5);
    EXPECT_NEAR(plot.minutesPerMetre, 60 / 111131.8, 1e-8);
    plot.dirty = false;
    plot.SetLatitude(plot.centre.y);
    EXPECT_FALSE(plot.dirty) << "the present latitude";
}

TEST(TargetPlot, TurnsOnlyWhereNorthIsNotHeldUp) {
    CTargetPlot plot(Wgs84());
    plot.SetOrientation(30);
    EXPECT_EQ(plot.orientation, 30);
    EXPECT_EQ(plot.cosOrientation, 1.0);
    plot.display.northUp = false;
    plot.SetOrientation(30);
    EXPECT_NEAR(plot.sinOrientation, 0.5, 1e-12);
    plot.HoldNorthUp();
    EXPECT_EQ(plot.orientation, 0);
    EXPECT_EQ(plot.sinOrientation, 0.0);
}

TEST(TargetPlot, ReadsBackWhatItWrote) {
    ScratchDrives drives;
    CTargetPlot plot(Wgs84());
    plot.SetLatitude(0.9876543210123457);
    plot.SetLongitude(-0.0123456789012345);
    plot.display.northUp = false;
    plot.display.ringRadiusNauticalMiles = 0.25;
    plot.SetOrientation(45);
    ASSERT_TRUE(plot.Save(drives.Files()));
    const std::string bytes = drives.Read("C:\\MySettings\\Host\\Target_Plot.INI");
    EXPECT_EQ(bytes.substr(0, bytes.find("Nautical")),
              "Latitude = 0.9876543210123457\r\nLongitude = -0.0123456789012345\r\nOrientation = 45\r\n"
              "North Up = 0\r\n");
    CTargetPlot read(Wgs84());
    ASSERT_TRUE(read.Load(drives.Files()));
    EXPECT_EQ(read.centre, plot.centre);
    EXPECT_EQ(read.display, plot.display);
    EXPECT_EQ(read.sinOrientation, plot.sinOrientation);
    EXPECT_EQ(read.metresPerLongitude, plot.metresPerLongitude);
}

}  // namespace
}  // namespace quillon
