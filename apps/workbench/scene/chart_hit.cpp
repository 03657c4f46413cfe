#include "scene/chart_hit.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

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
        path.Full().EachRun(chunk, [this](const PathLod::Run& run) { LookAt(run); });
    }
    std::optional<PathHit> Result() const {
        if (hasVertex) return vertex;
        if (hasSegment) return segment;
        return std::nullopt;
    }

private:
    void LookAt(const PathLod::Run& run) {
        const PathLod::Level& level = path.Full();
        for (std::uint32_t i = run.first; i < run.first + run.count; ++i) {
            const std::uint32_t index = level.PointOf(i);
            const tagXY p = path.Points()[index];
            TakeVertex(p, index);
            const std::uint32_t next = i + 1 < run.first + run.count ? level.PointOf(i + 1) : run.next;
            if (!hasVertex && next != PathLod::kNone) TakeSegment(p, path.Points()[next], index, next);
        }
    }
    void TakeVertex(tagXY p, std::uint32_t index) {
        const double d2 = (p.x - place.x) * (p.x - place.x) + (p.y - place.y) * (p.y - place.y);
        if (d2 > vertexBest || (hasVertex && d2 == vertexBest)) return;
        vertexBest = d2;
        hasVertex = true;
        vertex = {index, true, p, std::sqrt(d2), index};
    }
    void TakeSegment(tagXY a, tagXY b, std::uint32_t index, std::uint32_t next) {
        const double d2 = SquaredDistance(place.x, place.y, a.x, a.y, b.x, b.y);
        if (d2 > segmentBest || (hasSegment && d2 == segmentBest)) return;
        segmentBest = d2;
        hasSegment = true;
        segment = {index, false, NearestOf(a, b, place), std::sqrt(d2), next};
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

std::optional<PathHit> NearestOnLines(const PathLod& path, tagXY place) {
    const PathLod::Level& level = path.Full();
    std::optional<PathHit> best;
    double best2 = std::numeric_limits<double>::infinity();
    const auto look = [&](const PathLod::Run& run) {
        for (std::uint32_t i = run.first; i < run.first + run.count; ++i) {
            const std::uint32_t index = level.PointOf(i);
            const std::uint32_t next = i + 1 < run.first + run.count ? level.PointOf(i + 1) : run.next;
            if (next == PathLod::kNone) continue;
            const tagXY at = NearestOf(path.Points()[index], path.Points()[next], place);
            const double d2 = (at.x - place.x) * (at.x - place.x) + (at.y - place.y) * (at.y - place.y);
            if (!(d2 < best2)) continue;
            best2 = d2;
            best = {index, false, at, std::sqrt(d2), next};
        }
    };
    // The chunk whose box is nearest comes first: few others can hold anything nearer than what is found there.
    const auto nearest =
        std::min_element(level.Chunks().begin(), level.Chunks().end(), [&](const auto& a, const auto& b) {
            return SquaredDistanceToBox(a.box, place) < SquaredDistanceToBox(b.box, place);
        });
    if (nearest != level.Chunks().end()) level.EachRun(*nearest, look);
    for (const PathLod::Chunk& chunk : level.Chunks()) {
        if (SquaredDistanceToBox(chunk.box, place) < best2) level.EachRun(chunk, look);
    }
    return best;
}

bool AreaHolds(const PathLod& path, tagXY place) {
    if (!path.Box().Contains(place.x, place.y)) return false;
    int winding = 0;
    const auto cross = [&](tagXY a, tagXY b) {
        if ((a.y > place.y) == (b.y > place.y)) return;
        const double side = (b.x - a.x) * (place.y - a.y) - (b.y - a.y) * (place.x - a.x);
        if (b.y > a.y ? side > 0 : side < 0) winding += b.y > a.y ? 1 : -1;
    };
    const PathLod::Level& level = path.Full();
    const ChartPoints& points = path.Points();
    for (const PathLod::Chunk& chunk : level.Chunks()) {
        if (chunk.box.minY > place.y || chunk.box.maxY < place.y || chunk.box.maxX < place.x) continue;
        level.EachRun(chunk, [&](const PathLod::Run& run) {
            for (std::uint32_t i = run.first; i < run.first + run.count; ++i) {
                const std::uint32_t next = i + 1 < run.first + run.count ? level.PointOf(i + 1) : run.next;
                if (next != PathLod::kNone) cross(points[level.PointOf(i)], points[next]);
            }
        });
    }
    level.EachOpenPart([&](std::uint32_t first, std::uint32_t last) { cross(points[last], points[first]); });
    return winding != 0;
}

bool IsBetterHit(const PathHit& other, const PathHit& than) {
    if (other.isVertex != than.isVertex) return other.isVertex;
    return other.distance < than.distance;
}

namespace {

/// What of one item lies near a place.
class ItemHit {
public:
    using Hits = std::vector<ChartHit>;

    ItemHit(tagXY where, double metres) : place(where), radius(metres) {}

    Hits operator()(const ChartPath& path) const {
        if (!path.canBeHit) return {};
        const PathLod::Level& level = path.path->Full();
        if (level.PartCount() == level.VertexCount()) return LonePoints(*path.path);
        if (const auto hit = HitPath(*path.path, place, radius)) {
            return {ChartHit{.kind = hit->isVertex ? HIT_KIND::VERTEX : HIT_KIND::SEGMENT, .hit = *hit}};
        }
        if (path.fill.style == kFillNone || !AreaHolds(*path.path, place)) return {};
        return {ChartHit{.kind = HIT_KIND::AREA, .hit = {.at = place}}};
    }
    Hits operator()(const ChartRings& rings) const {
        std::optional<ChartHit> best;
        for (const ChartRings::Ring& ring : rings.rings) EachNear(rings, ring, best);
        return best ? Hits{*best} : Hits{};
    }
    Hits operator()(const ChartImage& image) const {
        const std::int32_t value = image.raster->ValueAt(place);
        if (value == ChartRaster::kNone) return {};
        return {ChartHit{.kind = HIT_KIND::VALUE, .hit = {.at = place}, .value = value}};
    }
    Hits operator()(const ChartTexts&) const { return {}; }
    Hits operator()(const ChartLetters&) const { return {}; }

private:
    /// Symbols that lie over one another are all of them under the place.
    Hits LonePoints(const PathLod& path) const {
        Hits hits;
        const auto isNearer = [](const ChartHit& a, const ChartHit& b) { return a.hit.distance < b.hit.distance; };
        const PathLod::Level& level = path.Full();
        for (const PathLod::Chunk& chunk : level.Chunks()) {
            if (!chunk.box.Grown(radius).Contains(place.x, place.y)) continue;
            for (std::uint32_t i = chunk.first; i < chunk.first + chunk.count; ++i) {
                const std::uint32_t index = level.PointOf(i);
                const tagXY at = path.Points()[index];
                if (std::abs(at.x - place.x) > radius || std::abs(at.y - place.y) > radius) continue;
                const double off = std::hypot(at.x - place.x, at.y - place.y);
                if (off > radius) continue;
                const ChartHit hit{.kind = HIT_KIND::VERTEX, .hit = {index, true, at, off, index}};
                if (hits.size() == kMostLonePoints && !isNearer(hit, hits.back())) continue;
                hits.insert(std::upper_bound(hits.begin(), hits.end(), hit, isNearer), hit);
                if (hits.size() > kMostLonePoints) hits.pop_back();
            }
        }
        return hits;
    }
    /// The ring whose line is nearest to the place.
    void EachNear(const ChartRings& rings, const ChartRings::Ring& ring, std::optional<ChartHit>& best) const {
        const double reach = ring.radius + (rings.own ? rings.own->greatest : 0.0) + radius;
        const PathLod::Level& level = rings.centres->Full();
        for (const PathLod::Chunk& chunk : level.Chunks()) {
            if (!chunk.box.Grown(reach).Contains(place.x, place.y)) continue;
            for (std::uint32_t i = chunk.first; i < chunk.first + chunk.count; ++i) {
                const std::uint32_t index = level.PointOf(i);
                const tagXY centre = rings.centres->Points()[index];
                const double wanted = rings.RadiusOf(ring, index);
                const double off = std::abs(std::hypot(place.x - centre.x, place.y - centre.y) - wanted);
                if (!(wanted > 0) || off > radius || (best && best->hit.distance <= off)) continue;
                best = ChartHit{.kind = HIT_KIND::RING, .hit = {index, false, place, off, index}};
            }
        }
    }

    tagXY place;
    double radius;
};

}  // namespace

std::vector<ChartHit> HitsOf(const ChartScene& scene, const ChartView& view, PixelPoint at, double radius) {
    const ItemHit hitOf(view.ToWorld(at), radius * view.MetresPerPixel());
    std::vector<ChartHit> hits;
    for (std::size_t layer = scene.layers.size(); layer-- > 0;) {
        for (std::size_t item = scene.layers[layer].items.size(); item-- > 0;) {
            for (ChartHit& hit : std::visit(hitOf, scene.layers[layer].items[item])) {
                hit.layer = scene.layers[layer].id;
                hit.item = item;
                hits.push_back(hit);
            }
        }
    }
    std::stable_sort(hits.begin(), hits.end(), [](const ChartHit& a, const ChartHit& b) {
        return std::pair(a.kind, a.hit.distance) < std::pair(b.kind, b.hit.distance);
    });
    return hits;
}

std::optional<ChartHit> HitScene(const ChartScene& scene, const ChartView& view, PixelPoint at, double radius) {
    const std::vector<ChartHit> hits = HitsOf(scene, view, at, radius);
    return hits.empty() || hits.front().kind > HIT_KIND::SEGMENT ? std::nullopt : std::optional(hits.front());
}

}  // namespace quillon
