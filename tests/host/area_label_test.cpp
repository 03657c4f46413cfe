#include "host/area_label.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace quillon {
namespace {

constexpr double kDegree = std::numbers::pi / 180;

std::vector<tagXY> Circle(double radius, int count) {
    std::vector<tagXY> ring;
    for (int i = 0; i < count; ++i) {
        const double angle = 2 * std::numbers::pi * i / count;
        ring.push_back({radius * std::sin(angle), radius * std::cos(angle)});
    }
    return ring;
}

struct Case {
    const char* name;
    std::vector<tagXY> ring;
    tagXY at;
    double tolerance;
    std::optional<double> along;  ///< degrees
    double room;
};

TEST(AreaLabelTest, StandsWellInside) {
    const std::vector<Case> cases = {
        {"square", {{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {5, 5}, 0.3, std::nullopt, 10},
        {"closed square", {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}, {5, 5}, 0.3, std::nullopt, 10},
        // The middle of the box lies outside; the foot is the widest place.
        {"L", {{0, 0}, {24, 0}, {24, 10}, {8, 10}, {8, 40}, {0, 40}}, {12, 5}, 2, std::nullopt, 24},
        {"level strip", {{0, 0}, {100, 0}, {100, 4}, {0, 4}}, {50, 2}, 2, 90, 100},
        {"upright strip", {{0, 0}, {3, 0}, {3, 90}, {0, 90}}, {1.5, 45}, 2, 0, 90},
        {"strip to the northeast", {{0, 1}, {1, 0}, {101, 100}, {100, 101}}, {50.5, 50.5}, 2, 45, 141.4},
        {"strip that no coarse grid meets", {{0, 0}, {1000, 700}, {1000, 700.5}, {0, 0.5}}, {500, 350}, 30, 55, 1220},
        {"thousands of points", Circle(500, 5000), {0, 0}, 20, std::nullopt, 1000},
    };
    for (const Case& row : cases) {
        const auto label = PlaceAreaLabel(row.ring);
        ASSERT_TRUE(label) << row.name;
        EXPECT_LE(std::hypot(label->at.x - row.at.x, label->at.y - row.at.y), row.tolerance)
            << row.name << ": " << label->at.x << ", " << label->at.y;
        EXPECT_EQ(label->along.has_value(), row.along.has_value()) << row.name;
        EXPECT_NEAR(label->along.value_or(0.0), row.along.value_or(0.0) * kDegree, 3 * kDegree) << row.name;
        EXPECT_NEAR(label->room, row.room, row.room * 0.05) << row.name;
    }
}

}  // namespace
}  // namespace quillon
