#include "geodesy/norwegian_axes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quillon {
namespace {

constexpr double kDegree = 3.141592653589793 / 180;

struct NorwegianAxes : testing::Test {
    CEllipsoid ellipsoid;
    CGrid grid;
    double X = -1, Y = -1;

    NorwegianAxes() { Use(32, 0); }
    void Use(int utmZone, int axis) {
        ellipsoid.SetEllipsoid(20);
        grid.ellipsoid = &ellipsoid;
        grid.type = NORWEGIAN_AXES;
        grid.utmZone = utmZone;
        grid.axis = axis;
        grid.comment = "before";
        grid.SetOrigin(0, CGrid::ZoneCentralMeridian(utmZone), 500000, 0, 0.9996);
    }
    void At(double lat, double lon) { grid.Forward(&X, &Y, lat * kDegree, lon * kDegree); }
};

TEST_F(NorwegianAxes, MeetTheCheckPoint) {
    At(60, 9);
    EXPECT_NEAR(X, 222793.405, 0.0005);
    EXPECT_NEAR(Y, 34239.227, 0.0005);
    EXPECT_EQ(grid.axis, 2);
    EXPECT_EQ(grid.comment, "NGO (Axis II)");
}

// One position inside each part of the country: the strip and the limits decide on axis 1, 2 or 3. The last one keeps
// the grid's own.
TEST_F(NorwegianAxes, ThePositionChoosesTheAxis) {
    const struct {
        double easting, northing;
        int axis;
    } cases[] = {
        {399999, 6640000, 1}, {399999, 6700000, 1}, {300000, 6900000, 1}, {400000, 6530000, 2},
        {500000, 6600000, 2}, {500000, 6700000, 2}, {530000, 6800000, 2}, {450000, 7000000, 3},
        {530002, 6700000, 3}, {600000, 6800000, 3}, {600000, 7000000, 3}, {600000, 7100000, 5},
    };
    for (const auto& c : cases) {
        Use(32, 5);
        const tagNorwegian position = NorwegianFromUtm(grid, c.easting, c.northing);
        EXPECT_EQ(grid.axis, c.axis) << c.easting << ' ' << c.northing;
        EXPECT_TRUE(std::isfinite(position.X) && position.X != 0);
    }
}

TEST_F(NorwegianAxes, FromZone33OnTheOwnAxisServes) {
    const char* const names[] = {"NGO (Axis I)", "NGO (Axis II)", "NGO (Axis III)", "NGO (Axis IV)",
                                 "NGO (Axis V)", "NGO (Axis VI)", "NGO (Axis VII)", "NGO (Axis VIII)"};
    for (int axis = 1; axis <= 8; axis++) {
        Use(33, axis);
        At(68, 15);
        EXPECT_EQ(grid.axis, axis);
        EXPECT_EQ(grid.comment, names[axis - 1]);
        EXPECT_NE(X, 0);
    }
}

// Axis III lies between zones 32 and 33, so a place near its meridian has the same position by either road.
TEST_F(NorwegianAxes, NeighbouringAxesAgreeOnDistances) {
    Use(33, 4);
    At(66, 14);
    const double x = X, y = Y;
    At(66.01, 14);
    double metres = 0;
    ellipsoid.Distance(66 * kDegree, 14 * kDegree, 66.01 * kDegree, 14 * kDegree, &metres);
    EXPECT_NEAR(std::hypot(X - x, Y - y) / metres, 1, 1e-3);
}

TEST_F(NorwegianAxes, WithoutAnAxisThereIsNoPosition) {
    for (const int axis : {0, -1, 9}) {
        Use(33, axis);
        At(68, 15);
        EXPECT_EQ(X, 0);
        EXPECT_EQ(Y, 0);
        EXPECT_EQ(grid.axis, axis);
        EXPECT_EQ(grid.comment, "before");
    }
}

TEST_F(NorwegianAxes, FarAwayEndsWithoutAPosition) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double far : {1e14, -1e14, 1e200, kInfinity, kNaN}) {
        const tagNorwegian position = NorwegianFromUtm(grid, far, far);
        EXPECT_EQ(position.X, 0) << far;
        EXPECT_EQ(position.Y, 0) << far;
        EXPECT_EQ(grid.comment, "before");
    }
}

}  // namespace
}  // namespace quillon
