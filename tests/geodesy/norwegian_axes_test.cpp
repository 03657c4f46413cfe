#include "geodesy/norwegian_axes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "geodesy/grid.h"

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
        const tagNorwegian position = NorwegianFromUtm(32, 5, c.easting, c.northing);
        EXPECT_EQ(position.axis, c.axis) << c.easting << ' ' << c.northing;
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
        const tagNorwegian position = NorwegianFromUtm(32, 2, far, far);
        EXPECT_EQ(position.X, 0) << far;
        EXPECT_EQ(position.Y, 0) << far;
        EXPECT_EQ(position.axis, 0) << far;
        EXPECT_FALSE(UtmFromNorwegian(32, 2, far, far)) << far;
    }
}

// The north-east of zone 32 takes the axis in force. In an array that is the one chosen, not that of the line before,
// which would lead thousands of kilometres away; without a choice there is no position.
TEST_F(NorwegianAxes, NoPositionOfAnArrayHangsOnAnother) {
    constexpr double kNorthEast[] = {64.86 * kDegree, 11.24 * kDegree};
    for (const int chosen : {0, 3}) {
        ASSERT_TRUE(grid.SetGrid(1, NORWEGIAN_AXES, chosen));
        const CGrid before = grid;
        double alone[2] = {-1, -1};
        grid.ForwardAlone(&alone[0], &alone[1], kNorthEast[0], kNorthEast[1]);
        EXPECT_EQ(grid.IsPosition(kNorthEast[0], kNorthEast[1], alone[0], alone[1]), chosen == 3);
        for (const double latBefore : {58.5, 60.0, 62.0, 64.0}) {  // axis I by the coast, II and III
            std::vector<double> lats(9, latBefore * kDegree), lons(9, (latBefore < 59 ? 6.5 : 9) * kDegree);
            lats[8] = kNorthEast[0];
            lons[8] = kNorthEast[1];
            grid.ForwardAll(lats, lons, lats, lons);
            EXPECT_NEAR(lats[8], alone[0], 1e-6) << latBefore;
            EXPECT_NEAR(lons[8], alone[1], 1e-6) << latBefore;
        }
        EXPECT_EQ(grid.axis, before.axis);
        EXPECT_EQ(grid.comment, before.comment);
    }
}

// There and back over the whole country: the settled form is the exact inverse of the polynomials, whatever part of it
// a position lies in. The published form is within a centimetre of it in one coordinate, and near it in the other.
TEST_F(NorwegianAxes, UtmComesBackFromEveryAxis) {
    int strays = 0, all = 0;
    for (const int utmZone : {32, 33, 35}) {
        for (double easting = 250000; easting <= 750000; easting += 7777) {
            for (double northing = 6.45e6; northing <= 7.9e6; northing += 7919) {
                const int chosen = utmZone == 32 ? 3 : utmZone == 33 ? 4 : 8;
                const tagNorwegian settled =
                    NorwegianFromUtm(utmZone, chosen, easting, northing, NORWEGIAN_END::SETTLED);
                ASSERT_NE(settled.axis, 0);
                const auto utm = UtmFromNorwegian(utmZone, settled.axis, settled.X, settled.Y);
                ASSERT_TRUE(utm) << utmZone << ' ' << easting << ' ' << northing;
                // Where two parts of the country overlap by their metre, either may answer.
                const double miss = std::hypot(utm->x - easting, utm->y - northing);
                EXPECT_LT(miss, 2.5) << utmZone << ' ' << easting << ' ' << northing;
                strays += miss > 1e-4;
                const tagNorwegian published = NorwegianFromUtm(utmZone, chosen, easting, northing);
                EXPECT_LT(std::min(std::fabs(published.X - settled.X), std::fabs(published.Y - settled.Y)), 0.02);
                all++;
            }
        }
    }
    EXPECT_LT(strays, all / 1000);
    EXPECT_FALSE(UtmFromNorwegian(32, 2, 0, 900000)) << "on no part of axis II";
    EXPECT_FALSE(UtmFromNorwegian(33, 9, 0, 0)) << "no such axis";
}

}  // namespace
}  // namespace quillon
