#include "host/corridor_outline.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quillon {
namespace {

/// The outline of a corridor of 30 m to port and 10 m to starboard, from the corners of the mitre rule.
std::vector<tagXY> OutlineOf(const std::vector<tagXY>& line) {
    constexpr CorridorWidths kWidths{30, 10};
    return CorridorOutline(line.size(), kWidths, [&](std::size_t i) {
        if (i > 0 && i + 1 < line.size()) {
            const CorridorCorner corner = MitreCorner(line[i - 1], line[i], line[i + 1], kWidths);
            return CorridorPoint{line[i], corner.port, corner.starboard};
        }
        const tagXY from = i == 0 ? line[0] : line[i - 1], to = i == 0 ? line[1] : line[i];
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        const CorridorCorner corner =
            SquareCorner(line[i], (to.x - from.x) / length, (to.y - from.y) / length, kWidths);
        return CorridorPoint{line[i], corner.port, corner.starboard};
    });
}

/// How far to the left of the line through two points a third one lies.
double LeftOf(tagXY from, tagXY to, tagXY point) {
    const double dx = to.x - from.x, dy = to.y - from.y;
    return (dx * (point.y - from.y) - dy * (point.x - from.x)) / std::hypot(dx, dy);
}

TEST(CorridorOutline, AHairpinIsCutSquareFourWidthsOut) {
    const std::vector<tagXY> line = {{0, 0}, {1000, 0}, {0, 1}};
    const std::vector<tagXY> outline = OutlineOf(line);
    ASSERT_EQ(outline.size(), 8u);
    const double distances[] = {120, 120, 40, 40};
    const std::size_t corners[] = {1, 2, 5, 6};  // port, then starboard on the way back
    for (int i = 0; i < 4; ++i) {
        const tagXY corner = outline[corners[i]];
        const double across = std::hypot(corner.x - 1000, corner.y);
        EXPECT_GT(across, distances[i]) << "the cut is square to the corner, so its ends lie a little farther";
        EXPECT_LT(across, distances[i] * 1.04);
    }
    // The sides stay where they are on either leg.
    EXPECT_NEAR(LeftOf(line[0], line[1], outline[1]), 30, 1e-6);
    EXPECT_NEAR(LeftOf(line[1], line[2], outline[2]), 30, 1e-6);
    EXPECT_NEAR(LeftOf(line[1], line[2], outline[5]), -10, 1e-6);
    EXPECT_NEAR(LeftOf(line[0], line[1], outline[6]), -10, 1e-6);
    for (const tagXY& point : outline) EXPECT_LT(std::abs(point.x), 1200) << "the rule's corner lies 60 km away";
}

TEST(CorridorOutline, TakesPointsThatCoincide) {
    const auto far = [](std::size_t) { return CorridorPoint{{5, 5}, {1e9, 5}, {5, 5}}; };
    for (const tagXY& point : CorridorOutline(3, {10, 10}, far)) {
        EXPECT_LE(std::hypot(point.x - 5, point.y - 5), 40.0 + 1e-9);
    }
    EXPECT_TRUE(CorridorOutline(0, {1, 1}, far).empty());
}

}  // namespace
}  // namespace quillon
