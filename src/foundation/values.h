#pragma once

#include <limits>

#include "platform/array.h"

namespace quillon {

/// A grid position in metres, easting then northing; also any coordinate pair of a drawing.
struct tagXY {
    double x = 0.0;  ///< easting
    double y = 0.0;  ///< northing
    friend bool operator==(const tagXY&, const tagXY&) = default;
};

/// A grid position with a height or a depth, in metres.
struct tagXYZ {
    double x = 0.0;  ///< easting
    double y = 0.0;  ///< northing
    double z = 0.0;
    friend bool operator==(const tagXYZ&, const tagXYZ&) = default;
};

class CXYArray : public CArray<tagXY> {};

/// Stands for "no value": what an absent or unreadable field of a data file comes out as. It is the largest finite
/// double and never written to a data file.
inline constexpr double MISSING_VALUE = std::numeric_limits<double>::max();
static_assert(MISSING_VALUE == 1.7976931348623157e308);

/// Exact: the largest finite double and nothing near it.
constexpr bool IsMissing(double value) {
    return value == MISSING_VALUE;
}

}  // namespace quillon
