#include "scene/chart_colours.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace quillon {
namespace {

/// The greatest of the distances of their parts.
int Distance(COLORREF a, COLORREF b) {
    const auto apart = [](unsigned x, unsigned y) { return std::abs(static_cast<int>(x) - static_cast<int>(y)); };
    return std::max(
        {apart(GetRValue(a), GetRValue(b)), apart(GetGValue(a), GetGValue(b)), apart(GetBValue(a), GetBValue(b))});
}

/// What a filled area of a colour makes of the ground.
COLORREF AreaOf(COLORREF colour, bool night) {
    const double part = AreaAlpha(night) / 255.0;
    const auto mix = [&](unsigned ground, unsigned ink) {
        return static_cast<unsigned>(std::lround(ground + (static_cast<double>(ink) - ground) * part));
    };
    const COLORREF ground = ColoursOf(night).ground, ink = FeatureColour(colour, night);
    return RGB(mix(GetRValue(ground), GetRValue(ink)), mix(GetGValue(ground), GetGValue(ink)),
               mix(GetBValue(ground), GetBValue(ink)));
}

TEST(ChartColours, AtNightEveryColourStandsOffFromTheGroundAndFromEveryArea) {
    for (const PaletteColour& entry : kPalette) {
        const COLORREF line = FeatureColour(entry.colour, true), text = TextColour(entry.colour, true);
        EXPECT_LE(std::max({GetRValue(line), GetGValue(line), GetBValue(line)}), 190u) << entry.name;
        EXPECT_GE(ContrastOf(line, ColoursOf(true).ground), 3.0) << entry.name;
        EXPECT_GE(ContrastOf(text, ColoursOf(true).ground), 4.5) << entry.name;
        for (const PaletteColour& area : kPalette) {
            EXPECT_GE(ContrastOf(line, AreaOf(area.colour, true)), 3.0) << entry.name << " on " << area.name;
            EXPECT_GE(ContrastOf(text, AreaOf(area.colour, true)), 4.5) << entry.name << " on " << area.name;
        }
        EXPECT_GT(ContrastOf(AreaOf(entry.colour, true), ColoursOf(true).ground), 1.1) << "the area shows";
    }
    EXPECT_NE(FeatureColour(RGB(0, 0, 255), true), FeatureColour(RGB(0, 0, 128), true)) << "blues stay apart";
    EXPECT_GE(ContrastOf(ColoursOf(true).labelInk, ColoursOf(true).labelGround), 4.5);
}

TEST(ChartColours, ByDayColoursAreTheOperatorsUnlessTheyWouldVanish) {
    for (const PaletteColour& entry : kPalette) {
        EXPECT_GE(Distance(FeatureColour(entry.colour, false), ColoursOf(false).ground), 44) << entry.name;
        EXPECT_LE(Lightness(TextColour(entry.colour, false)), 0.46) << entry.name;
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
