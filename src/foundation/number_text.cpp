#include "foundation/number_text.h"

#include <algorithm>
#include <cmath>

#include "platform/text.h"

namespace quillon {
namespace {

constexpr int kDecimalsForNegative = 2;

}  // namespace

tagNumberBounds NumberBounds(int width, int decimals, bool forceSign) {
    if (width <= 0) return {};
    if (decimals < 0) decimals = kDecimalsForNegative;
    std::string nines(static_cast<std::size_t>(width), '9');
    const int point = width - decimals - 1;
    int d = 0;
    if (point >= 1) {
        nines[static_cast<std::size_t>(point)] = '.';
        d = decimals;
    }
    tagNumberBounds bounds;
    if (forceSign) nines.front() = '+';
    bounds.upper = Atof(nines);
    if (width - d < 3) {
        if (forceSign) bounds.upper = 0.0;
        return bounds;
    }
    nines.front() = '-';
    bounds.lower = Atof(nines);
    return bounds;
}

std::string FormatDouble(double value, int width, int decimals, bool forceSign, bool fixed) {
    if (width <= 0) return "";
    if (decimals < 0) decimals = kDecimalsForNegative;
    const tagNumberBounds bounds = NumberBounds(width, decimals, forceSign);
    if (std::isnan(value)) value = 0.0;
    // Adding zero turns a negative zero into a plain one, for which there may be no place.
    value = std::clamp(value, bounds.lower, bounds.upper) + 0.0;
    const std::string conversion = Format("%%%s%s%d.%dlf", fixed ? "0" : "", forceSign ? "+" : "", width, decimals);
    return Format(conversion.c_str(), value);
}

}  // namespace quillon
