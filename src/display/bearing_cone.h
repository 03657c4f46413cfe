#pragma once

#include <utility>
#include <vector>

#include "foundation/values.h"

namespace quillon {

/// Directions of lines that have no sense of travel, 0 to pi in radians: a set of arcs.
class LineDirections {
public:
    LineDirections() { Fill(); }
    void Fill() { arcs.assign(1, {0.0, kHalfTurn}); }
    bool Has(double direction) const;
    /// Takes out what lies less than `halfWidth` from `middle`, which may be in any turn.
    void Remove(double middle, double halfWidth);

private:
    static constexpr double kHalfTurn = 3.141592653589793;
    using Arc = std::pair<double, double>;

    void RemoveBetween(double from, double to);

    std::vector<Arc> arcs;  ///< in ascending order, apart from each other
};

/// Which lines through an anchor pass within a tolerance of all points seen so far. A question costs the same however
/// many points there are, since of all of them only the directions are kept that still fit. The answer is sure, or it
/// is that the line lies within rounding of the edge of a point's tolerance.
class BearingCone {
public:
    enum class ANSWER { FITS, BREAKS, UNSETTLED };

    /// For finite points that lie up to 1e100 from the anchor. Metres.
    explicit BearingCone(double maximumDistance) : tolerance(maximumDistance) {}

    void Reset();
    /// A point at this bearing, radians clockwise from north, and range from the anchor.
    void Add(double bearing, double range);
    ANSWER Judge(double bearing) const;

private:
    double tolerance;
    LineDirections surely;    ///< fit whatever the rounding
    LineDirections possibly;  ///< don't break by more than rounding
};

}  // namespace quillon
