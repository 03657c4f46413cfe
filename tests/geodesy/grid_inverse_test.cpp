#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "foundation/angle_units.h"
#include "geodesy/batch.h"
#include "geodesy/catalogue/grid_row.h"
#include "geodesy/grid.h"
#include "geodesy/grid_figures.h"

namespace quillon {
namespace {

constexpr double kDegree = kRadiansPerDegree;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kRadius = 6.4e6;

class GridInverse : public testing::Test {
protected:
    GridInverse() { grid.ellipsoid = &ellipsoid; }
    void Choose(std::int32_t zone, std::int32_t type, std::int32_t subtype = 0) {
        ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
        ASSERT_TRUE(grid.SetGrid(zone, type, subtype));
    }
    /// Metres on the ground between a position and the one found for a grid position; -1 outside.
    double Miss(double lat, double lon, double easting, double northing) {
        double foundLat = 0, foundLon = 0;
        if (!grid.Inverse(easting, northing, &foundLat, &foundLon)) return -1;
        return std::hypot(foundLat - lat, std::remainder(foundLon - lon, 360 * kDegree) * std::cos(lat)) * kRadius;
    }

    CEllipsoid ellipsoid;
    CGrid grid;
};

// Every row of the catalogue, at positions spread over the area where it is used: the inverse of another program's
// figures lies where that program began, and forward of inverse is the figure again, to less than 0.1 mm. On the
// Norwegian axes it is the bound at which their forward form ends.
TEST_F(GridInverse, EveryRowComesBackOverItsArea) {
    for (const GridFiguresBlock& block : ReadGridFigures()) {
        const bool onAxis = block.type == NORWEGIAN_AXES;
        Choose(block.zone, block.type, block.subtype);
        for (const GridFiguresBlock::Position& p : block.positions) {
            if (onAxis) {
                // The axis that the position chooses.
                double x = 0, y = 0;
                grid.Forward(&x, &y, p.lat * kDegree, p.lon * kDegree);
                Choose(block.zone, block.type, grid.axis);
            }
            const double miss = Miss(p.lat * kDegree, p.lon * kDegree, p.easting, p.northing);
            EXPECT_TRUE(miss >= 0 && miss <= block.tolerance * 1.01)
                << grid.name << ' ' << grid.comment << " at " << p.lat << ' ' << p.lon << ": " << miss;
            double lat = 0, lon = 0, easting = 0, northing = 0;
            ASSERT_TRUE(grid.Inverse(p.easting, p.northing, &lat, &lon));
            grid.ForwardAlone(&easting, &northing, lat, lon);
            EXPECT_LT(std::hypot(easting - p.easting, northing - p.northing), onAxis ? 0.1 : 1e-4)
                << grid.name << ' ' << grid.comment << " at " << p.lat << ' ' << p.lon;
        }
    }
}

// Three degrees about the origin of each of the 430, arrays and one by one, each kernel, whatever stands beside.
TEST_F(GridInverse, ArraysGiveTheSameWhateverStandsBesideThem) {
    std::mt19937_64 random(41);
    std::uniform_real_distribution<double> offset(-3 * kDegree, 3 * kDegree);
    for (std::int32_t type = 0; type < kGridTypes; ++type) {
        for (std::int32_t zone = 0; zone < kGridFamilySizes[static_cast<std::size_t>(type)]; ++zone) {
            Choose(zone, type, type == NORWEGIAN_AXES ? 5 : 0);
            const bool fromEquator = grid.lat0 == 0 || type == DANISH_SYSTEM_34;
            const double lat0 = fromEquator ? 56 * kDegree : grid.lat0;
            const double east = type == DANISH_SYSTEM_34 && zone == 1 ? 3 * kDegree : 0;
            const double lon0 = east + grid.NearMeridian(type == STATE_PLANE_27 ? -std::fabs(grid.lon0) : grid.lon0);
            std::vector<double> lats(37), lons(37), eastings(37), northings(37);
            // System 34 is made for a country.
            const double reach = type == DANISH_SYSTEM_34 ? 0.3 : 1;
            for (double& lat : lats) lat = lat0 + offset(random) * reach;
            for (double& lon : lons) lon = lon0 + offset(random) * reach;
            grid.ForwardAll(eastings, northings, lats, lons);
            eastings[11] = kNaN;
            std::vector<double> foundLats(37), foundLons(37);
            const std::size_t inside = grid.InverseAll(foundLats, foundLons, eastings, northings);
            if (type == NORWEGIAN_AXES) continue;  // 56 N lies beyond their polynomials
            EXPECT_EQ(inside, 36u) << grid.name << ' ' << grid.comment;
            for (std::size_t i = 0; i < 37; ++i) {
                const double miss = Miss(lats[i], lons[i], eastings[i], northings[i]);
                EXPECT_EQ(std::isnan(foundLats[i]), i == 11) << grid.name << ' ' << miss;
                if (i == 11) continue;
                EXPECT_LT(std::hypot(foundLats[i] - lats[i], (foundLons[i] - lons[i]) * std::cos(lats[i])) * kRadius,
                          1e-5)
                    << grid.name << ' ' << grid.comment;
                EXPECT_TRUE(miss >= 0 && miss < 1e-5) << grid.name << ' ' << grid.comment << ' ' << miss;
                for (const BatchKernels* kernels : BatchKernelsHere()) {
                    double lat = 0, lon = 0;
                    kernels->inverse(grid, &eastings[i], &northings[i], &lat, &lon, 1);
                    EXPECT_EQ(std::bit_cast<std::uint64_t>(lat), std::bit_cast<std::uint64_t>(foundLats[i]))
                        << kernels->name << ' ' << grid.name;
                    EXPECT_EQ(std::bit_cast<std::uint64_t>(lon), std::bit_cast<std::uint64_t>(foundLons[i]))
                        << kernels->name << ' ' << grid.name;
                }
            }
        }
    }
}

TEST_F(GridInverse, SaysWhenAPositionIsOutside) {
    const struct {
        const char* why;
        std::int32_t type, zone, subtype;
        double easting, northing;
        bool inside;
    } rows[] = {
        {"the middle of the zone", UTM_GRID, 31, 0, 500000, 6e6, true},
        {"15 degrees off the meridian", UTM_GRID, 31, 0, 1500000, 6e6, true},
        {"40 degrees off", UTM_GRID, 31, 0, 3200000, 6e6, false},
        {"beyond the pole", UTM_GRID, 31, 0, 500000, 1.1e7, false},
        {"no number", UTM_GRID, 31, 0, kNaN, 6e6, false},
        {"beyond all bounds", UTM_GRID, 31, 0, 5e5, kInfinity, false},
        {"another planet", UTM_GRID, 31, 0, 1e300, -1e300, false},
        {"the far side of the cone", LAMBERT, 7, 0, 0, 8e6, false},
        {"the middle of the cone", LAMBERT, 7, 0, 0, 0, true},
        {"half round the world", MERCATOR, 0, 0, 2.01e7, 0, false},
        {"no axis", NORWEGIAN_AXES, 2, 0, 1000000, 0, false},
        {"an axis", NORWEGIAN_AXES, 2, 4, 900000, 0, true},
        {"Denmark from Africa", DANISH_SYSTEM_34, 0, 0, 0, -5e6, false},
    };
    for (const auto& row : rows) {
        Choose(row.zone, row.type, row.subtype);
        double lat = 7, lon = 7;
        EXPECT_EQ(grid.Inverse(row.easting, row.northing, &lat, &lon), row.inside) << row.why;
        EXPECT_EQ(lat == 7 && lon == 7, !row.inside) << row.why;
        EXPECT_EQ(grid.InverseAll({&lat, 1}, {&lon, 1}, {&row.easting, 1}, {&row.northing, 1}), row.inside ? 1u : 0u)
            << row.why;
        EXPECT_EQ(std::isnan(lat), !row.inside) << row.why;
    }
    grid.ellipsoid = nullptr;
    double lat = 0, lon = 0;
    EXPECT_FALSE(grid.Inverse(5e5, 6e6, &lat, &lon));
    EXPECT_FALSE(grid.ScaleAt(0.9, 0.1));
}

// Pole and pole's neighbours, to either side, by scale and by parallel.
TEST_F(GridInverse, ThePolesAreInside) {
    ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
    grid.type = STEREOGRAPHIC;
    grid.subtype = 2;
    for (const double origin : {90.0, -90.0, 71.0, -71.0}) {
        grid.SetOriginDegrees(origin, 20, 2e6, 2e6, 0.994);
        const double side = origin > 0 ? 1 : -1;
        for (const double fromPole : {0.0, 1e-9, 1e-6, 0.001, 0.01, 1.0, 20.0}) {
            const double lat = side * (90 - fromPole) * kDegree;
            double easting = 0, northing = 0;
            grid.ForwardAlone(&easting, &northing, lat, 100 * kDegree);
            const double miss = Miss(lat, 100 * kDegree, easting, northing);
            EXPECT_TRUE(miss >= 0 && miss < 1e-4) << origin << ' ' << fromPole << ' ' << miss;
            double lats = 0, lons = 0;
            EXPECT_EQ(grid.InverseAll({&lats, 1}, {&lons, 1}, {&easting, 1}, {&northing, 1}), 1u);
            EXPECT_NEAR(lats, lat, 1e-10);
        }
    }
}

struct ScaleCase {
    const char* name;
    std::int32_t type, zone, subtype;
    double lat, lon;
    double convergence;  // degrees
    double areal;        // the square of the scale
};

// Made by PROJ 9.1.1: echo LON LAT | proj -V OPERATION, on the operations of tests/data/geodesy/grids.txt.
TEST_F(GridInverse, ConvergenceAndScaleAreThoseOfOthers) {
    for (const ScaleCase& c : {
             ScaleCase{"UTM 31", 0, 31, 0, 52, 5, 1.57626600, 0.99966284},
             ScaleCase{"National Grid", 1, 0, 0, 52.65, 1.7, 2.94281027, 1.00074038},
             ScaleCase{"Lo 27, west and south", 3, 5, 0, -29, 26, 0.48484787, 1.00023427},
             ScaleCase{"Mercator", 5, 1, 0, 38, -12, 0, 1.13208331},
             ScaleCase{"South Stream", 6, 7, 0, 45, 38, 2.58463884, 0.97672148},
             ScaleCase{"RD", 9, 2, 0, 53, 6, 0.48634139, 0.99994512},
             ScaleCase{"Borneo", 11, 0, 0, 6, 117, 0.35012067, 0.99973075},
             ScaleCase{"Brazil", 10, 0, 0, -15, -48, -1.55026322, 1.00514767},
             ScaleCase{"Singapore", 7, 1, 0, 1.8, 104.5, 0.02032226, 1.00006412},
         }) {
        Choose(c.zone, c.type, c.subtype);
        const auto at = grid.ScaleAt(c.lat * kDegree, c.lon * kDegree);
        ASSERT_TRUE(at) << c.name;
        EXPECT_NEAR(at->convergence / kDegree, c.convergence, 2e-6) << c.name;
        EXPECT_NEAR(at->scale * at->scale, c.areal, 2e-8) << c.name;
    }
    // An axis has its own meridian: north of 62 the first has none of the convergence that UTM has there.
    Choose(1, NORWEGIAN_AXES, 1);
    const auto axis = grid.ScaleAt(59 * kDegree, 6.05 * kDegree);
    ASSERT_TRUE(axis);
    EXPECT_NEAR(axis->convergence / kDegree, 0, 0.02) << "its meridian is 6 03 East";
    EXPECT_NEAR(axis->scale, 1, 2e-5);
    EXPECT_FALSE(grid.ScaleAt(90 * kDegree, 0));
}

}  // namespace
}  // namespace quillon
