#include "features/corridor_mitre.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>
#include <string>

namespace quillon {
namespace {

using Real = long double;

struct Point {
    Real x = 0;
    Real y = 0;
};

Point MovedSideways(Point at, Point along, Real toStarboard) {
    const Real length = std::hypot(along.x, along.y);
    if (length == 0) return {at.x + toStarboard, at.y};
    return {at.x + along.y / length * toStarboard, at.y - along.x / length * toStarboard};
}

/// Where the moved lines of both legs cross, by the determinant of their four points, about the corner as the origin.
/// The side point where they are parallel.
Point CrossingOfMovedLines(tagXY before, tagXY at, tagXY after, Real toStarboard) {
    const Point in{static_cast<Real>(at.x) - before.x, static_cast<Real>(at.y) - before.y};
    const Point out{static_cast<Real>(after.x) - at.x, static_cast<Real>(after.y) - at.y};
    const Point a = MovedSideways({-in.x, -in.y}, in, toStarboard);
    const Point b = MovedSideways({0, 0}, in, toStarboard);
    const Point c = MovedSideways({out.x, out.y}, out, toStarboard);
    const Point d = MovedSideways({0, 0}, out, toStarboard);
    const Real denominator = (d.y - c.y) * (b.x - a.x) - (d.x - c.x) * (b.y - a.y);
    Point crossing = b;
    if (denominator != 0) {
        const Real t = ((c.x - a.x) * (d.y - c.y) - (c.y - a.y) * (d.x - c.x)) / denominator;
        crossing = {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)};
    }
    return {crossing.x + at.x, crossing.y + at.y};
}

/// How far a point lies beside the line of a leg that is moved sideways.
Real BesideMovedLine(tagXY given, tagXY at, Point along, Real toStarboard) {
    const Real length = std::hypot(along.x, along.y);
    const Real east = static_cast<Real>(given.x) - at.x;
    const Real north = static_cast<Real>(given.y) - at.y;
    return std::fabs((east * along.y - north * along.x) / length - toStarboard);
}

void ExpectCrossing(tagXY before, tagXY at, tagXY after, CorridorWidths widths, const std::string& name) {
    const CorridorCorner corner = MitreCorner(before, at, after, widths);
    const auto expect = [&](tagXY given, Real toStarboard, const char* side) {
        const Point in{static_cast<Real>(at.x) - before.x, static_cast<Real>(at.y) - before.y};
        const Point out{static_cast<Real>(after.x) - at.x, static_cast<Real>(after.y) - at.y};
        const Real sine = (in.y * out.x - in.x * out.y) / std::hypot(in.x, in.y) / std::hypot(out.x, out.y);
        EXPECT_LE(BesideMovedLine(given, at, in, toStarboard),
                  5e-9L + 1e-12L * std::hypot(given.x - at.x, given.y - at.y))
            << name << ", " << side;
        // Where the lines cross is known no better than their angle.
        if (std::fabs(sine) < 1e-5L) return;
        const Point crossing = CrossingOfMovedLines(before, at, after, toStarboard);
        const Real away = std::hypot(crossing.x - at.x, crossing.y - at.y);
        const Real apart = std::hypot(crossing.x - given.x, crossing.y - given.y);
        EXPECT_LE(apart, 5e-9L + away * 1e-9L) << name << ", " << side;
    };
    expect(corner.port, -static_cast<Real>(widths.port), "port");
    expect(corner.starboard, widths.starboard, "starboard");
}

tagXY Polar(tagXY from, double bearing, double range) {
    return {from.x + range * std::sin(bearing), from.y + range * std::cos(bearing)};
}

constexpr tagXY kAt{512345.678, 6123456.789};
constexpr CorridorWidths kWidths{100.0, 37.5};

TEST(CorridorMitre, IsWhereTheMovedLinesCross) {
    for (const double turn :
         {1e-12, 1e-9, 1e-6, 0.001, 1.0, 45.0, 89.999, 90.0, 90.001, 135.0, 179.0, 179.9, 179.99, 179.999}) {
        for (const double side : {1.0, -1.0}) {
            for (double bearing = 0.0; bearing < 360.0; bearing += 37.0) {
                const double in = bearing * std::numbers::pi / 180;
                const double out = in + side * turn * std::numbers::pi / 180;
                ExpectCrossing(Polar(kAt, in, -1234.5), kAt, Polar(kAt, out, 876.5), kWidths,
                               std::to_string(bearing) + " turning " + std::to_string(side * turn));
            }
        }
    }
}

TEST(CorridorMitre, IsWhereTheMovedLinesCrossOfAnyThreePoints) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> spread(-2000.0, 2000.0);
    for (int i = 0; i < 5000; ++i) {
        const tagXY before{kAt.x + spread(random), kAt.y + spread(random)};
        const tagXY after{kAt.x + spread(random), kAt.y + spread(random)};
        ExpectCrossing(before, kAt, after, kWidths, "triple " + std::to_string(i));
    }
}

// Straight through, a reversal, a leg of no length on either side: square to the leg coming in.
TEST(CorridorMitre, IsSquareToTheLegComingInWhereTheLinesDontCross) {
    const tagXY before{kAt.x - 300, kAt.y - 400};
    const CorridorCorner square = SquareCorner(kAt, 0.6, 0.8, kWidths);
    for (const tagXY after : {tagXY{kAt.x + 600, kAt.y + 800}, before, kAt}) {
        const CorridorCorner corner = MitreCorner(before, kAt, after, kWidths);
        EXPECT_NEAR(corner.port.x, square.port.x, 1e-9);
        EXPECT_NEAR(corner.port.y, square.port.y, 1e-9);
        EXPECT_NEAR(corner.starboard.x, square.starboard.x, 1e-9);
        EXPECT_NEAR(corner.starboard.y, square.starboard.y, 1e-9);
    }
    // Coming from nowhere is coming from the south.
    EXPECT_EQ(MitreCorner(kAt, kAt, before, kWidths), SquareCorner(kAt, 0.0, 1.0, kWidths));
}

}  // namespace
}  // namespace quillon
