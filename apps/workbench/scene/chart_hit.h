#pragma once

#include <cstdint>
#include <optional>

#include "scene/chart_view.h"
#include "scene/path_lod.h"

namespace quillon {

/// What of a path lies nearest to a place.
struct PathHit {
    std::uint32_t point = 0;  ///< the vertex, or the one that the segment leads on from
    bool isVertex = false;
    tagXY at;               ///< the nearest place of the path
    double distance = 0.0;  ///< metres
};

/// The nearest vertex within so many metres, or, if there is none, the nearest segment. Looks only at stretches whose
/// boxes are near enough.
std::optional<PathHit> HitPath(const PathLod& path, tagXY place, double radius);

/// What of a chart lies under a pixel.
struct ChartHit {
    std::uint64_t layer = 0;
    std::size_t path = 0;
    PathHit hit;
};

/// True if `other` is a better answer: a vertex before a segment, then the nearer.
bool IsBetterHit(const PathHit& other, const PathHit& than);

}  // namespace quillon
