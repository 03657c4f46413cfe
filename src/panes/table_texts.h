#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include "foundation/angle_units.h"
#include "foundation/values.h"
#include "platform/text.h"

namespace quillon {

/// A coordinate or height as the points tables show it; a missing one is left blank.
inline std::string MetresText(double metres) {
    return IsMissing(metres) ? std::string() : Format("%.3lf", metres);
}

/// The length of a leg.
inline std::string RangeText(double metres) {
    return Format("%.2lfm", metres);
}

/// A bearing in degrees, from radians, with the degree sign.
inline std::string BearingText(double bearing) {
    return Format("%.1lf\xB0", bearing * kDegreesPerRadian);
}

/// The texts of the least and the greatest of a column's numbers: one of them is the widest. `number(i)` is the number
/// of row i.
template <class Number, class Text>
std::vector<std::string> ExtremeTexts(std::ptrdiff_t count, Number number, Text text) {
    double least = std::numeric_limits<double>::infinity();
    double greatest = -least;
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        const double value = number(i);
        if (IsMissing(value)) continue;
        least = std::min(least, value);
        greatest = std::max(greatest, value);
    }
    if (least > greatest) return {};
    return {text(least), text(greatest)};
}

/// The longest of the names of an array's records.
template <class Records>
std::string LongestName(const Records& records) {
    const auto longest = std::max_element(records.begin(), records.end(),
                                          [](const auto& a, const auto& b) { return a.name.size() < b.name.size(); });
    return longest == records.end() ? std::string() : longest->name;
}

}  // namespace quillon
