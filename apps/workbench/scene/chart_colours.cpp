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
/// Of lines and symbols against all that they may lie on: the ground, and areas in any colour.
constexpr double kLeastContrast = 3.0;
constexpr double kLeastTextContrast = 4.5;
/// A line lighter than this is lost on the day's ground.
constexpr double kDayMost = 0.86;
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

/// The share of the light that a part of a colour stands for (IEC 61966-2-1).
double LinearPart(unsigned part) {
    const double share = part / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

/// The lightest that areas get at night: one in the brightest grey.
COLORREF NightAreaAtMost() {
    return Blend(ColoursOf(true).ground, kNightBrightest, AreaAlpha(true) / 255.0);
}

/// A colour with as much grey blended in as it takes to stand off from all that may lie below it at night. Hues that
/// are dark by nature, such as blue, stay as saturated as that allows.
COLORREF Lifted(COLORREF colour, double contrast) {
    static const COLORREF below = NightAreaAtMost();
    double least = 0.0, most = 1.0;
    if (ContrastOf(colour, below) >= contrast) return colour;
    for (int step = 0; step < 10; ++step) {
        const double middle = 0.5 * (least + most);
        (ContrastOf(Blend(colour, kNightBrightest, middle), below) >= contrast ? most : least) = middle;
    }
    return Blend(colour, kNightBrightest, most);
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

double ContrastOf(COLORREF a, COLORREF b) {
    const auto luminance = [](COLORREF colour) {
        return 0.2126 * LinearPart(GetRValue(colour)) + 0.7152 * LinearPart(GetGValue(colour)) +
               0.0722 * LinearPart(GetBValue(colour));
    };
    const double one = luminance(a) + 0.05, other = luminance(b) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

COLORREF FeatureColour(COLORREF colour, bool night) {
    if (night) return Lifted(Blend(0, colour, kNightDim), kLeastContrast);
    const double light = Lightness(colour);
    if (light <= kDayMost || Chroma(colour) > 160) return colour;
    return Blend(colour, 0, 1.0 - 0.6 * kDayMost / light);
}

COLORREF TextColour(COLORREF colour, bool night) {
    const COLORREF line = FeatureColour(colour, night);
    if (night) return Lifted(line, kLeastTextContrast);
    const double light = Lightness(line);
    return light <= kDayMostText ? line : Blend(line, 0, 1.0 - kDayMostText / light);
}

COLORREF ImageColour(COLORREF colour, bool night) {
    constexpr double kDim = 0.3;
    return night ? Blend(0, colour, kDim) : colour;
}

}  // namespace quillon
