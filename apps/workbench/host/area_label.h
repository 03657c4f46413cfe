#pragma once

#include <optional>

#include "scene/chart_points.h"

namespace quillon {

/// Where the name of an area stands inside it.
struct AreaLabel {
    tagXY at;
    /// Bearing (radians, 0 to pi) of the text in an area that is long and narrow there; none: level.
    std::optional<double> along;
    /// Metres from edge to edge through the place, in the direction of the text.
    double room = 0.0;
};

/// A place well inside the polygon, near its middle, that is as far from the edges as the polygon allows; the ring is
/// closed in thought. None with fewer than 3 points or without an inside. Of a ring with very many points a few
/// hundred are looked at, so that the time is bounded.
std::optional<AreaLabel> PlaceAreaLabel(const ChartPoints& ring);

}  // namespace quillon
