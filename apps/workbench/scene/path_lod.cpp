#include "scene/path_lod.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "scene/polyline_thinning.h"

namespace quillon {
namespace {

constexpr std::size_t kChunk = 256;
/// Paths up to this size are drawn as they are.
constexpr std::size_t kFewPoints = 128;
constexpr std::size_t kSamples = 1024;

double Distance(tagXY a, tagXY b) {
    return std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y));
}

}  // namespace

PathLod::PathLod(std::span<const tagXY> pathPoints, std::span<const std::uint32_t> starts, bool isClosed)
    : points(pathPoints.first(std::min<std::size_t>(pathPoints.size(), kNone - 1))), closed(isClosed) {
    MakeFullLevel(starts);
    for (const Chunk& chunk : Full().chunks) box.Add(chunk.box);
    if (Full().count > kFewPoints) MakeCoarserLevels();
}

void PathLod::MakeFullLevel(std::span<const std::uint32_t> starts) {
    Level& level = levels.front();
    const bool allAreDrawn = std::all_of(points.begin(), points.end(), IsPlace);
    auto start = starts.begin();
    bool beginsPart = true;
    for (std::uint32_t i = 0; i < points.size(); ++i) {
        while (start != starts.end() && *start <= i) {
            beginsPart |= *start == i;
            ++start;
        }
        if (!allAreDrawn) {
            if (!IsPlace(points[i])) continue;
            level.vertices.push_back(i);
        }
        if (beginsPart) level.parts.push_back(level.count);
        beginsPart = false;
        ++level.count;
    }
    MakeChunks(level);
}

/// The segments of the denser stretches of a path are about four times as long. Where a tolerance is finer than that,
/// so few of them are in view that they are drawn one by one.
double PathLod::FirstTolerance() const {
    std::vector<double> lengths;
    const std::size_t step = std::max<std::size_t>(1, Full().count / kSamples);
    for (std::size_t i = 0; i + 1 < Full().count; i += step) {
        const double length = Distance(points[Full().PointOf(i)], points[Full().PointOf(i + 1)]);
        if (length > 0) lengths.push_back(length);
    }
    if (lengths.empty()) return 0.0;
    const auto quarter = lengths.begin() + static_cast<std::ptrdiff_t>(lengths.size() / 4);
    std::nth_element(lengths.begin(), quarter, lengths.end());
    return *quarter / 4.0;
}

void PathLod::MakeCoarserLevels() {
    const double extent = std::hypot(box.Width(), box.Height());
    double tolerance = std::max(FirstTolerance(), extent * 1e-9);
    for (; tolerance > 0 && tolerance < extent; tolerance *= 2.0) {
        const std::size_t last = levels.back().count;
        if (last <= kFewPoints + 2 * levels.back().parts.size()) return;
        // What a level is made from may be off already. A quarter of the tolerance costs few vertices more, and saves
        // passes over the whole path.
        const Level& from = For(tolerance / 4.0);
        if (ExpectedCount(from, tolerance) > 0.6 * static_cast<double>(last)) continue;
        Level coarser = Coarser(from, tolerance);
        if (coarser.count > last / 2) continue;
        coarser.vertices.shrink_to_fit();
        MakeChunks(coarser);
        levels.push_back(std::move(coarser));
    }
}

/// How many vertices a coarser level would have, going by a few stretches: most tolerances keep too many for a level to
/// be worth its while, and a pass over a million points takes 50 to 100 ms.
double PathLod::ExpectedCount(const Level& from, double tolerance) const {
    constexpr std::size_t kStretches = 8, kLength = 2048;
    if (from.count < 4 * kStretches * kLength) return 0.0;
    std::vector<std::uint32_t> stretch(kLength), kept;
    for (std::size_t i = 0; i < kStretches; ++i) {
        const std::size_t first = (from.count - kLength) / kStretches * i;
        for (std::size_t k = 0; k < kLength; ++k) stretch[k] = from.PointOf(first + k);
        ThinPolyline(points, stretch, tolerance - from.tolerance, kept);
    }
    return static_cast<double>(kept.size()) / (kStretches * kLength) * static_cast<double>(from.count);
}

PathLod::Level PathLod::Coarser(const Level& from, double tolerance) const {
    Level level;
    level.tolerance = tolerance;
    std::vector<std::uint32_t> all;
    if (from.vertices.empty()) {
        all.resize(from.count);
        std::iota(all.begin(), all.end(), 0u);
    }
    const std::span<const std::uint32_t> vertices = from.vertices.empty() ? all : from.vertices;
    for (std::size_t part = 0; part < from.parts.size(); ++part) {
        const std::size_t first = from.parts[part];
        const std::size_t end = part + 1 < from.parts.size() ? from.parts[part + 1] : from.count;
        level.parts.push_back(level.vertices.size());
        ThinPolyline(points, vertices.subspan(first, end - first), tolerance - from.tolerance, level.vertices);
    }
    level.count = level.vertices.size();
    return level;
}

void PathLod::MakeChunks(Level& level) const {
    for (std::size_t part = 0; part < level.parts.size(); ++part) {
        const std::size_t begin = level.parts[part];
        const std::size_t end = part + 1 < level.parts.size() ? level.parts[part + 1] : level.count;
        double distance = 0.0;
        for (std::size_t first = begin; first < end; first += kChunk) {
            Chunk chunk;
            chunk.first = static_cast<std::uint32_t>(first);
            chunk.count = static_cast<std::uint32_t>(std::min(kChunk, end - first));
            chunk.startsPart = first == begin;
            chunk.distance = distance;
            const std::size_t behind = first + chunk.count;
            if (behind < end) {
                chunk.next = level.PointOf(behind);
            } else if (closed && end - begin > 2) {
                chunk.next = level.PointOf(begin);
            }
            tagXY last = points[level.PointOf(first)];
            for (std::size_t i = first; i < behind; ++i) {
                const tagXY point = points[level.PointOf(i)];
                chunk.box.Add(point.x, point.y);
                distance += Distance(last, point);
                last = point;
            }
            if (chunk.next != kNone) {
                chunk.box.Add(points[chunk.next].x, points[chunk.next].y);
                distance += Distance(last, points[chunk.next]);
            }
            level.chunks.push_back(chunk);
        }
    }
}

const PathLod::Level& PathLod::For(double tolerance) const {
    std::size_t i = levels.size() - 1;
    while (i > 0 && levels[i].tolerance > tolerance) --i;
    return levels[i];
}

std::size_t PathLod::StoredVertices() const {
    std::size_t count = 0;
    for (std::size_t i = 1; i < levels.size(); ++i) count += levels[i].count;
    return count;
}

}  // namespace quillon
