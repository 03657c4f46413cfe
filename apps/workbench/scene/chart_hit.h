#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "scene/chart_scene.h"
#include "scene/chart_view.h"

namespace quillon {

/// What of a path lies nearest to a place.
struct PathHit {
    std::uint32_t point = 0;  ///< the vertex, or the one that the segment leads on from
    bool isVertex = false;
    tagXY at = {};           ///< the nearest place of the path
    double distance = 0.0;   ///< metres
    std::uint32_t next = 0;  ///< the point that the segment leads to; of a vertex itself
};

/// The nearest vertex within so many metres, or, if there is none, the nearest segment. Looks only at stretches whose
/// boxes are near enough.
std::optional<PathHit> HitPath(const PathLod& path, tagXY place, double radius);

/// The nearest place on the lines of a path, however far off; nothing for a path without lines.
std::optional<PathHit> NearestOnLines(const PathLod& path, tagXY place);

/// True if `other` is a better answer: a vertex before a segment, then the nearer.
bool IsBetterHit(const PathHit& other, const PathHit& than);

/// True if a place lies in the area of a path, gone round more often one way than the other. Each part is an area,
/// closed by a straight line where the path doesn't close it.
bool AreaHolds(const PathLod& path, tagXY place);

enum class HIT_KIND { VERTEX, SEGMENT, RING, AREA, VALUE };

/// What of a scene lies under a pixel.
struct ChartHit {
    std::uint64_t layer = 0;
    std::size_t item = 0;  ///< its place in the layer
    HIT_KIND kind = HIT_KIND::VERTEX;
    PathHit hit = {};        ///< of a ring the point in its middle; of areas and values only the place
    std::int32_t value = 0;  ///< of a raster
};

/// The nearest point or line of the paths that can be hit within so many pixels of a pixel; points come first. Of
/// equals the one that is drawn last.
std::optional<ChartHit> HitScene(const ChartScene& scene, const ChartView& view, PixelPoint at, double radius);

/// All that lies under a pixel, what one would mean first: points, lines, rings, areas, values; within each the
/// nearest, of equals the one that is drawn last. An item comes once, but one of lone points comes with each of its
/// nearest points, as far as kMostLonePoints.
inline constexpr std::size_t kMostLonePoints = 16;
std::vector<ChartHit> HitsOf(const ChartScene& scene, const ChartView& view, PixelPoint at, double radius);

}  // namespace quillon
