#include "features/leg.h"

#include <cmath>
#include <numbers>

#include "foundation/range_bearing.h"

namespace quillon {

LegDef MakeLeg(tagXY from, tagXY to) {
    LegDef leg;
    RangeBearing(from.x, from.y, to.x, to.y, &leg.bearing, &leg.range);
    leg.sine = std::sin(leg.bearing);
    leg.cosine = std::cos(leg.bearing);
    leg.reverseBearing = ReverseBearing(leg.bearing);
    return leg;
}

double ReverseBearing(double bearing) {
    return bearing < std::numbers::pi ? bearing + std::numbers::pi : bearing - std::numbers::pi;
}

}  // namespace quillon
