#include "scene/label_places.h"

#include <gtest/gtest.h>

#include <random>

namespace quillon {
namespace {

TEST(LabelPlaces, NoneOverlapsAnotherAndNoneIsLeftOutWithoutCause) {
    std::mt19937 random(3);
    LabelPlaces places;
    std::vector<ChartBox> taken;
    int refused = 0;
    for (int i = 0; i < 2000; ++i) {
        const double x = static_cast<double>(random() % 1600) - 100, y = static_cast<double>(random() % 1000) - 100;
        const ChartBox box{x, y, x + 20 + static_cast<double>(random() % 150), y + 14};
        const bool isFree = std::none_of(taken.begin(), taken.end(), [&](const ChartBox& t) { return t.Meets(box); });
        ASSERT_EQ(places.Take(box), isFree) << i;
        if (isFree) taken.push_back(box);
        refused += !isFree;
    }
    EXPECT_GT(refused, 500);
}

TEST(LabelPlaces, ATextOfSeveralBoxesTakesAllOrNone) {
    LabelPlaces places;
    ASSERT_TRUE(places.Take(ChartBox{100, 100, 110, 110}));
    const ChartBox turned[] = {{0, 0, 10, 10}, {50, 50, 60, 60}, {105, 105, 115, 115}};
    EXPECT_FALSE(places.Take(turned));
    EXPECT_TRUE(places.Take(ChartBox{0, 0, 10, 10}));
}

}  // namespace
}  // namespace quillon
