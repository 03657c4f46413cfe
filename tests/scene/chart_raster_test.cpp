#include "scene/chart_raster.h"

#include <gtest/gtest.h>

#include <random>

namespace quillon {
namespace {

TEST(ChartRaster, CoarserLevelsHoldTheMeansOfTheirCells) {
    constexpr int kColumns = 301, kRows = 190;
    std::mt19937 random(1);
    auto values = std::make_shared<std::vector<std::int32_t>>();
    for (int i = 0; i < kColumns * kRows; ++i) {
        values->push_back(random() % 10 == 0 ? ChartRaster::kNone : static_cast<std::int32_t>(random() % 10000));
    }
    const ChartRaster raster(values, *values, kColumns, kRows, {1005, 2005}, 10.0);
    EXPECT_EQ(raster.Box(), (ChartBox{1000, 2000, 4010, 3900}));
    EXPECT_EQ(raster.For(0.1).cell, 10.0) << "the finest where none is fine enough";
    EXPECT_EQ(raster.For(39.0).cell, 20.0);
    EXPECT_EQ(raster.ValueAt({1005, 2005}), (*values)[0]);
    EXPECT_EQ(raster.ValueAt({4010, 2000}), (*values)[kColumns - 1]) << "on the edge";
    EXPECT_EQ(raster.ValueAt({999, 2005}), ChartRaster::kNone);
    const ChartRaster::Level& fine = raster.For(10.0);
    const ChartRaster::Level& coarse = raster.For(40.0);
    ASSERT_EQ(coarse.columns, 76);
    ASSERT_EQ(coarse.rows, 48);
    for (int row = 0; row < coarse.rows; ++row) {
        for (int column = 0; column < coarse.columns; ++column) {
            double sum = 0, count = 0;
            std::int32_t least = ChartRaster::kNone, greatest = 0;
            for (int y = 4 * row; y < std::min(4 * row + 4, kRows); ++y) {
                for (int x = 4 * column; x < std::min(4 * column + 4, kColumns); ++x) {
                    if (fine.At(x, y) == ChartRaster::kNone) continue;
                    sum += fine.At(x, y);
                    ++count;
                    least = std::min(least, fine.At(x, y));
                    greatest = std::max(greatest, fine.At(x, y));
                }
            }
            const std::int32_t mean = coarse.At(column, row);
            ASSERT_EQ(mean == ChartRaster::kNone, count == 0);
            if (count == 0) continue;
            ASSERT_GE(mean, least - 2);
            ASSERT_LE(mean, greatest);
            if (count == 16) {
                ASSERT_NEAR(mean, sum / count, 2.0) << column << ' ' << row;
            }
        }
    }
}

}  // namespace
}  // namespace quillon
