#include "foundation/range_bearing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace quillon {
namespace {

TEST(RangeBearing, RunsClockwiseFromNorth) {
    constexpr double pi = std::numbers::pi;
    struct Row {
        tagXY to;
        double bearing, range;
    };
    const tagXY from{500000, 6000000};
    for (const Row& row : {
             Row{{500000, 6000000}, 0, 0},
             Row{{500000, 6000100}, 0, 100},
             Row{{500100, 6000100}, pi / 4, 100 * std::numbers::sqrt2},
             Row{{500100, 6000000}, pi / 2, 100},
             Row{{500000, 5999900}, pi, 100},
             Row{{499900, 6000000}, 3 * pi / 2, 100},
             Row{{499997, 6000004}, 2 * pi - std::atan2(3, 4), 5},
         }) {
        double bearing = -1, range = -1;
        RangeBearing(from, row.to, &bearing, &range);
        EXPECT_NEAR(bearing, row.bearing, 1e-15) << row.to.x << ' ' << row.to.y;
        EXPECT_NEAR(range, row.range, 1e-10) << row.to.x << ' ' << row.to.y;
    }
}

TEST(MissingValue, IsExactlyTheLargestDouble) {
    EXPECT_TRUE(IsMissing(1.7976931348623157e308));
    EXPECT_FALSE(IsMissing(std::nextafter(MISSING_VALUE, 0.0)));
    EXPECT_FALSE(IsMissing(HUGE_VAL));
    EXPECT_FALSE(IsMissing(-MISSING_VALUE));
    EXPECT_FALSE(IsMissing(NAN));
}

}  // namespace
}  // namespace quillon
