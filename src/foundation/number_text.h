#pragma once

#include <string>

namespace quillon {

struct tagNumberBounds {
    double lower = 0.0, upper = 0.0;
    bool Hold(double value) const { return value >= lower && value <= upper; }
};

/// The numbers that FormatDouble can show in a width.
tagNumberBounds NumberBounds(int width, int decimals, bool forceSign);

/// A number as an edit field `width` characters wide shows it, right-aligned or, when `fixed`, filled with zeros. A
/// negative `decimals` counts as 2; width 0 gives an empty text.
///
/// The value is first held to what the width can show: to nines throughout, and below to nines behind a "-". One place
/// is kept for the point even without decimals, so 4 characters reach from -99 to 999. Where fewer than three
/// characters are left of the decimals no sign fits: negative values come out as 0, and with `forceSign` all values do.
/// NaN counts as 0. Decimals that the width can't hold (`width` < `decimals` + 2) are written all the same.
std::string FormatDouble(double value, int width, int decimals, bool forceSign, bool fixed);

}  // namespace quillon
