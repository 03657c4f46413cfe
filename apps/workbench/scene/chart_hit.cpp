#include "scene/chart_hit.h"

#include <cmath>

namespace quillon {
namespace {

double SquaredDistanceToBox(const ChartBox& box, tagXY p) {
    const double dx = std::max({box.minX - p.x, 0.0, p.x - box.maxX});
    const double dy = std::max({box.minY - p.y, 0.0, p.y - box.maxY});
    return dx * dx + dy * dy;
}

tagXY NearestOf(tagXY a, tagXY b, tagXY place) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double length2 = dx * dx + dy * dy;
    const double t = length2 > 0 ? std::clamp(((place.x - a.x) * dx + (place.y - a.y) * dy) / length2, 0.0, 1.0) : 0.0;
    return {a.x + t * dx, a.y + t * dy};
}

/// The nearest vertex and the nearest segment met so far.
class Search {
public:
    Search(const PathLod& lod, tagXY from, double radius)
        : path(lod), place(from), vertexBest(radius * radius), segmentBest(radius * radius) {}

    void LookAt(const PathLod::Chunk& chunk) {
        const double away = SquaredDistanceToBox(chunk.box, place);
        if (away > vertexBest && (hasVertex || away > segmentBest)) return;
        const PathLod::Level& level = path.Full();
        for (std::size_t i = chunk.first; i < chunk.first + chunk.count; ++i) {
            const std::uint32_t index = level.PointOf(i);
            const tagXY p = path.Points()[index];
            TakeVertex(p, index);
            const bool isLast = i + 1 == chunk.first + chunk.count;
            if (hasVertex || (isLast && chunk.next == PathLod::kNone)) continue;
            TakeSegment(p, path.Points()[isLast ? chunk.next : level.PointOf(i + 1)], index);
        }
    }
    std::optional<PathHit> Result() const {
        if (hasVertex) return vertex;
        if (hasSegment) return segment;
        return std::nullopt;
    }

private:
    void TakeVertex(tagXY p, std::uint32_t index) {
        const double d2 = (p.x - place.x) * (p.x - place.x) + (p.y - place.y) * (p.y - place.y);
        if (d2 > vertexBest || (hasVertex && d2 == vertexBest)) return;
        vertexBest = d2;
        hasVertex = true;
        vertex = {index, true, p, std::sqrt(d2)};
    }
    void TakeSegment(tagXY a, tagXY b, std::uint32_t index) {
        const double d2 = SquaredDistance(place.x, place.y, a.x, a.y, b.x, b.y);
        if (d2 > segmentBest || (hasSegment && d2 == segmentBest)) return;
        segmentBest = d2;
        hasSegment = true;
        segment = {index, false, NearestOf(a, b, place), std::sqrt(d2)};
    }

    const PathLod& path;
    tagXY place;
    double vertexBest, segmentBest;
    bool hasVertex = false, hasSegment = false;
    PathHit vertex, segment;
};

}  // namespace

std::optional<PathHit> HitPath(const PathLod& path, tagXY place, double radius) {
    if (!path.Box().Grown(radius).Contains(place.x, place.y)) return std::nullopt;
    Search search(path, place, radius);
    for (const PathLod::Chunk& chunk : path.Full().Chunks()) search.LookAt(chunk);
    return search.Result();
}

bool IsBetterHit(const PathHit& other, const PathHit& than) {
    if (other.isVertex != than.isVertex) return other.isVertex;
    return other.distance < than.distance;
}

}  // namespace quillon
