#pragma once

#include "foundation/values.h"

namespace quillon {

/// The straight line on the grid from one point to another: the bearing in radians, clockwise from grid north, at least
/// 0 and below 2 pi, and the range in the unit of the points. The bearing is 0 between points that are exactly equal.
/// Either result may be left out (nullptr).
void RangeBearing(double fromEasting, double fromNorthing, double toEasting, double toNorthing, double* bearing,
                  double* range);

inline void RangeBearing(tagXY from, tagXY to, double* bearing, double* range) {
    RangeBearing(from.x, from.y, to.x, to.y, bearing, range);
}

}  // namespace quillon
