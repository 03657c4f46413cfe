#include "features/grid_waypoint.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/scratch_drives.h"

namespace quillon {
namespace {

constexpr std::string_view kPath = "C:\\Job\\Wrecks 1.csv";

bool operator==(const GridWaypointDef& a, const GridWaypointDef& b) {
    return a.easting == b.easting && a.northing == b.northing && a.height == b.height && a.name == b.name &&
           a.radius == b.radius;
}

class GridWaypointTest : public testing::Test {
protected:
    GridWaypointDef Only(int order, std::string_view line) {
        drives.Write(kPath, line);
        waypoints.dataOrder = order;
        EXPECT_TRUE(waypoints.ReadData(kPath)) << line;
        EXPECT_EQ(waypoints.GetSize(), 1) << line;
        return waypoints.IsEmpty() ? GridWaypointDef() : waypoints[0];
    }

    ScratchDrives drives;
    CGridWaypoint waypoints{drives};
};

TEST_F(GridWaypointTest, TakesTheFieldsOfEveryOrder) {
    struct Case {
        int order;
        const char* text;
        const char* line;
        GridWaypointDef expected;
    };
    const double none = MISSING_VALUE;
    for (const Case& c : std::vector<Case>{
             {0, "Eng, Nng, Ht, Name", "1.5,2.5,-3.5,Wreck A", {1.5, 2.5, -3.5, "Wreck A", 0}},
             {1, "Name, Eng, Nng, Ht", "Wreck A,1.5,2.5,-3.5", {1.5, 2.5, -3.5, "Wreck A", 0}},
             {2, "Eng, Nng, Name", "1.5,2.5,Wreck A", {1.5, 2.5, 0, "Wreck A", 0}},
             {3, "Name, Eng, Nng", "Wreck A,1.5,2.5", {1.5, 2.5, 0, "Wreck A", 0}},
             {4, "Eng, Nng, Ht", "1.5,2.5,-3.5", {1.5, 2.5, -3.5, "Wpt 1", 0}},
             {5, "Eng, Nng", "1.5,2.5", {1.5, 2.5, 0, "Wpt 1", 0}},
             {6, "Eng, Nng, Radius", "1.5,2.5,50", {1.5, 2.5, 0, "Wpt 1", 50}},
             {7, "Eng, Nng, Ht, Radius", "1.5,2.5,-3.5,50", {1.5, 2.5, -3.5, "Wpt 1", 50}},
             {8, "Name, Eng, Nng, Radius", "Wreck A,1.5,2.5,50", {1.5, 2.5, 0, "Wreck A", 50}},
             {9, "Name, Eng, Nng, Ht, Radius", "Wreck A,1.5,2.5,-3.5,50", {1.5, 2.5, -3.5, "Wreck A", 50}},
             // Semicolons are commas; line ends and blanks are no part of a name.
             {2, "Eng, Nng, Name", "1.5;2.5; Wreck A \r\n", {1.5, 2.5, 0, "Wreck A", 0}},
             // Quoted text is taken whole, but for its semicolons.
             {3, "Name, Eng, Nng", "\"Wreck A, bow; stern\",1.5,2.5", {1.5, 2.5, 0, "Wreck A, bow, stern", 0}},
             // A height that is missing is 0, a radius stays missing.
             {0, "Eng, Nng, Ht, Name", "1.5,2.5,,A", {1.5, 2.5, 0, "A", 0}},
             {4, "Eng, Nng, Ht", "1.5,2.5", {1.5, 2.5, 0, "Wpt 1", 0}},
             {6, "Eng, Nng, Radius", "1.5,2.5", {1.5, 2.5, 0, "Wpt 1", none}},
             {9, "Name, Eng, Nng, Ht, Radius", "A,1.5,2.5,?,?", {1.5, 2.5, 0, "A", none}}}) {
        const GridWaypointDef point = Only(c.order, c.line);
        EXPECT_TRUE(point == c.expected) << c.order << ": " << c.line << " gave " << point.name << ", " << point.height
                                         << ", " << point.radius;
        EXPECT_EQ(waypoints.Order().text, c.text);
    }
    waypoints.dataOrder = 10;
    EXPECT_EQ(waypoints.Order().text, "Eng, Nng, Ht, Name");
}

TEST_F(GridWaypointTest, AFileThatCannotBeOpenedTakesOnlyThePoints) {
    Only(5, "1,2");
    waypoints.clearance = 77;
    EXPECT_FALSE(waypoints.Read("C:\\Job\\None.csv"));
    EXPECT_TRUE(waypoints.IsEmpty());
    EXPECT_EQ(waypoints.GetPath(), kPath);
    EXPECT_EQ(waypoints.clearance, 77.0);
    EXPECT_EQ(waypoints.dataOrder, 5);
}

// Files of one name share their settings, whatever their folder.
TEST_F(GridWaypointTest, ReadsBySettingsOfItsName) {
    Only(8, "A,1.5,2.5,50");
    waypoints.SaveSettings();
    drives.Write("D:\\Other\\Wrecks 1.txt", "B,3,4,5\r\n");
    CGridWaypoint other(drives);
    EXPECT_TRUE(other.Read("D:\\Other\\Wrecks 1.txt"));
    EXPECT_EQ(other.dataOrder, 8);
    EXPECT_EQ(other[0].name, "B");
    other.SetPoint(0, 1, 2, 3, "C", 4);
    EXPECT_TRUE(other[0] == (GridWaypointDef{1, 2, 3, "C", 4}));
    EXPECT_THROW(other.SetPoint(1, 1, 2, 3, "C", 4), InvalidArgument);
}

}  // namespace
}  // namespace quillon
