#include "display/bearing_cone.h"

#include <algorithm>
#include <cmath>

namespace quillon {
namespace {

constexpr double kQuarterTurn = 1.5707963267948966;
/// Of a range, and of an angle in radians: some hundred times what is lost to rounding on the way to a distance.
constexpr double kMargin = 1e-13;

/// Directions within this of a point's bearing pass within `distance` of it.
double HalfWidth(double distance, double range) {
    if (distance <= 0) return 0;
    return distance < range ? std::asin(distance / range) : kQuarterTurn;
}

}  // namespace

bool LineDirections::Has(double direction) const {
    direction -= direction >= kHalfTurn ? kHalfTurn : 0.0;
    const auto behind = std::upper_bound(arcs.begin(), arcs.end(), direction,
                                         [](double value, const Arc& arc) { return value < arc.first; });
    return behind != arcs.begin() && direction <= std::prev(behind)->second;
}

void LineDirections::Remove(double middle, double halfWidth) {
    if (halfWidth <= 0) return;
    double from = middle - halfWidth;
    from -= std::floor(from / kHalfTurn) * kHalfTurn;
    const double to = from + 2 * halfWidth;
    RemoveBetween(from, std::min(to, kHalfTurn));
    if (to > kHalfTurn) RemoveBetween(0, std::min(to - kHalfTurn, kHalfTurn));
}

void LineDirections::RemoveBetween(double from, double to) {
    // The arcs that the gap touches; all of them go but for what stands out on either side.
    const auto first =
        std::lower_bound(arcs.begin(), arcs.end(), from, [](const Arc& arc, double at) { return arc.second < at; });
    const auto last = std::upper_bound(first, arcs.end(), to, [](double at, const Arc& arc) { return at < arc.first; });
    if (first == last) return;
    const Arc left{first->first, from}, right{to, std::prev(last)->second};
    const bool keepsLeft = left.first < left.second, keepsRight = right.first < right.second;
    if (last - first == 1 && keepsLeft != keepsRight) {
        *first = keepsLeft ? left : right;
        return;
    }
    auto at = arcs.erase(first, last);
    if (keepsRight) at = arcs.insert(at, right);
    if (keepsLeft) arcs.insert(at, left);
}

void BearingCone::Reset() {
    surely.Fill();
    possibly.Fill();
}

void BearingCone::Add(double bearing, double range) {
    const double rounding = kMargin * range;
    if (range <= tolerance - rounding) return;
    surely.Remove(bearing + kQuarterTurn, kQuarterTurn - HalfWidth(tolerance - rounding, range) + kMargin);
    possibly.Remove(bearing + kQuarterTurn, kQuarterTurn - HalfWidth(tolerance + rounding, range) - kMargin);
}

BearingCone::ANSWER BearingCone::Judge(double bearing) const {
    if (surely.Has(bearing)) return ANSWER::FITS;
    return possibly.Has(bearing) ? ANSWER::UNSETTLED : ANSWER::BREAKS;
}

}  // namespace quillon
