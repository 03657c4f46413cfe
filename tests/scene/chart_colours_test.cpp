#include "scene/chart_colours.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace quillon {
namespace {

int Contrast(COLORREF a, COLORREF b) {
    const auto apart = [](unsigned x, unsigned y) { return std::abs(static_cast<int>(x) - static_cast<int>(y)); };
    return std::max(
        {apart(GetRValue(a), GetRValue(b)), apart(GetGValue(a), GetGValue(b)), apart(GetBValue(a), GetBValue(b))});
}

TEST(ChartColours, EveryPaletteColourShowsByDayAndByNight) {
    for (const PaletteColour& entry : kPalette) {
        EXPECT_GE(Contrast(FeatureColour(entry.colour, false), ColoursOf(false).ground), 44) << entry.name;
        const COLORREF night = FeatureColour(entry.colour, true);
        EXPECT_GE(Contrast(night, ColoursOf(true).ground), 90) << entry.name;
        EXPECT_GE(Lightness(TextColour(entry.colour, true)), 0.35) << entry.name;
        EXPECT_LE(Lightness(TextColour(entry.colour, false)), 0.46) << entry.name;
        EXPECT_LE(std::max({GetRValue(night), GetGValue(night), GetBValue(night)}), 190u) << entry.name;
    }
    EXPECT_EQ(FeatureColour(RGB(255, 0, 0), false), RGB(255, 0, 0));
    EXPECT_EQ(FeatureColour(RGB(0, 0, 0), false), RGB(0, 0, 0));
}

TEST(ChartColours, TheNightIsDark) {
    const ChartColours& night = ColoursOf(true);
    EXPECT_EQ(night.ground, RGB(0, 0, 0));
    for (const COLORREF colour : {night.gridLine, night.gridText, night.scaleBar, night.labelGround, night.labelInk}) {
        EXPECT_LT(Lightness(colour), 0.7);
    }
}

}  // namespace
}  // namespace quillon
