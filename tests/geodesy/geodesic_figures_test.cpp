#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <sstream>
#include <string>

#include "foundation/angle_units.h"
#include "geodesy/ellipsoid.h"

namespace quillon {
namespace {

/// What Rudoe's formula is good for: it runs along the normal section's great ellipse, which parts from the geodesic as
/// the range grows.
double Tolerance(double range) {
    if (range <= 1000.5e3) return 1e-6 + 1e-9 * range;
    if (range <= 2000.5e3) return 0.005;
    if (range <= 5000.5e3) return 0.3;
    return 10;
}

TEST(GeodesicFigures, DistanceKeepsItsAccuracyWithRange) {
    std::ifstream figures(QUILLON_TEST_DATA "/geodesy/geodesics.txt");
    CEllipsoid wgs84;
    wgs84.SetEllipsoid(CEllipsoid::kWgs84);
    int compared = 0;
    for (std::string line; std::getline(figures, line);) {
        std::istringstream fields(line);
        double lat1, lon1, lat2, lon2, metres;
        if (!(fields >> lat1 >> lon1 >> lat2 >> lon2 >> metres)) continue;
        double distance = 0;
        ASSERT_TRUE(wgs84.Distance(lat1 * kRadiansPerDegree, lon1 * kRadiansPerDegree, lat2 * kRadiansPerDegree,
                                   lon2 * kRadiansPerDegree, &distance));
        EXPECT_NEAR(distance, metres, Tolerance(metres)) << line;
        ++compared;
    }
    EXPECT_EQ(compared, 324);
}

}  // namespace
}  // namespace quillon
