#pragma once

#include <cmath>
#include <numbers>

#include "features/rpl_curves.h"
#include "foundation/range_bearing.h"

namespace quillon {

// What the forms of a route position list share: positions on the grid, and the records made of them.

inline constexpr double kPi = std::numbers::pi;
inline constexpr double kTwoPi = 2.0 * std::numbers::pi;

inline double Bearing(tagXY from, tagXY to) {
    double bearing = 0.0;
    RangeBearing(from, to, &bearing, nullptr);
    return bearing;
}

inline double Range(tagXY from, tagXY to) {
    double range = 0.0;
    RangeBearing(from, to, nullptr, &range);
    return range;
}

inline tagXY Offset(tagXY from, double bearing, double range) {
    return {from.x + range * std::sin(bearing), from.y + range * std::cos(bearing)};
}

inline tagXY Middle(tagXY a, tagXY b) {
    return {a.x + 0.5 * (b.x - a.x), a.y + 0.5 * (b.y - a.y)};
}
/// Where a plain corner stands between two places: in their middle, but for 0, 0, which stands for no position.
inline tagXY CornerBetween(tagXY a, tagXY b) {
    const tagXY middle = Middle(a, b);
    return middle == tagXY() ? b : middle;
}

/// Brought into 0 to 2 pi.
inline double WithinTurn(double angle) {
    if (angle < 0.0) return angle + kTwoPi;
    return angle >= kTwoPi ? angle - kTwoPi : angle;
}

/// A corner without a curve, or an end: every point of it lies there.
inline void MakePlain(RPLDef& record, tagXY at) {
    record.position = record.centre = record.curveStart = record.curveEnd = at;
    record.radius = record.startRadial = record.endRadial = 0.0;
    record.interiorAngle = record.sweep = record.arcLength = 0.0;
    record.direction = 0;
}

/// Metres by which an arc may end beside the end that its file gives, before the report says so.
inline constexpr double kMissedEnd = 1.0;

inline bool MeetsItsEnd(const RPLDef& record) {
    return Range(Offset(record.centre, record.endRadial, record.radius), record.curveEnd) < kMissedEnd;
}

}  // namespace quillon
