#include "features/route.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "support/scratch_drives.h"

namespace quillon {
namespace {

constexpr std::string_view kPath = "C:\\Job\\Leg 7.txt";
constexpr std::string_view kOrderFile = "C:\\MySettings\\Host\\Leg_7_DATA_ORDER.INI";
constexpr std::string_view kThree = "500000,6000000\r\n500300,6000400\r\n500300,6001400\r\n";

class RouteTest : public testing::Test {
protected:
    RouteTest() { drives.MakeFolder("C:\\MyData"); }
    bool Read(int order, std::string_view bytes) {
        drives.Write(kPath, bytes);
        SaveDataOrder(drives, "Leg 7", order);
        return route.Read(kPath);
    }

    ScratchDrives drives;
    CRoute route{drives};
};

TEST_F(RouteTest, KnowsItsLegs) {
    ASSERT_TRUE(Read(0, kThree));
    ASSERT_EQ(route.GetSize(), 3);
    EXPECT_DOUBLE_EQ(route[0].range, 500.0);
    EXPECT_DOUBLE_EQ(route[0].bearing, std::atan2(3.0, 4.0));
    EXPECT_DOUBLE_EQ(route[0].sine, 0.6);
    EXPECT_DOUBLE_EQ(route[0].cosine, 0.8);
    EXPECT_DOUBLE_EQ(route[0].reverseBearing, std::atan2(3.0, 4.0) + std::numbers::pi);
    EXPECT_DOUBLE_EQ(route[0].kpScale, 0.001);
    EXPECT_EQ(route[0].kp, 0.0);
    EXPECT_DOUBLE_EQ(route[1].kp, 500.0);
    EXPECT_DOUBLE_EQ(route[2].kp, 1500.0);
    EXPECT_EQ(route[2].range, 0.0);
    EXPECT_EQ(route[2].kpScale, 0.0);
    EXPECT_EQ(route[2].name, "WPT 3");
    EXPECT_EQ(route.firstWork, -2);
    EXPECT_EQ(route.secondWork, -1);
    // A leg of no length.
    ASSERT_TRUE(Read(0, "5,5\n5,5\n5,9\n"));
    EXPECT_EQ(route[0].range, 0.0);
    EXPECT_EQ(route[0].bearing, 0.0);
    EXPECT_EQ(route[0].kpScale, 1.0);
    EXPECT_EQ(route[2].kp, 4.0);
}

TEST_F(RouteTest, NamesPointsByTheUsableLines) {
    Read(0, "text\r\n1,2\r\n0,0\r\n3,4\r\n");
    ASSERT_EQ(route.GetSize(), 2);
    EXPECT_EQ(route[1].name, "WPT 2");
    Read(1, "\"A, first\",1,2\r\n,3,4\r\nthird,5\r\n");
    ASSERT_EQ(route.GetSize(), 2);
    EXPECT_EQ(route[0].name, "A, first");
    EXPECT_EQ(route[1].name, "");
    Read(2, "1,2, End of line\r\n3,4\r\n");
    EXPECT_EQ(route[0].name, "End of line");
    EXPECT_EQ(route[1].name, "");
}

// What follows the last point takes nothing from it.
TEST_F(RouteTest, TakesAllPointsBeforeLinesOfNoUse) {
    for (const char* tail : {"", "\r\n", "\r\n\r\n  \r\n", "end\r\n", "0,0\r\n"}) {
        Read(0, std::string(kThree) + tail);
        EXPECT_EQ(route.GetSize(), 3) << tail;
    }
}

TEST_F(RouteTest, ComesBackAsItWasSaved) {
    struct Case {
        int order;
        const char* given;
        const char* saved;
    };
    for (const Case& c : {Case{0, "E 500000 N 6000000\nnothing\n500100.12345 6000100\n\n",
                               "500000.000, 6000000.000\r\n500100.123, 6000100.000\r\n"},
                          Case{1, "Start,500000,6000000\n\"A, B\",1.5,2.5\n,3,4",
                               "Start, 500000.000, 6000000.000\r\n"
                               "A\xAB"
                               "COMMA>\xBB B, 1.500, 2.500\r\n , 3.000, 4.000\r\n"},
                          Case{2, "500000,6000000,Start\n1.5,2.5,\"A, B\"\n3,4\n",
                               "500000.000, 6000000.000, Start\r\n"
                               "1.500, 2.500, A\xAB"
                               "COMMA>\xBB B\r\n3.000, 4.000, \r\n"}}) {
        ASSERT_TRUE(Read(c.order, c.given));
        const std::vector<RouteDef> before(route.begin(), route.end());
        EXPECT_TRUE(route.SaveRoute());
        EXPECT_EQ(drives.Read(kPath), c.saved);
        EXPECT_EQ(drives.Read(kOrderFile), "Data Order = " + std::to_string(c.order) + "\r\n");
        EXPECT_EQ(drives.Read("C:\\Job\\Leg 7.INI"), "Status = 1\r\nHighlight = 0\r\n");
        ASSERT_TRUE(route.Read(kPath));
        ASSERT_EQ(route.GetSize(), static_cast<CRoute::Index>(before.size()));
        for (CRoute::Index i = 0; i < route.GetSize(); ++i) {
            const RouteDef& was = before[static_cast<std::size_t>(i)];
            EXPECT_EQ(route[i].name, was.name);
            EXPECT_NEAR(route[i].position.x, was.position.x, 0.0005);
            EXPECT_NEAR(route[i].position.y, was.position.y, 0.0005);
        }
    }
}

// What a file holds that gave no point isn't the route's to replace.
TEST_F(RouteTest, NeverRewritesAFileOfNoUse) {
    constexpr std::string_view kText = "Minutes of the meeting\r\n";
    drives.Write(kPath, kText);
    CRouteList routes(drives);
    routes.SetSettingsName("Route List");
    EXPECT_TRUE(routes.Add(kPath));
    EXPECT_TRUE(routes.Add("C:\\Job\\None.txt"));
    ASSERT_EQ(routes.GetCount(), 2);
    for (int i = 0; i < 2; ++i) {
        ASSERT_EQ(routes[i].GetSize(), 1);
        EXPECT_EQ(routes[i][0].position, tagXY());
        EXPECT_EQ(routes[i][0].name, "");
        EXPECT_FALSE(routes[i].SaveRoute());
    }
    EXPECT_EQ(drives.Read(kPath), kText);
    EXPECT_FALSE(drives.Exists("C:\\Job\\None.txt"));
    EXPECT_EQ(drives.Read(kOrderFile), "Data Order = 0\r\n");
    // Nor one that can't be read in the order chosen.
    ASSERT_TRUE(Read(0, kThree));
    route.dataOrder = 1;
    EXPECT_FALSE(route.ReadPoints());
    EXPECT_FALSE(route.SaveRoute());
    EXPECT_EQ(drives.Read(kPath), kThree);
    EXPECT_EQ(drives.Read("C:\\MySettings\\Host\\Route_List.FLS"),
              "[Route]\r\nC:\\Job\\Leg 7.txt\r\nC:\\Job\\None.txt\r\n");
}

TEST_F(RouteTest, StepsItsArcsInTheCoordinateList) {
    EXPECT_TRUE(Read(0, "0,1\n"));
    EXPECT_FALSE(route.WriteCoordinateList());
    ASSERT_TRUE(Read(0, "0,1\n0,1000\n1000,1000\n1000,2000\n"));
    EXPECT_TRUE(route.WriteCoordinateList());
    EXPECT_EQ(drives.Read("C:\\MyData\\Routes\\Leg 7_CoordList.CSV"),
              "0.000, 1.000\r\n0.000, 1000.000\r\n1000.000, 1000.000\r\n1000.000, 2000.000\r\n");
    // A quarter to starboard about (100, 900), then one to port about (900, 1100).
    const double quarter = std::numbers::pi / 2;
    const auto curve = [&](CRoute::Index i, tagXY centre, tagXY start, tagXY end, double radial,
                           std::int32_t direction) {
        route[i].radius = 100;
        route[i].centre = centre;
        route[i].curveStart = start;
        route[i].curveEnd = end;
        route[i].startRadial = radial;
        route[i].sweep = quarter;
        route[i].direction = direction;
    };
    curve(1, {100, 900}, {0, 900}, {100, 1000}, 3 * quarter, 1);
    curve(2, {900, 1100}, {900, 1000}, {1000, 1100}, 2 * quarter, -1);
    EXPECT_TRUE(route.WriteCoordinateList());
    CRoute list(drives);
    ASSERT_TRUE(list.Read("C:\\MyData\\Routes\\Leg 7_CoordList.CSV"));
    const auto steps = static_cast<CRoute::Index>(std::ceil(quarter / std::acos(0.99)));
    ASSERT_EQ(list.GetSize(), 2 + 2 * (2 + steps));
    for (CRoute::Index i = 1; i + 1 < list.GetSize(); ++i) {
        const tagXY centre = i <= steps + 2 ? route[1].centre : route[2].centre;
        const tagXY at = list[i].position;
        EXPECT_NEAR(std::hypot(at.x - centre.x, at.y - centre.y), 100, 0.001);
        // Eastwards and northwards all the way: the arcs run from their start to their end.
        EXPECT_GE(at.x, list[i - 1].position.x - 0.0005);
        EXPECT_GE(at.y, list[i - 1].position.y - 0.0005);
    }
    EXPECT_EQ(list[2 + steps].position, (tagXY{100, 1000}));
    EXPECT_EQ(list[3 + steps].position, (tagXY{900, 1000}));
}

}  // namespace
}  // namespace quillon
