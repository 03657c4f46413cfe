#include "target/outline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>

#include "support/scratch_drives.h"
#include "target/barge.h"
#include "target/seabed_template.h"

namespace quillon {
namespace {

/// The lines of a text without their ends.
std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0, end; (end = text.find("\r\n", at)) != std::string::npos; at = end + 2) {
        lines.push_back(text.substr(at, end - at));
    }
    return lines;
}

/// Those with a key: not the heads and points of sections.
std::vector<std::string> KeyLines(const std::string& text) {
    std::vector<std::string> lines = LinesOf(text);
    std::erase_if(lines, [](const std::string& line) { return line.front() == '[' || line.front() == '"'; });
    return lines;
}

constexpr const char* kVessel =
    "Draft = 6.500\r\nWater Line To Zero = 1.250\r\nActive = 0\r\nPrimary GPS = 1\r\nPrimary MRU = 3\r\n"
    "Trk Pt Type = 4\r\nTrk Pt No = 5\r\nTrk Pt Symbol Size = 7\r\nWaypoint File Index = 8\r\nWaypoint no = 9\r\n"
    "Waypoint Colour = 11\r\nEnable Trail = 1\r\nShow Trail = 1\r\nTrail Colour = 12\r\nMax Trail Size = 13\r\n"
    "Show = 0\r\nOutline File = C:\\Shapes\\hull.txt\r\nOutline Colour = 14\r\nOutline Size = 15\r\n"
    "Outline Style = 16\r\nOutline Fill = 17\r\nShadow Colour = 18\r\nShadow Size = 19\r\nShadow Style = 20\r\n"
    "Shadow Fill = 21\r\nLength A = 50.125\r\nLength B = 40.250\r\nWidth A = 12.500\r\nWidth B = 11.750\r\n"
    "True Alignment = 123.456\r\nNorth Up = 0\r\nNautical Miles = 1\r\nDisplay Labels = 0\r\nLabel Rings = 0\r\n"
    "Cardinal Colour = 22\r\nText Colour = 23\r\nDraw Zone Lines = 1\r\nStart Zone Line = 24.500\r\n"
    "Stop Zone Line = 25.500\r\nZone Line Colour = 26\r\nShape Box = 1\r\nBox Size X = 27.500\r\n"
    "Box Size Y = 28.500\r\nDraw Rings = 0\r\nNo Rings = 4\r\nRadius Metres = 29.500\r\nBox Size Y = 30.500\r\n"
    "Ring Colour = 31\r\n"
    "[Antenna]\r\n\"Bow = mast\", 1, 1.250, -2.500, 30.000, 123456789, 4, 5, 6, 7.125, 8.250\r\n"
    "\"Stern\", 0, 0.000, 0.000, 0.000, 0, 0, 0, 0, 0.000, 0.000\r\n"
    "Heading Tolerance = 32.500\r\nPitch Tolerance = 33.500\r\nRoll Tolerance = 34.500\r\n"
    "Depth Tolerance = 35.500\r\nSailLine File Index = 36\r\nSailLine no = 37\r\nSail Line Colour = 38\r\n"
    "Use = 0\r\nShow Text = 0\r\nScale = 2.500\r\n"
    "[Cranes]\r\n\"Main\", 0, 9.000, 10.000, 11.000, 0, 0, 0, 0, 0.000, 0.000\r\n"
    "[Transducers]\r\n\"MBES\", 1, 0.100, 0.200, -5.300, 0, 0, 0, 0, 0.000, 0.000\r\n";

class OutlineTest : public testing::Test {
protected:
    OutlineTest() { drives.MakeFolder("C:\\MyData\\Vessel"); }

    std::string SavedAfterReading(const std::string& bytes) {
        drives.Write(kPath, bytes);
        CBarge barge(drives.Files());
        barge.name = "Survey";
        SectionFile file(drives.Files());
        EXPECT_TRUE(file.OpenForReading(kPath));
        barge.ReadFrom(file);
        EXPECT_TRUE(barge.Save());
        return drives.Read(kPath);
    }

    static constexpr const char* kPath = "C:\\MyData\\Vessel\\Survey.VSL";
    ScratchDrives drives;
};

TEST_F(OutlineTest, AFileReadsBackAsItWasWrittenAndCutAnywhereGivesDefaultsForTheRest) {
    EXPECT_EQ(SavedAfterReading(kVessel), kVessel);
    const std::vector<std::string> lines = LinesOf(kVessel);
    const std::vector<std::string> keys = KeyLines(kVessel);
    const std::vector<std::string> defaults = KeyLines(SavedAfterReading(""));
    ASSERT_EQ(keys.size(), defaults.size());
    for (std::size_t i = 0; i < keys.size(); ++i) EXPECT_NE(keys[i], defaults[i]) << "tells nothing";
    std::string cut;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::vector<std::string> kept = KeyLines(cut);
        std::vector<std::string> expected = defaults;
        std::copy(kept.begin(), kept.end(), expected.begin());
        EXPECT_EQ(KeyLines(SavedAfterReading(cut)), expected) << "cut before " << lines[i];
        cut += lines[i] + "\r\n";
    }
}

TEST_F(OutlineTest, ATemplateHasSectionsOfItsOwn) {
    CTemplate object(drives.Files());
    object.name = "Well";
    object.reflectors = {{.name = "R1", .x = 1}};
    object.beacons = {{.name = "B1", .y = 2}, {.name = "B2"}};
    ASSERT_TRUE(object.Save());
    const std::string bytes = drives.Read("C:\\MyData\\Vessel\\Well.TPL");
    EXPECT_NE(bytes.find("[Reflectos]\r\n\"R1\""), std::string::npos);
    CTemplate read(drives.Files());
    ASSERT_TRUE(read.Load("Well"));
    EXPECT_EQ(read.beacons, object.beacons);
    EXPECT_EQ(read.reflectors, object.reflectors);
    EXPECT_EQ(read.OffsetAt(TRACK_LEG, 0), nullptr);
    EXPECT_EQ(read.OffsetAt(TRACK_BEACON, 1)->name, "B2");
    EXPECT_EQ(read.OffsetAt(TRACK_BEACON, 2), nullptr);
    EXPECT_EQ(read.OffsetCount(TRACK_REFERENCE), 0);
}

// Turned by complex numbers, which know neither sines nor signs of this code.
TEST_F(OutlineTest, TrackedPointAndBoxOverTheWholeCircle) {
    CBarge barge(drives.Files());
    barge.waypoint.easting = 500000;
    barge.waypoint.northing = 6000000;
    barge.target.boxX = 20;
    barge.target.boxY = 30.5;
    barge.convergence = 2;
    barge.trackType = TRACK_CRANE;
    barge.cranes = {{.name = "Main", .x = 10, .y = -25}};
    for (int degrees = 0; degrees <= 360; ++degrees) {
        barge.trueAlignment = degrees;
        barge.UpdateAlignment();
        barge.UpdateBox();
        barge.headingTolerance = degrees / 2.0;
        barge.UpdateZones();
        for (const auto& [zone, side] : {std::pair(barge.target.startZone, -1), {barge.target.stopZone, 1}}) {
            EXPECT_TRUE(zone >= 0 && zone <= 360) << degrees;
            EXPECT_NEAR(std::remainder(zone - (degrees - 2 + side * degrees / 2.0), 360), 0, 1e-9) << degrees;
        }
        const double turn = -(degrees - 2) * std::numbers::pi / 180;
        const auto turned = [&](double x, double y) { return std::complex(x, y) * std::polar(1.0, turn); };
        const tagXY tracked = barge.TrackedPosition();
        EXPECT_NEAR(tracked.x, 500000 + turned(-10, 25).real(), 1e-6) << degrees;
        EXPECT_NEAR(tracked.y, 6000000 + turned(-10, 25).imag(), 1e-6) << degrees;
        const tagXY crane = PlaceOnGrid(barge, tracked, {10, -25});
        EXPECT_NEAR(std::hypot(crane.x - 500000, crane.y - 6000000), 0, 1e-6) << "on the waypoint";
        const double corners[4][2] = {{20, 30.5}, {20, -30.5}, {-20, -30.5}, {-20, 30.5}};
        for (std::size_t i = 0; i < 4; ++i) {
            const std::complex<double> corner = turned(corners[i][0], corners[i][1]);
            const double east = barge.target.box[i].x - 500000, north = barge.target.box[i].y - 6000000;
            EXPECT_EQ(east, std::trunc(east));
            EXPECT_LE(std::abs(east), std::abs(corner.real()) + 1e-6);
            EXPECT_NEAR(east, corner.real(), 1) << degrees << " corner " << i;
            EXPECT_NEAR(north, corner.imag(), 1) << degrees << " corner " << i;
        }
    }
}

TEST_F(OutlineTest, AlignmentsAndZones) {
    struct Row {
        double trueAlignment, convergence, tolerance, grid, start, stop;
    };
    for (const Row& row : {Row{0, 2, 20, 358, 338, 18},
                           {10, 0, 20, 10, 350, 30},
                           {350, 0, 20, 350, 330, 10},
                           {360, 0, 0, 360, 360, 360},
                           {90, -1.5, 5, 91.5, 86.5, 96.5}}) {
        CBarge barge(drives.Files());
        barge.trueAlignment = row.trueAlignment;
        barge.convergence = row.convergence;
        barge.headingTolerance = row.tolerance;
        barge.UpdateAlignment();
        barge.UpdateZones();
        EXPECT_DOUBLE_EQ(barge.gridAlignment, row.grid);
        EXPECT_DOUBLE_EQ(barge.target.startZone, row.start);
        EXPECT_DOUBLE_EQ(barge.target.stopZone, row.stop);
    }
    CBarge none(drives.Files());
    none.trueAlignment = -1;
    none.UpdateAlignment();
    none.UpdateBox();
    EXPECT_EQ(none.target.box, (std::array<tagXY, 4>{}));
}

TEST_F(OutlineTest, TargetsAreClampedToWhatIsThere) {
    drives.Write("C:\\Jobs\\a.csv", "1000,2000,0,First\r\n1100,2100,0,Second\r\n");
    drives.Write("C:\\Jobs\\b.csv", "3000,4000,7,Third\r\n");
    drives.Write("C:\\Jobs\\lines.csv", "0,10,0,20\r\n500,600,500,600\r\n");
    CGridWaypointList waypoints(drives.Files());
    waypoints.Add("C:\\Jobs\\a.csv");
    waypoints.Add("C:\\Jobs\\b.csv");
    CSailLineList lines(drives.Files());
    lines.Add("C:\\Jobs\\lines.csv");
    CBarge barge(drives.Files());
    barge.SetWaypoint(0, 0);
    EXPECT_FALSE(barge.waypointValid) << "without a list";
    barge.waypointFiles = &waypoints;
    barge.sailLineFiles = &lines;
    barge.SetWaypoint(5, 3);
    EXPECT_EQ(barge.waypointFileIndex, 1);
    EXPECT_EQ(barge.waypointIndex, 0);
    EXPECT_EQ(barge.waypoint.name, "Third");
    EXPECT_EQ(barge.WaypointFileName(), "b");
    EXPECT_EQ(barge.trackedPosition, tagXY()) << "the tracked point is its caller's affair";
    barge.SetWaypoint(0, 1);
    barge.SetWaypoint(-1, -1);
    EXPECT_EQ(barge.waypoint.name, "Second") << "negative keeps what is held";
    EXPECT_EQ(barge.TrackedName(), "n/a");
    barge.antennas = {{.name = "Bow"}};
    EXPECT_EQ(barge.TrackedName(), "CRP - Bow");
    barge.trackType = TRACK_ANTENNA;
    EXPECT_EQ(barge.TrackedName(), "Bow");
    barge.SetSailLine(0, 0);
    EXPECT_TRUE(barge.sailLineValid);
    barge.SetSailLine(0, 9);
    EXPECT_EQ(barge.sailLineIndex, 1);
    EXPECT_FALSE(barge.sailLineValid) << "both ends are the same";
}

TEST_F(OutlineTest, OutlinesAreMovesAndLines) {
    drives.Write("C:\\Shapes\\hull.txt", "M, -5, 0\r\nL 5, 0\r\n0 20\r\nremark\r\n\r\n1, 1\r\nl,2,2\r\n");
    CStdioFile file(drives.Files());
    ASSERT_TRUE(file.OpenForReading("C:\\Shapes\\hull.txt"));
    ReadReport report;
    const std::vector<OutlinePoint> points = ReadOutlineText(file, &report);
    const std::vector<OutlinePoint> expected = {
        {false, {-5, 0}}, {true, {5, 0}}, {true, {0, 20}}, {false, {1, 1}}, {true, {2, 2}}};
    EXPECT_EQ(points, expected);
    EXPECT_EQ(report.passedOver, 1u);
}

}  // namespace
}  // namespace quillon
