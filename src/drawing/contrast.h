#pragma once

#include "platform/palette.h"

namespace quillon {

/// How strongly lines and symbols must stand off from what they lie on, and thin letters (Web Content Accessibility
/// Guidelines 2.1, W3C, 2018).
inline constexpr double kLeastContrast = 3.0;
inline constexpr double kLeastTextContrast = 4.5;

/// How strongly two colours stand off from each other, 1 to 21: the contrast ratio of the same guidelines.
double ContrastOf(COLORREF a, COLORREF b);

/// From the one colour (part 0) to the other (1).
COLORREF Blend(COLORREF from, COLORREF to, double part);

/// A colour with as much of another blended in as it takes to stand off from what lies below. Hues that are dark by
/// nature, such as blue, stay as saturated as that allows.
COLORREF Lifted(COLORREF colour, COLORREF towards, COLORREF below, double contrast);

}  // namespace quillon
