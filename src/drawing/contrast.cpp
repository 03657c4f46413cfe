#include "drawing/contrast.h"

#include <algorithm>
#include <cmath>

namespace quillon {
namespace {

/// The share of the light that a part of a colour stands for (IEC 61966-2-1).
double LinearPart(unsigned part) {
    const double share = part / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

}  // namespace

double ContrastOf(COLORREF a, COLORREF b) {
    const auto luminance = [](COLORREF colour) {
        return 0.2126 * LinearPart(GetRValue(colour)) + 0.7152 * LinearPart(GetGValue(colour)) +
               0.0722 * LinearPart(GetBValue(colour));
    };
    const double one = luminance(a) + 0.05, other = luminance(b) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

COLORREF Blend(COLORREF from, COLORREF to, double part) {
    const auto mix = [part](unsigned a, unsigned b) {
        return static_cast<unsigned>(std::lround(a + (static_cast<double>(b) - a) * part));
    };
    return RGB(mix(GetRValue(from), GetRValue(to)), mix(GetGValue(from), GetGValue(to)),
               mix(GetBValue(from), GetBValue(to)));
}

COLORREF Lifted(COLORREF colour, COLORREF towards, COLORREF below, double contrast) {
    if (ContrastOf(colour, below) >= contrast) return colour;
    double least = 0.0, most = 1.0;
    for (int step = 0; step < 10; ++step) {
        const double middle = 0.5 * (least + most);
        (ContrastOf(Blend(colour, towards, middle), below) >= contrast ? most : least) = middle;
    }
    return Blend(colour, towards, most);
}

}  // namespace quillon
