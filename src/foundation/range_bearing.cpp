#include "foundation/range_bearing.h"

#include <cmath>

namespace quillon {
namespace {

constexpr double kTwoPi = 6.283185307179586;

double BearingOf(double dE, double dN) {
    // Not left to atan2: with a difference of minus zero it answers pi.
    if (dE == 0.0 && dN == 0.0) return 0.0;
    const double bearing = std::atan2(dE, dN);
    return bearing < 0.0 ? bearing + kTwoPi : bearing;
}

}  // namespace

void RangeBearing(double fromEasting, double fromNorthing, double toEasting, double toNorthing, double* bearing,
                  double* range) {
    const double dE = toEasting - fromEasting;
    const double dN = toNorthing - fromNorthing;
    if (bearing) *bearing = BearingOf(dE, dN);
    if (range) *range = std::sqrt(dE * dE + dN * dN);
}

}  // namespace quillon
