#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "platform/array.h"
#include "platform/text.h"

namespace quillon {

/// A coordinate or height as the points tables show it.
inline std::string MetresText(double metres) {
    return Format("%.3lf", metres);
}

/// The texts of the least and the greatest of a column's numbers: one of them is the widest. `number(i)` is the number
/// of row i.
template <class Number, class Text>
std::vector<std::string> ExtremeTexts(std::ptrdiff_t count, Number number, Text text) {
    if (count == 0) return {};
    double least = number(0);
    double greatest = least;
    for (std::ptrdiff_t i = 1; i < count; ++i) {
        const double value = number(i);
        least = std::min(least, value);
        greatest = std::max(greatest, value);
    }
    return {text(least), text(greatest)};
}

}  // namespace quillon
