#pragma once

#include "foundation/values.h"

namespace quillon {

/// One straight step between two grid positions. Bearings in radians clockwise from grid north, 0 to 2 pi; a leg of no
/// length has bearing 0.
struct LegDef {
    double range = 0.0;  ///< metres
    double bearing = 0.0;
    double sine = 0.0;
    double cosine = 0.0;
    double reverseBearing = 0.0;
    double running = 0.0;  ///< its owner's; 0 after MakeLeg
    friend bool operator==(const LegDef&, const LegDef&) = default;
};

LegDef MakeLeg(tagXY from, tagXY to);

/// The bearing back: pi more, or less where that would pass a full turn.
double ReverseBearing(double bearing);

}  // namespace quillon
