#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commands/cli_run.h"

namespace quillon {
namespace {

TEST(ShowGpx, TracksAndWaypointsInTheUnitsOfTheRecord) {
    ScratchDrives drives;
    drives.Write("C:\\Job\\day.gpx",
                 "<gpx><wpt lat='57.29577951' lon='0'><name>Buoy</name></wpt><trk><name>Run</name><trkseg>"
                 "<trkpt lat='0' lon='0'><time>2000-01-02T00:00:10Z</time></trkpt>"
                 "<trkpt lat='0' lon='1'><time>2000-01-02T01:00:10Z</time></trkpt><trkpt lat='x' lon='1'/>"
                 "</trkseg></trk></gpx>");
    const CliOutcome json = RunOn(drives, {"show", "gpx", "C:\\Job\\day.gpx", "--json"});
    for (const char* const part : {"\"name\":\"Run\"", "\"leg_distance\":111319.4907", "\"leg_bearing\":90",
                                   "\"time\":10", "\"total_time\":3600", "\"waypoints\":[{"}) {
        std::string out = json.out;
        std::erase(out, ' ');
        std::erase(out, '\n');
        EXPECT_THAT(out, testing::HasSubstr(part)) << json.out;
    }
    EXPECT_THAT(json.err, testing::HasSubstr("1 points without a position, the first on line 1"));
    EXPECT_THAT(RunOn(drives, {"show", "gpx", "C:\\Job\\day.gpx"}).out, testing::HasSubstr("Buoy"));
    drives.Write("C:\\Job\\no.gpx", "<kml/>");
    EXPECT_EQ(RunOn(drives, {"show", "gpx", "C:\\Job\\no.gpx"}).code, CLI_USELESS);
}

}  // namespace
}  // namespace quillon
