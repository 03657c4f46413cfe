#pragma once

#include "foundation/values.h"

namespace quillon {

/// Two sides of a corridor at one point of a line.
struct CorridorCorner {
    tagXY port;
    tagXY starboard;
    friend bool operator==(const CorridorCorner&, const CorridorCorner&) = default;
};

/// Widths of a corridor to either side, metres.
struct CorridorWidths {
    double port = 0.0;
    double starboard = 0.0;
};

/// The corridor square to a leg at one of its ends, from the sine and cosine of the leg's bearing.
CorridorCorner SquareCorner(tagXY at, double sine, double cosine, CorridorWidths widths);

/// The mitre at `at`, between the legs from `before` and to `after`: the lines of both legs are moved sideways by the
/// width, and the corner is where the moved lines cross, however far out. Where they are parallel (straight through, a
/// reversal, a leg of no length) the corner is square to the leg coming in; a leg of no length has bearing 0.
///
/// The crossing is taken along the leg coming in, by the tangent of half the turn. Of three points nearly in line it is
/// good to the rounding of the coordinates, where the crossing of two nearly equal lines would lie anywhere along them.
CorridorCorner MitreCorner(tagXY before, tagXY at, tagXY after, CorridorWidths widths);

}  // namespace quillon
