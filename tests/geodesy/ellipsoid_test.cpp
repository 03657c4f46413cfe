#include "geodesy/ellipsoid.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace quillon {
namespace {

constexpr double kDegree = 3.141592653589793 / 180;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

CEllipsoid Row(int index) {
    CEllipsoid ellipsoid;
    EXPECT_TRUE(ellipsoid.SetEllipsoid(index));
    return ellipsoid;
}

double Between(const CEllipsoid& ellipsoid, double lat1, double lon1, double lat2, double lon2) {
    double metres = -1;
    EXPECT_TRUE(ellipsoid.Distance(lat1 * kDegree, lon1 * kDegree, lat2 * kDegree, lon2 * kDegree, &metres));
    return metres;
}

std::vector<double> Derived(const CEllipsoid& s) {
    return {s.e2, s.e,  s.halfE, s.polarK, s.n,        s.oneMinusE2, s.ep2, s.onePlusEp2, s.A0,
            s.A2, s.A4, s.A6,    s.J1,     s.arcSlope, s.arcRadius,  s.J2,  s.J3,         s.J4};
}

TEST(Ellipsoid, DerivesPublishedConstants) {
    const CEllipsoid grs80 = Row(17);  // H. Moritz, Geodetic Reference System 1980, Journal of Geodesy 74, 2000
    EXPECT_NEAR(grs80.e2, 0.00669438002290, 5e-15);
    EXPECT_NEAR(grs80.ep2, 0.00673949677548, 5e-15);
    EXPECT_NEAR(grs80.n, 0.001679220394629, 5e-15);
    EXPECT_NEAR(grs80.MeridianArc(90 * kDegree), 10001965.7293, 2e-4);
    EXPECT_NEAR(grs80.MeridianArc(-90 * kDegree), -10001965.7293, 2e-4);
    EXPECT_EQ(grs80.MeridianArc(0), 0);
    // J. P. Snyder, USGS Professional Paper 1395, 1987, page 109: Clarke 1866 at 40 degrees.
    EXPECT_NEAR(Row(7).MeridianArc(40 * kDegree), 4429318.9, 0.05);
    // The slope of the arc at the equator is the meridional radius there; the fit of the pole is exact.
    EXPECT_NEAR(grs80.a * grs80.arcSlope, grs80.a * grs80.oneMinusE2, 0.01);
    EXPECT_NEAR(2 * grs80.a / grs80.polarK, 2 * 6399593.6259 * std::pow((1 - grs80.e) / (1 + grs80.e), grs80.halfE),
                1e-3);
}

TEST(Ellipsoid, ReplacesAFlatteningOutOfBounds) {
    const struct {
        double given, kept;
    } cases[] = {{289.9, 297}, {290, 290}, {310, 310}, {310.1, 297}, {0, 297}, {kNaN, 297}, {kInfinity, 297}};
    for (const auto& c : cases) {
        CEllipsoid ellipsoid = Row(7);
        ellipsoid.SetAxes(6378137.0, c.given);
        EXPECT_EQ(ellipsoid.rf, c.kept) << c.given;
        EXPECT_EQ(ellipsoid.b, (1 - 1 / c.kept) * 6378137.0);
        EXPECT_NEAR(ellipsoid.e2, 2 / c.kept - 1 / (c.kept * c.kept), 1e-16);
        EXPECT_EQ(ellipsoid.name, "Clarke 1866 Spheroid");
    }
}

TEST(Ellipsoid, SpheresHaveTheConstantsOfASphere) {
    for (const int index : {31, 39, 40, 44, 49, 51}) {
        const CEllipsoid sphere = Row(index);
        for (const double value : Derived(sphere)) EXPECT_TRUE(std::isfinite(value)) << index;
        EXPECT_EQ(sphere.e2, 0);
        EXPECT_EQ(sphere.polarK, 1);
        EXPECT_EQ(sphere.oneMinusE2, 1);
        EXPECT_DOUBLE_EQ(sphere.MeridianArc(1), sphere.a);
        EXPECT_EQ(Between(sphere, 50, 3, 51, 4), 0);
    }
}

TEST(Distance, MeetsThePublishedLine) {
    // Flinders Peak to Buninyong: GDA Technical Manual, ICSM.
    const double lat1 = -(37 + 57 / 60.0 + 3.72030 / 3600), lon1 = 144 + 25 / 60.0 + 29.52440 / 3600;
    const double lat2 = -(37 + 39 / 60.0 + 10.15610 / 3600), lon2 = 143 + 55 / 60.0 + 35.38390 / 3600;
    EXPECT_NEAR(Between(Row(17), lat1, lon1, lat2, lon2), 54972.271, 0.0005);
    EXPECT_NEAR(Between(Row(17), lat2, lon2, lat1, lon1), 54972.271, 0.0005);
}

TEST(Distance, OnTheEquatorKeepsTheSignOfTheShortWay) {
    const CEllipsoid wgs84 = Row(26);
    const double degree = wgs84.a * kDegree;
    EXPECT_NEAR(Between(wgs84, 0, 10, 0, 12), 2 * degree, 1e-6);
    EXPECT_NEAR(Between(wgs84, 0, 12, 0, 10), -2 * degree, 1e-6);
    EXPECT_NEAR(Between(wgs84, 0, 179, 0, -179), 2 * degree, 1e-6);
    EXPECT_NEAR(Between(wgs84, 0, -179, 0, 179), -2 * degree, 1e-6);
}

// Points where azimuths and arcs change their quadrant. A meridian is measured by its own series.
TEST(Distance, CrossesEveryQuadrant) {
    const CEllipsoid wgs84 = Row(26);
    const struct {
        const char* name;
        double lat1, lon1, lat2, lon2, metres;
    } cases[] = {
        {"the same point", 52, 3, 52, 3, 0},
        {"the same point of the equator", 0, 3, 0, 3, 0},
        {"north", 40, 7, 45, 7, wgs84.MeridianArc(45 * kDegree) - wgs84.MeridianArc(40 * kDegree)},
        {"south", 45, 7, 40, 7, wgs84.MeridianArc(45 * kDegree) - wgs84.MeridianArc(40 * kDegree)},
        {"north from the equator", 0, 7, 4, 7, wgs84.MeridianArc(4 * kDegree)},
        {"to the equator", 4, 7, 0, 7, wgs84.MeridianArc(4 * kDegree)},
        {"south across the equator", 2, 7, -2, 7, 2 * wgs84.MeridianArc(2 * kDegree)},
        // By Geodesic::Inverse of GeographicLib.
        {"east across 180", 10, 179.5, 12, -179, 275341.527065},
        {"west across 180", 12, -179, 10, 179.5, 275341.527065},
        {"off the equator", 0, 3, 1, 4, 156899.568291},
        {"back to the equator", 1, 4, 0, 3, 156899.568291},
        {"west off the equator", 0, 3, 1, 2, 156899.568291},
        {"to the pole", 80, 5, 90, 77, wgs84.MeridianArc(90 * kDegree) - wgs84.MeridianArc(80 * kDegree)},
    };
    for (const auto& c : cases) {
        EXPECT_NEAR(Between(wgs84, c.lat1, c.lon1, c.lat2, c.lon2), c.metres, 1e-6 + 1e-9 * c.metres) << c.name;
    }
}

// Rounding alone may put one of two such points behind the other; that must not become a way round the world.
TEST(Distance, OfPointsCloserThanRoundingStaysSmall) {
    const CEllipsoid wgs84 = Row(26);
    for (int i = -40; i <= 40; i++) {
        for (const double lat : {-0.9, 1e-9, 0.3, 1.2}) {
            double metres = -1;
            ASSERT_TRUE(wgs84.Distance(lat, 0.1, lat + i * 2e-17, 0.1 + i * 3e-17, &metres));
            EXPECT_GE(metres, 0);
            EXPECT_LT(metres, 1e-7);
        }
    }
}

}  // namespace
}  // namespace quillon
