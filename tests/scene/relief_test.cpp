#include "scene/relief.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace quillon {
namespace {

constexpr int kSide = 9;
constexpr std::int32_t kNone = ChartRaster::kNone;

ChartRaster Raster(const std::function<double(int column, int row)>& of, double cell = 10.0) {
    auto values = std::make_shared<std::vector<std::int32_t>>();
    for (int row = 0; row < kSide; ++row) {
        for (int column = 0; column < kSide; ++column) {
            values->push_back(static_cast<std::int32_t>(std::lround(of(column, row))));
        }
    }
    return {values, *values, kSide, kSide, {5, 5}, cell};
}

int Middle(const ChartRaster& raster, double height) {
    std::uint8_t shade = 0;
    Relief(height).ShadeRow(raster.For(0.1), kSide / 2, kSide / 2, {&shade, 1});
    return shade;
}

// Depths in centimetres: what falls away to the north-west is in the light.
TEST(Relief, LightComesFromTheNorthWest) {
    const struct {
        const char* why;
        double east, north;  ///< centimetres deeper a cell
        double expected;     ///< by hand: the cosine over that of level ground
    } rows[] = {{"level", 0, 0, 1.0},
                {"falls to the north-west", -500, 500, (0.5 * 1.0 + std::sqrt(0.5)) / std::sqrt(1.5) / std::sqrt(0.5)},
                {"falls to the south-east", 500, -500, (std::sqrt(0.5) - 0.5) / std::sqrt(1.5) / std::sqrt(0.5)},
                {"falls to the north-east", 500, 500, 1.0 / std::sqrt(1.5)},
                {"a wall that faces away", 50000, -50000, 0.0}};
    for (const auto& row : rows) {
        const ChartRaster raster =
            Raster([&](int column, int line) { return 100000 + row.east * column + row.north * line; });
        EXPECT_NEAR(Middle(raster, -0.01), std::max(0.0, row.expected) * Relief::kFlat, 1.0) << row.why;
    }
}

TEST(Relief, StopsAtWhatHoldsNothing) {
    const auto hole = [](int column, int) { return column == 4 ? kNone : 100.0 * column; };
    EXPECT_EQ(Middle(Raster(hole), -0.01), Relief::kFlat);
    const auto alone = [](int column, int row) { return column == 4 && row == 4 ? 100.0 : double{kNone}; };
    EXPECT_EQ(Middle(Raster(alone), -0.01), Relief::kFlat);
    const auto edge = [](int column, int) { return column < 4 ? double{kNone} : 500.0 * column; };
    EXPECT_EQ(Middle(Raster(edge), -0.01), Middle(Raster([](int c, int) { return 500.0 * c; }), -0.01));
}

TEST(Relief, ExaggeratesWhatIsFlat) {
    const auto slope = [](double centimetres) { return Raster([=](int column, int) { return centimetres * column; }); };
    EXPECT_EQ(ExaggeratedHeight(slope(0), -0.01), -0.01);
    EXPECT_NEAR(ExaggeratedHeight(slope(50), -0.01), -0.01 * (1.0 / 3.0) / 0.05, 1e-9);
    EXPECT_NEAR(ExaggeratedHeight(slope(1), -0.01), -0.3, 1e-9) << "no more than 30 times";
    EXPECT_EQ(ExaggeratedHeight(slope(1000), -0.01), -0.01) << "no less than it is";
}

}  // namespace
}  // namespace quillon
