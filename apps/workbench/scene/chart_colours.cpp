#include "scene/chart_colours.h"

#include <algorithm>
#include <cmath>

namespace quillon {
namespace {

constexpr ChartColours kDay = {
    .ground = RGB(236, 243, 247),
    .gridLine = RGB(205, 217, 224),
    .gridText = RGB(96, 112, 122),
    .scaleBar = RGB(52, 66, 76),
    .labelGround = 0xE7FFFF,
    .labelFrame = RGB(0, 0, 0),
    .labelInk = RGB(0, 0, 0),
    .shown = RGB(208, 0, 60),
    .shownCasing = RGB(255, 255, 255),
};
constexpr ChartColours kNight = {
    .ground = RGB(0, 0, 0),
    .gridLine = RGB(28, 36, 42),
    .gridText = RGB(98, 110, 118),
    .scaleBar = RGB(128, 140, 148),
    .labelGround = RGB(14, 20, 25),
    .labelFrame = RGB(70, 80, 88),
    .labelInk = RGB(150, 160, 168),
    .shown = RGB(230, 96, 64),
    .shownCasing = RGB(0, 0, 0),
};

constexpr double kNightDim = 0.72;
/// A line darker than this is lost on black.
constexpr double kNightLeast = 0.16;
/// A line lighter than this is lost on the day's ground.
constexpr double kDayMost = 0.86;

constexpr double kNightLeastText = 0.36;
constexpr double kDayMostText = 0.45;

COLORREF Blend(COLORREF from, COLORREF to, double part) {
    const auto mix = [part](unsigned a, unsigned b) {
        return static_cast<unsigned>(std::lround(a + (static_cast<double>(b) - a) * part));
    };
    return RGB(mix(GetRValue(from), GetRValue(to)), mix(GetGValue(from), GetGValue(to)),
               mix(GetBValue(from), GetBValue(to)));
}

/// How grey a colour is: the distance between its strongest and its weakest part, 0 to 255.
int Chroma(COLORREF colour) {
    const int r = static_cast<int>(GetRValue(colour)), g = static_cast<int>(GetGValue(colour)),
              b = static_cast<int>(GetBValue(colour));
    return std::max({r, g, b}) - std::min({r, g, b});
}

}  // namespace

const ChartColours& ColoursOf(bool night) {
    return night ? kNight : kDay;
}

double Lightness(COLORREF colour) {
    return (0.2126 * GetRValue(colour) + 0.7152 * GetGValue(colour) + 0.0722 * GetBValue(colour)) / 255.0;
}

COLORREF FeatureColour(COLORREF colour, bool night) {
    if (night) {
        const COLORREF dimmed = Blend(0, colour, kNightDim);
        const double light = Lightness(dimmed);
        if (light >= kNightLeast) return dimmed;
        // White blended in by part p gives light + (1 - light) p; blue already shines more than its weight says.
        const double least = kNightLeast * (1.0 - 0.3 * Chroma(dimmed) / 255.0) + (Chroma(dimmed) == 0 ? 0.24 : 0.0);
        return Blend(dimmed, 0xFFFFFF, std::max(0.0, (least - light) / (1.0 - light)));
    }
    const double light = Lightness(colour);
    if (light <= kDayMost || Chroma(colour) > 160) return colour;
    return Blend(colour, 0, 1.0 - 0.6 * kDayMost / light);
}

COLORREF TextColour(COLORREF colour, bool night) {
    const COLORREF line = FeatureColour(colour, night);
    const double light = Lightness(line);
    if (night)
        return light >= kNightLeastText ? line : Blend(line, 0xFFFFFF, (kNightLeastText - light) / (1.0 - light));
    return light <= kDayMostText ? line : Blend(line, 0, 1.0 - kDayMostText / light);
}

COLORREF ImageColour(COLORREF colour, bool night) {
    constexpr double kDim = 0.3;
    return night ? Blend(0, colour, kDim) : colour;
}

}  // namespace quillon
