#include "scene/depth_ramp.h"

#include <gtest/gtest.h>

#include <cmath>

#include "scene/chart_colours.h"
#include "scene/chart_grid.h"

namespace quillon {
namespace {

/// Published figures of the corners of sRGB under D65 (B. Lindbloom, "Useful colour equations", 2017), which a swapped
/// channel or a wrong white would miss.
TEST(DepthRamp, TellsColoursAsTheyAreSeen) {
    const struct {
        COLORREF colour;
        LabColour lab;
    } rows[] = {{RGB(255, 0, 0), {53.24, 80.09, 67.20}},
                {RGB(0, 255, 0), {87.73, -86.18, 83.18}},
                {RGB(0, 0, 255), {32.30, 79.19, -107.86}},
                {RGB(255, 255, 255), {100, 0, 0}},
                {RGB(1, 1, 1), {0.274, 0, 0}}};
    for (const auto& row : rows) {
        EXPECT_LT(Difference(LabOf(row.colour), row.lab), 0.05) << row.colour;
        EXPECT_EQ(ColourOf(LabOf(row.colour)), row.colour);
    }
}

TEST(DepthRamp, EqualDepthsLookEquallyFarApart) {
    for (const bool night : {false, true}) {
        const std::vector<COLORREF> ramp = DepthRamp(night, night ? 9 : 25);
        const double whole = Difference(LabOf(ramp.front()), LabOf(ramp[ramp.size() / 3])) +
                             Difference(LabOf(ramp[ramp.size() / 3]), LabOf(ramp[2 * ramp.size() / 3])) +
                             Difference(LabOf(ramp[2 * ramp.size() / 3]), LabOf(ramp.back()));
        const double step = whole / static_cast<double>(ramp.size() - 1);
        for (std::size_t i = 1; i < ramp.size(); ++i) {
            // What eight bits of a colour can't tell apart is up to one at night.
            EXPECT_NEAR(Difference(LabOf(ramp[i - 1]), LabOf(ramp[i])), step, night ? 1.5 : 0.8) << night << ' ' << i;
            EXPECT_LT(LabOf(ramp[i]).lightness, LabOf(ramp[i - 1]).lightness) << night << ' ' << i;
        }
    }
}

// Whatever colour a line has, it can be seen on every depth, also on those that relief makes lighter.
TEST(DepthRamp, LinesStandOffFromIt) {
    for (const COLORREF depth : DepthRamp(true, 65)) {
        for (const PaletteColour& line : kPalette) {
            EXPECT_GE(ContrastOf(FeatureColour(line.colour, true), depth), 3.0) << line.name;
        }
    }
    for (const COLORREF depth : DepthRamp(false, 65)) {
        for (const COLORREF ink : {RGB(0, 0, 0), RGB(0, 0, 128), RGB(128, 0, 0)}) {
            EXPECT_GE(ContrastOf(ink, depth), 4.5) << ink;
        }
    }
}

TEST(LegendMarks, StandAtRoundValues) {
    const auto text = [](double least, double greatest, double most) {
        std::string all;
        for (const ChartLegendMark& mark : LegendMarks(least, greatest, most)) {
            all += mark.label + "@" + std::to_string(std::lround(mark.part * 100)) + " ";
        }
        return all;
    };
    EXPECT_EQ(text(24.3, 38.1, 6), "25@5 30@41 35@78 ");
    EXPECT_EQ(text(-0.5, 0.5, 5), "-0.4@10 -0.2@30 0.0@50 0.2@70 0.4@90 ");
    EXPECT_EQ(text(12.34, 12.34, 5), "12.3@0 ");
}

}  // namespace
}  // namespace quillon
