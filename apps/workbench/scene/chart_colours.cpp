#include "scene/chart_colours.h"

#include <algorithm>
#include <cmath>

namespace quillon {
namespace {

constexpr ChartColours kDay = {
    .ground = RGB(236, 243, 247),
    .gridLine = RGB(205, 217, 224),
    .gridText = RGB(96, 112, 122),
    .graticule = RGB(150, 134, 176),
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
    .graticule = RGB(66, 54, 88),
    .scaleBar = RGB(128, 140, 148),
    .labelGround = RGB(14, 20, 25),
    .labelFrame = RGB(70, 80, 88),
    .labelInk = RGB(150, 160, 168),
    .shown = RGB(230, 96, 64),
    .shownCasing = RGB(0, 0, 0),
};

constexpr double kNightDim = 0.72;
/// The brightest grey that anything is drawn in at night.
constexpr COLORREF kNightBrightest = RGB(184, 184, 184);
/// A line lighter than this is lost on the day's ground.
constexpr double kDayMost = 0.86;
constexpr double kDayMostText = 0.45;

/// How grey a colour is: the distance between its strongest and its weakest part, 0 to 255.
int Chroma(COLORREF colour) {
    const int r = static_cast<int>(GetRValue(colour)), g = static_cast<int>(GetGValue(colour)),
              b = static_cast<int>(GetBValue(colour));
    return std::max({r, g, b}) - std::min({r, g, b});
}

/// The lightest that areas get at night: one in the brightest grey.
COLORREF NightAreaAtMost() {
    return Blend(ColoursOf(true).ground, kNightBrightest, AreaAlpha(true) / 255.0);
}

/// Stands off from all that may lie below it at night.
COLORREF LiftedAtNight(COLORREF colour, double contrast) {
    static const COLORREF below = NightAreaAtMost();
    return Lifted(colour, kNightBrightest, below, contrast);
}

}  // namespace

const ChartColours& ColoursOf(bool night) {
    return night ? kNight : kDay;
}

int AreaAlpha(bool night) {
    return night ? 56 : 84;
}

double Lightness(COLORREF colour) {
    return (0.2126 * GetRValue(colour) + 0.7152 * GetGValue(colour) + 0.0722 * GetBValue(colour)) / 255.0;
}

COLORREF FeatureColour(COLORREF colour, bool night) {
    if (night) return LiftedAtNight(Blend(0, colour, kNightDim), kLeastContrast);
    const double light = Lightness(colour);
    if (light <= kDayMost || Chroma(colour) > 160) return colour;
    return Blend(colour, 0, 1.0 - 0.6 * kDayMost / light);
}

COLORREF TextColour(COLORREF colour, bool night) {
    const COLORREF line = FeatureColour(colour, night);
    if (night) return LiftedAtNight(line, kLeastTextContrast);
    const double light = Lightness(line);
    return light <= kDayMostText ? line : Blend(line, 0, 1.0 - kDayMostText / light);
}

COLORREF ImageColour(COLORREF colour, bool night) {
    constexpr double kDim = 0.3;
    return night ? Blend(0, colour, kDim) : colour;
}

}  // namespace quillon
