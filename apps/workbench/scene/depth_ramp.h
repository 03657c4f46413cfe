#pragma once

#include <vector>

#include "platform/palette.h"

namespace quillon {

/// A colour by how it is seen: CIELAB (CIE 15:2004) under the white of sRGB screens, D65.
struct LabColour {
    double lightness = 0.0;  ///< 0 to 100
    double a = 0.0;          ///< green to red
    double b = 0.0;          ///< blue to yellow
};

LabColour LabOf(COLORREF colour);
/// The nearest colour that a screen has.
COLORREF ColourOf(const LabColour& colour);
/// How far apart two colours look: the distance in CIELAB (CIE 1976).
double Difference(const LabColour& a, const LabColour& b);

/// So many colours for depths, shoal to deep: a way through CIELAB in equal steps, so that equal differences of depth
/// look equal, with a lightness that falls all along it. By day from sand over the green of shoal water to blue, all of
/// it light enough for lines and figures to stand on; at night the same way in the dark, below what lines stand off
/// from.
std::vector<COLORREF> DepthRamp(bool night, int count);

}  // namespace quillon
