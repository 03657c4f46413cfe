#include "scene/chart_grid.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(ChartGrid, StepsAreRoundAndNoSmallerThanAsked) {
    struct Row {
        double least, step;
    };
    for (const Row& row : {Row{1, 1},
                           {1.01, 2},
                           {2, 2},
                           {4.9, 5},
                           {5.1, 10},
                           {99, 100},
                           {100, 100},
                           {0.03, 0.05},
                           {0.1, 0.1},
                           {123456, 200000}}) {
        EXPECT_NEAR(RoundStep(row.least), row.step, row.step * 1e-12) << row.least;
    }
}

TEST(ChartGrid, DigitsStandInGroupsOfThree) {
    EXPECT_EQ(GroupedDigits(5912000, 1000), "5 912 000");
    EXPECT_EQ(GroupedDigits(512, 1), "512");
    EXPECT_EQ(GroupedDigits(-1234567.5, 0.5), "-1 234 567.5");
    EXPECT_EQ(GroupedDigits(-0.0001, 0.01), "0.00");
    EXPECT_EQ(GroupedDigits(1000.25, 0.05), "1 000.25");
}

TEST(ChartGrid, LinesStandWhereTheirFiguresSay) {
    ChartView view;
    view.SetSize(1600, 1000);
    view.SetCentre({512345, 5912345});
    view.SetScale(3.0);
    const ChartGrid grid = GridOf(view);
    EXPECT_EQ(grid.step, 500);
    ASSERT_EQ(grid.eastings.size(), 10u);  // 509 945 to 514 745
    EXPECT_EQ(grid.eastings.front().label, "510 000 E");
    EXPECT_EQ(grid.northings.back().label, "5 913 500 N");
    for (const ChartGridLine& line : grid.eastings) EXPECT_NEAR(view.ToWorld({line.pixel, 0}).x, line.value, 1e-6);
    for (const ChartGridLine& line : grid.northings) EXPECT_NEAR(view.ToWorld({0, line.pixel}).y, line.value, 1e-6);
}

TEST(ChartGrid, TheScaleBarIsRoundAndFitsItsRoom) {
    struct Row {
        double scale;
        const char* label;
    };
    ChartView view;
    for (const Row& row : {Row{1, "100 m"},
                           {2, "200 m"},
                           {2.9, "500 m"},
                           {5.6, "1 km"},
                           {300, "50 km"},
                           {0.02, "2 m"},
                           {0.001, "0.1 m"}}) {
        view.SetScale(row.scale);
        EXPECT_EQ(ScaleBarOf(view).label, row.label);
    }
    for (double scale = 1e-4; scale < 1e5; scale *= 1.37) {
        view.SetScale(scale);
        const ChartScaleBar bar = ScaleBarOf(view, 180);
        EXPECT_LE(bar.pixels, 180.0 * (1 + 1e-9)) << scale;
        EXPECT_GE(bar.pixels, 71.9) << scale;
        EXPECT_NEAR(bar.metres, bar.pixels * scale, bar.metres * 1e-12);
        EXPECT_NEAR(RoundStep(bar.metres), bar.metres, bar.metres * 1e-9) << scale;
    }
}

}  // namespace
}  // namespace quillon
