#include "features/gpx.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "features/gpx_reader.h"
#include "foundation/angle_units.h"
#include "platform/text.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

const std::string kHead = "<gpx version='1.1' xmlns='http://www.topografix.com/GPX/1/1'>";

std::string Point(const char* element, double lat, double lon, const std::string& inside = {}) {
    return Format("<%s lat='%.13f' lon='%.13f'>", element, lat, lon) + inside + "</" + element + ">";
}

class GpxTest : public ::testing::Test {
protected:
    const CGPX& Read(const std::string& bytes) {
        drives.Write("C:\\Jobs\\day.gpx", bytes);
        loaded = gpx.Load("C:\\Jobs\\day.gpx");
        return gpx;
    }
    ScratchDrives drives;
    CGPX gpx{drives.Files()};
    bool loaded = false;
};

TEST(GpxTime, FractionsAndZones) {
    struct Row {
        const char* text;
        double seconds;  ///< since the epoch; -1 for no time
    };
    for (const Row& row : std::initializer_list<Row>{{"2000-01-02T00:00:01Z", 1},
                                                     {"2000-01-03T00:00:00", 86400},
                                                     {"2000-01-02T02:00:00.25+01:30", 1800.25},
                                                     {"2000-01-01T22:00:00-0330", 5400},
                                                     {"2000-01-02T01:00:00+01", 0},
                                                     {"2024-02-29T12:00:00Z", 762436800},
                                                     {"2000-01-02T24:00:00Z", 86400},
                                                     {"2023-02-29T12:00:00Z", -1},
                                                     {"2000-13-02T00:00:00Z", -1},
                                                     {"2000-01-02", -1},
                                                     {"2000-01-02T00:00:00Zulu", -1},
                                                     {"2000-01-02T00:00:00+1", -1},
                                                     {"", -1}}) {
        const auto time = GpxTime(row.text);
        ASSERT_EQ(time.has_value(), row.seconds >= 0) << row.text;
        EXPECT_NEAR(time.value_or(-1), row.seconds, 1e-6) << row.text;
    }
}

// Inverse solutions of GeographicLib 2.1 (C. F. F. Karney, Algorithms for geodesics, 2013).
TEST_F(GpxTest, LegsAgreeWithAnotherProgram) {
    struct Leg {
        double lat1, lon1, lat2, lon2, metres, bearing;
    };
    const Leg legs[] = {
        {49.3636333333086, 0.0800866666667, 49.37, 0.09, 1009.865270, 45.475822059},
        {53.24395, 1.358783, 53.248467, 1.349033, 822.389586, 307.685199039},
        {0, 10, 0, 11, 111319.490793, 90},
        {60, 179.9, 60, -179.9, 11159.996065, 89.913397438},
        {-33.5, 18.2, -34.1, 18.9, 92901.369837, 135.949020531},
        {89.9, 0, 89.9, 90, 15795.909901, 45.000043633},
        {50, 0, 60, 0, 1113225.777806, 0},
        {57, 2, 57, 2.00001, 0.607722, 89.999995807},
    };
    for (const Leg& leg : legs) {
        Read(kHead + "<trk><trkseg>" + Point("trkpt", leg.lat1, leg.lon1, "<time>2020-05-01T00:00:00Z</time>") +
             Point("trkpt", leg.lat2, leg.lon2, "<time>2020-05-01T00:01:40Z</time>") + "</trkseg></trk></gpx>");
        const GpxPoint& first = gpx.tracks.at(0).points.at(0);
        const GpxPoint& second = gpx.tracks[0].points.at(1);
        EXPECT_NEAR(first.legDistance, leg.metres, 2e-5 + 2e-9 * leg.metres) << leg.lat1;
        EXPECT_NEAR(first.legBearing, leg.bearing, 2e-5 / leg.metres + 1e-7) << leg.lat1;
        EXPECT_NEAR(first.legSpeed, leg.metres / 100, 1e-4);
        EXPECT_EQ(second.totalDistance, first.legDistance);
        EXPECT_EQ(second.totalTime, 100);
        EXPECT_EQ(second.averageSpeed, first.legSpeed);
        EXPECT_EQ(second.legDistance, 0);
    }
}

TEST_F(GpxTest, TracksSegmentsRoutesWaypointsInBothVersions) {
    Read(
        "\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-8'?><g:gpx version='1.0' xmlns:g='x'>"
        "<g:wpt lat='57' lon='2'><g:name>Bo\xC3\xAF\nA=B</g:name></g:wpt><g:wpt lat='57' lon='2e0'/>"
        "<g:rte><g:rtept lat='1' lon='2'/></g:rte>"
        "<g:trk><g:name/><g:trkseg><g:trkpt lat='1' lon='181'/><g:trkpt lon='2'/></g:trkseg><g:trkseg/>"
        "<g:trkseg><g:trkpt lat='1' lon='2'><g:time>soon</g:time></g:trkpt><g:trkpt lat='1' lon='3'/></g:trkseg>"
        "<g:trkseg><g:trkpt lat='1' lon='4'/></g:trkseg></g:trk></g:gpx>");
    ASSERT_TRUE(loaded);
    ASSERT_EQ(gpx.tracks.size(), 2u);
    EXPECT_EQ(gpx.tracks[0].name + ", " + gpx.tracks[1].name, "Track 1, Route 1");
    EXPECT_EQ(gpx.tracks[0].points.size(), 3u);
    EXPECT_EQ(gpx.tracks[0].segments, (std::vector<std::uint32_t>{0, 2})) << "an empty segment leaves no gap";
    ASSERT_EQ(gpx.waypoints.size(), 2u);
    EXPECT_EQ(gpx.waypoints[0].name + ", " + gpx.waypoints[1].name, "Bo\xEF A=B, Waypoint 2");
    EXPECT_EQ(gpx.GetReport().passedOver, 2u);
    EXPECT_EQ(gpx.GetReport().firstPassed, 2u);
    EXPECT_EQ(gpx.GetReport().badTimes, 1u);

    // The choices outlive the file's next reading; a name with a "=" is no trouble.
    gpx.waypoints[0].show = false;
    gpx.tracks[1].show = false;
    gpx.WriteShowFile();
    EXPECT_EQ(drives.Read("C:\\Jobs\\day.INI"),
              "Waypoints = 1\r\nBo\xEF A B = 0\r\nWaypoint 2 = 1\r\nTrack 1 = 1\r\nRoute 1 = 0\r\n");
    gpx.trackColour = 0x123456;
    gpx.showDots = true;
    gpx.WriteSettings();
    CGPX next(drives.Files());
    next.ReadSettings();
    EXPECT_FALSE(next.waypoints.at(0).show);
    EXPECT_TRUE(next.waypoints[1].show);
    EXPECT_FALSE(next.tracks.at(1).show);
    EXPECT_EQ(next.trackColour, 0x123456u);
    EXPECT_TRUE(next.showDots);
}

TEST_F(GpxTest, WhatBreaksOffIsTakenAsFarAsItGoes) {
    Read(kHead + "\n<trk><trkseg>" + Point("trkpt", 1, 2) + "<trkpt lat='1'");
    EXPECT_TRUE(loaded);
    EXPECT_EQ(gpx.tracks.at(0).points.size(), 1u);
    EXPECT_EQ(gpx.GetReport().fault.substr(0, 7), "line 2:");
    for (const char* const none : {"", "no xml", "<kml/>", "<gpx"}) {
        Read(none);
        EXPECT_FALSE(loaded) << none;
        EXPECT_FALSE(gpx.GetReport().fault.empty());
    }
    EXPECT_FALSE(gpx.Load("C:\\Jobs\\none.gpx"));
    const std::string latin = "<?xml version='1.0' encoding='ISO-8859-1'?><gpx><wpt lat='1' lon='2'><name>\xD8</name>";
    EXPECT_EQ(Read(latin + "</wpt></gpx>").waypoints.at(0).name, "\xD8");
}

TEST_F(GpxTest, EverySampleIsRead) {
    const std::filesystem::path folder = QUILLON_SHARED_DATA "/samples/gpx";
    if (!std::filesystem::is_directory(folder)) GTEST_SKIP() << "no samples";
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".gpx") continue;
        SCOPED_TRACE(entry.path().filename().string());
        EXPECT_TRUE(gpx.Load(entry.path().string()));
        EXPECT_EQ(gpx.GetReport().fault, "");
        EXPECT_EQ(gpx.GetReport().passedOver + gpx.GetReport().badTimes, 0u);
        EXPECT_FALSE(gpx.tracks.empty() && gpx.waypoints.empty());
    }
}

}  // namespace
}  // namespace quillon
