#include "geodesy/batch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "geodesy/lane_math.h"

namespace quillon {
namespace {

constexpr double kDegree = 3.141592653589793 / 180;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Positions {
    std::vector<double> lats, lons;

    void Add(double lat, double lon) {
        lats.push_back(lat);
        lons.push_back(lon);
    }
};

/// Positions about a grid's origin, or about 52 N where it counts from the equator, as far as a grid is used.
Positions About(const CGrid& grid, double degrees = 8) {
    std::mt19937_64 random(31);
    std::uniform_real_distribution<double> offset(-degrees * kDegree, degrees * kDegree);
    const double lat = grid.lat0 == 0 ? 52 * kDegree : grid.lat0;
    // The Lambert tables of 1927 count longitudes positive west.
    const double lon = grid.type == STATE_PLANE_27 && grid.subtype != 0 ? -std::fabs(grid.lon0) : grid.lon0;
    Positions positions;
    for (int i = 0; i < 61; i++) positions.Add(lat + offset(random), lon + offset(random));
    return positions;
}

/// Positions that no lane may take on its own.
Positions Odd() {
    Positions positions;
    for (const double lat :
         {0.0, 1e-12, 1.57, 1.5707963267948966, -1.5707963267948966, 1.6, -4.0, 1e9, kNaN, kInfinity}) {
        for (const double lon : {0.0, 1e-12, 3.0, 6.9, 7.1, -1e9, kNaN, -kInfinity}) positions.Add(lat, lon);
    }
    return positions;
}

bool SameWithin(double one, double other, double metres) {
    return one == other || std::fabs(one - other) <= metres || (std::isnan(one) && std::isnan(other));
}

/// The bits of results, so that NaN is equal to itself.
std::vector<std::uint64_t> Bits(const std::vector<double>& values) {
    std::vector<std::uint64_t> bits;
    for (const double value : values) bits.push_back(std::bit_cast<std::uint64_t>(value));
    return bits;
}

/// Every kernel within so many metres of the one-position form, and all of them the same to the last bit, turned round
/// or not.
void ExpectForwardAlike(const CGrid& grid, const Positions& positions, double metres) {
    const std::size_t count = positions.lats.size();
    std::vector<std::uint64_t> bits;
    for (const BatchKernels* kernels : BatchKernelsHere()) {
        std::vector<double> easts(count, -1), norths(count, -1);
        kernels->forward(grid, positions.lats.data(), positions.lons.data(), easts.data(), norths.data(), count);
        if (bits.empty()) bits = Bits(easts);
        EXPECT_EQ(bits, Bits(easts)) << kernels->name << ": " << grid.name << ' ' << grid.comment;
        Positions turned = positions;
        std::reverse(turned.lats.begin(), turned.lats.end());
        std::reverse(turned.lons.begin(), turned.lons.end());
        std::vector<double> eastsTurned(count, -1);
        std::vector<double> northsTurned(count, -1);
        kernels->forward(grid, turned.lats.data(), turned.lons.data(), eastsTurned.data(), northsTurned.data(), count);
        std::reverse(eastsTurned.begin(), eastsTurned.end());
        EXPECT_EQ(bits, Bits(eastsTurned)) << kernels->name << ": " << grid.name << ' ' << grid.comment;
        for (std::size_t i = 0; i < count; i++) {
            double east = -1, north = -1;
            ForwardByFormula(grid, &east, &north, positions.lats[i], positions.lons[i]);
            ASSERT_TRUE(SameWithin(easts[i], east, metres) && SameWithin(norths[i], north, metres))
                << kernels->name << ": " << grid.name << ' ' << grid.comment << " at " << positions.lats[i] / kDegree
                << ' ' << positions.lons[i] / kDegree << " gives " << easts[i] << ' ' << norths[i] << " for " << east
                << ' ' << north;
        }
    }
}

TEST(Batch, AgreesWithOnePositionOnEveryGridOfTheCatalogue) {
    int grids = 0;
    for (int type = 0; type <= 14; type++) {
        CEllipsoid ellipsoid;
        ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
        CGrid grid;
        grid.ellipsoid = &ellipsoid;
        for (int zone = 0; grid.SetGrid(zone, type, 0); zone++, grids++) {
            ExpectForwardAlike(grid, About(grid), 1e-6);
        }
    }
    EXPECT_EQ(grids, 430);
}

TEST(Batch, HandsOddPositionsToTheOnePositionForm) {
    for (int type = 0; type <= 14; type++) {
        CEllipsoid ellipsoid;
        ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
        CGrid grid;
        grid.ellipsoid = &ellipsoid;
        grid.SetGrid(type == UTM_GRID ? 31 : 0, type, 0);
        // An odd one among others must not spoil them either.
        Positions odd = Odd();
        const Positions others = About(grid);
        for (std::size_t i = 0; i < others.lats.size(); i += 3) odd.Add(others.lats[i], others.lons[i]);
        std::shuffle(odd.lats.begin(), odd.lats.end(), std::mt19937_64(3));
        std::shuffle(odd.lons.begin(), odd.lons.end(), std::mt19937_64(3));
        // Thousands of kilometres beyond their reach the series give figures of any size.
        ExpectForwardAlike(grid, odd, 1.0);
    }
}

TEST(Batch, TakesTheGridsWithoutARow) {
    CEllipsoid ellipsoid;
    ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
    CGrid grid;
    grid.ellipsoid = &ellipsoid;
    for (const double parallel : {0.0, 75.0, -71.0}) {
        grid.type = STEREOGRAPHIC;
        grid.subtype = 2;
        grid.SetOriginDegrees(parallel, 20, 1e6, 2e6, 0.994);
        ExpectForwardAlike(grid, About(grid), 1e-6);
    }
    grid.SetGrid(0, DANISH_SYSTEM_34, 0);
    grid.axis = 2;             // Bornholm, 15 E; far off it the polynomial of the seventh degree has no bounds
    grid.lat0 = 55 * kDegree;  // where to look; this family counts from the equator whatever its origin
    grid.lon0 = 15 * kDegree;
    ExpectForwardAlike(grid, About(grid, 2), 1e-6);
}

TEST(Batch, TakesAnyCountAndTheShortestSpan) {
    CEllipsoid ellipsoid;
    ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
    CGrid grid;
    grid.ellipsoid = &ellipsoid;
    grid.Init();
    for (std::size_t count = 0; count <= 20; count++) {
        const std::vector<double> lats(count + 2, 0.9), lons(count + 3, 0.06);
        std::vector<double> easts(count + 1, -1), norths(count, -1);
        grid.ForwardAll(easts, norths, lats, lons);
        for (std::size_t i = 0; i < count; i++) EXPECT_NEAR(norths[i], norths[0], 1e-9);
        EXPECT_TRUE(count == 0 || norths[count - 1] > 5e6);
        EXPECT_EQ(easts[count], -1);
        std::vector<double> distances(count, -1);
        EXPECT_TRUE(ellipsoid.DistanceAll(lats, lons, lons, lats, distances));
        for (const double distance : distances) EXPECT_GT(distance, 5e6);
    }
}

TEST(Batch, WorksInPlace) {
    CEllipsoid ellipsoid;
    ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
    CGrid grid;
    grid.ellipsoid = &ellipsoid;
    grid.Init();
    Positions positions = About(grid);
    positions.lats[5] = positions.lons[5] = 0;  // no position, so that its neighbours go one by one
    std::vector<double> easts(positions.lats.size()), norths(positions.lats.size());
    grid.ForwardAll(easts, norths, positions.lats, positions.lons);
    grid.ForwardAll(positions.lons, positions.lats, positions.lats, positions.lons);
    EXPECT_EQ(positions.lons, easts);
    EXPECT_EQ(positions.lats, norths);
}

// What the lanes cannot take goes one by one: no ellipsoid, no scale, an axis to be chosen, a shape unlike the earth's.
TEST(Batch, FallsBackToOneByOne) {
    CEllipsoid ellipsoid;
    ellipsoid.SetEllipsoid(20);
    CGrid grid;
    const std::vector<double> lats(5, 60 * kDegree), lons(5, 9 * kDegree);
    std::vector<double> easts(5, -1), norths(5, -1);
    grid.ForwardAll(easts, norths, lats, lons);
    EXPECT_EQ(easts, std::vector<double>(5, 0));
    grid.ellipsoid = &ellipsoid;
    grid.SetGrid(1, NORWEGIAN_AXES, 0);
    grid.ForwardAll(easts, norths, lats, lons);
    EXPECT_NEAR(easts[4], 222793.405, 0.0005);
    grid.SetGrid(0, MERCATOR, 0);
    ellipsoid.rf = 20;
    ellipsoid.ComputeConstants();
    grid.Init();
    grid.ForwardAll(easts, norths, lats, lons);
    double east, north;
    grid.Forward(&east, &north, lats[0], lons[0]);
    EXPECT_EQ(norths[4], north);
}

TEST(Batch, DistancesAgreeWithOnePair) {
    std::mt19937_64 random(32);
    std::uniform_real_distribution<double> lat(-1.57, 1.57), lon(-3.14, 3.14), small(-0.1, 0.1);
    std::vector<double> lat1, lon1, lat2, lon2;
    const auto add = [&](double a, double b, double c, double d) {
        lat1.push_back(a);
        lon1.push_back(b);
        lat2.push_back(c);
        lon2.push_back(d);
    };
    for (int i = 0; i < 500; i++) {
        const double a = lat(random) * 0.9, b = lon(random);
        add(a, b, a + small(random), b + small(random));
        add(a, b, a, b + 1e-7);
        add(a, b, a + 1e-7, b);
        add(a, b, 0, b + small(random));
        add(a, b, a * 0.5, b > 0 ? b - 6.2 : b + 6.2);
    }
    for (const double odd : {0.0, 1.5707963267948966, 1.8, kNaN, kInfinity, 1e9}) {
        add(odd, 0.1, 0.5, 0.2);
        add(0.5, odd, 0.6, 0.2);
        add(0.5, 0.1, odd, 0.2);
        add(odd, 0.1, odd, 0.1);
        add(0, 0.1, 0, 0.2);
    }
    for (int row = 0; row < CEllipsoid::kCatalogueRows; row += 9) {
        CEllipsoid ellipsoid;
        ellipsoid.SetEllipsoid(row);
        std::vector<double> distances(lat1.size());
        const auto expectAlike = [&](const char* name) {
            for (std::size_t i = 0; i < lat1.size(); i++) {
                double metres = -1;
                ellipsoid.Distance(lat1[i], lon1[i], lat2[i], lon2[i], &metres);
                ASSERT_TRUE(SameWithin(distances[i], metres, 1e-6))
                    << name << ' ' << row << ' ' << i << ": " << distances[i] << " for " << metres;
            }
        };
        for (const BatchKernels* kernels : BatchKernelsHere()) {
            if (ellipsoid.e2 == 0) continue;
            kernels->distance(ellipsoid, lat1.data(), lon1.data(), lat2.data(), lon2.data(), distances.data(),
                              distances.size());
            expectAlike(kernels->name);
        }
        ellipsoid.DistanceAll(lat1, lon1, lat2, lon2, distances);
        expectAlike("chosen");
    }
}

// A path through ordinary and odd vertices, standing still here and there, at every length about a group of lanes.
TEST(Batch, LegsOfAPathAgreeWithOnePair) {
    std::mt19937_64 random(34);
    std::uniform_real_distribution<double> step(-0.01, 0.01);
    Positions path;
    path.Add(0.8, 0.1);
    for (int i = 1; i < 1200; i++) {
        const bool stands = i % 7 == 0;
        path.Add(path.lats.back() + (stands ? 0 : step(random)), path.lons.back() + (stands ? 0 : step(random)));
    }
    const Positions odd = Odd();
    for (std::size_t i = 0; i < odd.lats.size(); i++) {
        path.lats[500 + 8 * i % 600] = odd.lats[i];
        path.lons[500 + 8 * i % 600] = odd.lons[i];
    }
    for (const int row : {CEllipsoid::kWgs84, 31}) {  // the second one is a sphere
        CEllipsoid ellipsoid;
        ellipsoid.SetEllipsoid(row);
        std::vector<double> expected(path.lats.size() - 1);
        for (std::size_t i = 0; i < expected.size(); i++) {
            ellipsoid.Distance(path.lats[i], path.lons[i], path.lats[i + 1], path.lons[i + 1], &expected[i]);
        }
        const auto expectAlike = [&](const char* name, const std::vector<double>& legs, std::size_t count) {
            for (std::size_t i = 0; i < count; i++) {
                ASSERT_TRUE(SameWithin(legs[i], expected[i], 1e-6))
                    << name << ' ' << row << ' ' << i << ": " << legs[i];
            }
            ASSERT_TRUE(count == legs.size() || legs[count] == -1) << name << ' ' << count;
        };
        for (std::size_t count = 0; count <= expected.size(); count += count < 40 ? 1 : 193) {
            for (const BatchKernels* kernels : BatchKernelsHere()) {
                std::vector<double> legs(count + 1, -1);
                if (ellipsoid.e2 == 0) continue;
                kernels->legs(ellipsoid, path.lats.data(), path.lons.data(), legs.data(), count);
                expectAlike(kernels->name, legs, count);
            }
            std::vector<double> legs(count + 1, -1);
            ellipsoid.DistancesAlong(std::span(path.lats).first(count + 1), path.lons, legs);
            expectAlike("chosen", legs, count);
        }
    }
}

using Lanes = LaneMath<2>;

/// The C library's answer in each lane, within two units of the last place of the larger of it and `scale`.
template <class Function, class Reference>
void ExpectClose(const char* name, Function function, Reference reference, double from, double to, double scale) {
    std::mt19937_64 random(33);
    std::uniform_real_distribution<double> within(from, to);
    for (int i = 0; i < 20000; i++) {
        const Lanes::Value x = {within(random), i % 2 == 0 ? from : to};
        const Lanes::Value y = function(x);
        for (int lane = 0; lane < 2; lane++) {
            const double expected = reference(x[lane]);
            ASSERT_NEAR(y[lane], expected, 4.5e-16 * std::max(std::fabs(expected), scale)) << name << ' ' << x[lane];
        }
    }
}

TEST(LaneMath, IsCloseToTheLibrary) {
    const auto sine = [](Lanes::Value x) {
        Lanes::Value s, c;
        Lanes::SinCos(x, s, c);
        return s;
    };
    const auto cosine = [](Lanes::Value x) {
        Lanes::Value s, c;
        Lanes::SinCos(x, s, c);
        return c;
    };
    for (const double turn : {1.0, 10.0, 1000.0}) {
        ExpectClose(
            "sine", sine, [](double x) { return std::sin(x); }, -turn, turn, 0);
        ExpectClose(
            "cosine", cosine, [](double x) { return std::cos(x); }, -turn, turn, 0);
    }
    ExpectClose(
        "exp", Lanes::Exp, [](double x) { return std::exp(x); }, -30, 30, 0);
    ExpectClose(
        "exp", Lanes::Exp, [](double x) { return std::exp(x); }, -699, 699, 0);
    ExpectClose(
        "log", Lanes::Log, [](double x) { return std::log(x); }, 0.5, 2.5, 0);
    ExpectClose(
        "log", Lanes::Log, [](double x) { return std::log(x); }, 1e-300, 1e300, 0);
    ExpectClose(
        "atan", Lanes::Atan, [](double x) { return std::atan(x); }, -3, 3, 0);
    ExpectClose(
        "sqrt", Lanes::Sqrt, [](double x) { return std::sqrt(x); }, 0, 9, 0);
    for (const double x : {-2.0, -1e-9, 0.0, 1e-9, 2.0}) {
        const auto at = [x](Lanes::Value y) { return Lanes::Atan2(y, Lanes::Fill(x)); };
        ExpectClose(
            "atan2", at, [x](double y) { return std::atan2(y, x); }, -3, 3, 0);
    }
}

}  // namespace
}  // namespace quillon
