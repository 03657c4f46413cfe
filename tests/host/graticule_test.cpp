#include "host/graticule.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/scratch_drives.h"

namespace quillon {
namespace {

TEST(Graticule, LinesLieWhereTheirFiguresSay) {
    ScratchDrives drives;
    CJobGeodesy geodesy(drives);
    const ChartBox box{420000, 5700000, 620000, 5900000};
    EXPECT_TRUE(GraticuleOf(geodesy, box, 200).lines.empty()) << "no grid chosen";
    ASSERT_EQ(geodesy.Choose({}), GEODESY_FAULT::NONE);
    EXPECT_TRUE(GraticuleOf(geodesy, {4e7, 4e7, 5e7, 5e7}, 200).lines.empty()) << "outside the grid";

    const ChartGraticule graticule = GraticuleOf(geodesy, box, 200);
    std::string meridians, parallels;
    for (const ChartGraticuleLine& line : graticule.lines) {
        (line.isMeridian ? meridians : parallels) += line.label + " ";
        const double expected = std::stod(line.label) + std::stod(line.label.substr(line.label.find('\xB0') + 1)) / 60;
        for (const auto& run : line.runs) {
            for (const tagXY& point : run) {
                const auto at = geodesy.ToGeographic(point);
                ASSERT_TRUE(at);
                EXPECT_NEAR(line.isMeridian ? at->longitude : at->latitude, expected, 1e-9) << line.label;
            }
        }
    }
    EXPECT_TRUE(meridians.starts_with("2\xC2\xB0"
                                      "00'E 2\xC2\xB0"
                                      "30'E ") &&
                meridians.ends_with("5\xC2\xB0"
                                    "00'E "))
        << meridians;
    EXPECT_TRUE(parallels.starts_with("51\xC2\xB0"
                                      "30'N 51\xC2\xB0"
                                      "45'N ") &&
                parallels.ends_with("53\xC2\xB0"
                                    "15'N "))
        << parallels;
}

TEST(Graticule, FiguresHaveTheDigitsOfTheirStep) {
    const struct {
        long long seconds;
        int step;
        const char* label;
    } rows[] = {{11700, 900,
                 "3\xC2\xB0"
                 "15'E"},
                {11705, 5,
                 "3\xC2\xB0"
                 "15'05\"E"},
                {-7200, 3600, "2\xC2\xB0W"},
                {0, 3600, "0\xC2\xB0"},
                {648000, 3600, "180\xC2\xB0"},
                {651600, 3600, "179\xC2\xB0W"},
                {-30, 30,
                 "0\xC2\xB0"
                 "00'30\"W"}};
    for (const auto& row : rows) EXPECT_EQ(ArcLabel(row.seconds, row.step, 'E', 'W'), row.label) << row.seconds;
    EXPECT_EQ(RoundArcSeconds(1e-9), 1);
    EXPECT_EQ(RoundArcSeconds(301), 600);
    EXPECT_EQ(RoundArcSeconds(1e9), 324000);
}

}  // namespace
}  // namespace quillon
