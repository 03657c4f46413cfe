#include "scene/path_lod.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <unordered_set>
#include <utility>

#include "scene/polyline_thinning.h"
#include "scene/stretches.h"

namespace quillon {
namespace {

constexpr std::uint32_t kChunk = 256;
/// Paths up to this size are drawn as they are.
constexpr std::size_t kFewPoints = 128;
constexpr std::size_t kSamples = 1024;
/// Looking at every vertex of a level of so many takes longer than drawing what may be drawn of them.
constexpr std::size_t kManyPoints = 200000;
/// A level that is expected to keep more of the points of the one before is not made; one that was made and keeps a
/// little more is not thrown away.
constexpr double kMostExpected = 0.5;
constexpr double kMostKept = 0.6;

double Distance(tagXY a, tagXY b) {
    return std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y));
}

/// Squares of the grid of a size, each taken once.
class Squares {
public:
    explicit Squares(double metres) : size(metres) {}
    bool Take(tagXY p) {
        const auto place = [this](double v) { return static_cast<std::int64_t>(std::floor(v / size)); };
        return taken.insert(place(p.y) * 4294967311LL + place(p.x)).second;
    }

private:
    double size;
    std::unordered_set<std::int64_t> taken;
};

}  // namespace

PathLod::PathLod(ChartPoints pathPoints, const PathParts& parts, const Stop* stop) : points(std::move(pathPoints)) {
    MakeFullLevel(parts);
    Finish(stop);
}

PathLod::PathLod(ChartPoints pathPoints, std::vector<std::uint32_t> chosen, const PathParts& parts, const Stop* stop)
    : points(std::move(pathPoints)) {
    levels.front().vertices = std::move(chosen);
    MakeFullLevel(parts);
    Finish(stop);
}

PathLod PathLod::Sketch(ChartPoints pathPoints, const PathParts& parts, std::size_t most) {
    PathLod sketch;
    sketch.points = std::move(pathPoints);
    const std::size_t count = std::min<std::size_t>(sketch.points.size(), kNone - 1);
    const std::size_t step = std::max<std::size_t>(1, (count + most - 1) / most);
    std::vector<std::uint32_t>& chosen = sketch.levels.front().vertices;
    PathParts thinned{.closed = parts.closed};
    if (step == 1 || parts.every > 0) {
        // Of single points every so many, of short parts every so many whole.
        const std::size_t together = step == 1 ? count : parts.every;
        for (std::size_t first = 0; first < count; first += together * step) {
            for (std::size_t i = first; i < std::min(first + together, count); ++i) {
                chosen.push_back(static_cast<std::uint32_t>(i));
            }
        }
        if (step == 1) {
            thinned = parts;
        } else {
            thinned.every = parts.every;
        }
    } else {
        auto start = parts.starts.begin();
        for (std::size_t i = 0; i < count; i += step) {
            const auto behind = std::upper_bound(start, parts.starts.end(), i);
            if (std::exchange(start, behind) != behind) {
                thinned.starts.push_back(static_cast<std::uint32_t>(chosen.size()));
            }
            chosen.push_back(static_cast<std::uint32_t>(i));
        }
        if (count > 0 && chosen.back() != count - 1) chosen.push_back(static_cast<std::uint32_t>(count - 1));
    }
    sketch.MakeFullLevel(thinned);
    for (const Chunk& chunk : sketch.Full().chunks) sketch.box.Add(chunk.box);
    return sketch;
}

void PathLod::Finish(const Stop* stop) {
    for (const Chunk& chunk : Full().chunks) box.Add(chunk.box);
    const bool hasLines = Full().parts.size() < Full().count;
    if (Full().count <= kFewPoints || !hasLines) return;
    MakeCoarserLevels(stop);
    for (Level& level : levels) {
        if (level.count > kManyPoints) MakeCrowd(level);
    }
}

/// Keeps of the vertices those that are places, in their parts.
void PathLod::MakeFullLevel(const PathParts& parts) {
    Level& level = levels.front();
    level.closed = parts.closed;
    const bool isWhole = level.vertices.empty();
    const std::size_t count = isWhole ? std::min<std::size_t>(points.size(), kNone - 1) : level.vertices.size();
    const auto pointOf = [&](std::size_t i) { return isWhole ? static_cast<std::uint32_t>(i) : level.vertices[i]; };
    bool allAreDrawn = true;
    for (std::size_t i = 0; i < count && allAreDrawn; ++i) allAreDrawn = IsPlace(points[pointOf(i)]);
    std::vector<std::uint32_t> kept;
    auto start = parts.starts.begin();
    bool beginsPart = true;
    for (std::uint32_t i = 0; i < count; ++i) {
        if (parts.every > 0) {
            beginsPart |= i % parts.every == 0;
        } else {
            for (; start != parts.starts.end() && *start <= i; ++start) beginsPart |= *start == i;
        }
        if (!allAreDrawn) {
            if (!IsPlace(points[pointOf(i)])) continue;
            kept.push_back(pointOf(i));
        }
        if (beginsPart) level.parts.push_back(static_cast<std::uint32_t>(level.count));
        beginsPart = false;
        ++level.count;
    }
    if (!allAreDrawn) level.vertices = std::move(kept);
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

void PathLod::MakeCoarserLevels(const Stop* stop) {
    const double extent = std::hypot(box.Width(), box.Height());
    double tolerance = std::max(FirstTolerance(), extent * 1e-9);
    for (; tolerance > 0 && tolerance < extent; tolerance *= 2.0) {
        const Level& last = levels.back();
        if (last.count <= kFewPoints + (last.parts.size() > kFewPoints ? 0 : 2 * last.parts.size())) return;
        if (stop && stop->load(std::memory_order_relaxed)) return;
        // What a level is made from may be off already. A quarter of the tolerance costs few vertices more, and saves
        // passes over the whole path.
        const Level& from = For(tolerance / 4.0);
        const auto most = static_cast<double>(last.count);
        if (ExpectedCount(from, tolerance) > kMostExpected * most) continue;
        Level coarser = Coarser(from, tolerance, stop);
        if (static_cast<double>(coarser.count) > kMostKept * most) continue;
        coarser.vertices.shrink_to_fit();
        MakeChunks(coarser);
        levels.push_back(std::move(coarser));
    }
}

/// How many vertices a coarser level would have, going by a few stretches: most tolerances keep too many for a level to
/// be worth its while, and a pass over a million points takes 50 to 100 ms.
double PathLod::ExpectedCount(const Level& from, double tolerance) const {
    constexpr std::size_t kStretches = 8, kLength = 2048;
    if (from.count < 4 * kStretches * kLength || from.count < kLength * from.parts.size()) return 0.0;
    std::vector<std::uint32_t> stretch(kLength), kept;
    for (std::size_t i = 0; i < kStretches; ++i) {
        const std::size_t first = (from.count - kLength) / kStretches * i;
        for (std::size_t k = 0; k < kLength; ++k) stretch[k] = from.PointOf(first + k);
        ThinPolyline(points, stretch, tolerance - from.tolerance, kept);
    }
    return static_cast<double>(kept.size()) / (kStretches * kLength) * static_cast<double>(from.count);
}

PathLod::Level PathLod::Coarser(const Level& from, double tolerance, const Stop* stop) const {
    Level level;
    level.tolerance = tolerance;
    level.closed = from.closed;
    std::vector<std::uint32_t> all;
    if (from.vertices.empty()) {
        all.resize(from.count);
        std::iota(all.begin(), all.end(), 0u);
    }
    const std::span<const std::uint32_t> vertices = from.vertices.empty() ? all : from.vertices;
    const bool dropsSmall = from.parts.size() > kFewPoints;
    Squares squares(tolerance);
    for (std::size_t part = 0; part < from.parts.size(); ++part) {
        if (stop && stop->load(std::memory_order_relaxed)) break;
        const std::size_t first = from.parts[part];
        const std::span<const std::uint32_t> whole = vertices.subspan(first, from.EndOfPart(part) - first);
        if (dropsSmall && whole.size() <= kChunk) {
            ChartBox around;
            for (const std::uint32_t i : whole) around.Add(points[i].x, points[i].y);
            const bool isSmall = std::max(around.Width(), around.Height()) < tolerance;
            if (isSmall && !squares.Take(points[whole.front()])) continue;
        }
        level.parts.push_back(static_cast<std::uint32_t>(level.vertices.size()));
        ThinPolyline(points, whole, tolerance - from.tolerance, level.vertices);
    }
    level.count = level.vertices.size();
    return level;
}

void PathLod::MakeCrowd(Level& level) const {
    struct Vertex {
        double x = 0.0, y = 0.0;
        std::uint32_t point = 0;
    };
    auto crowd = std::make_shared<Level>();
    crowd->tolerance = level.tolerance;
    crowd->closed = level.closed;
    const auto take = [&](const Vertex& vertex) { crowd->vertices.push_back(vertex.point); };
    Stretches<Vertex, decltype(take)> reduced(kCrowdStretch, take);
    for (std::size_t part = 0; part < level.parts.size(); ++part) {
        crowd->parts.push_back(static_cast<std::uint32_t>(crowd->vertices.size()));
        for (std::uint32_t i = level.parts[part]; i < level.EndOfPart(part); ++i) {
            const std::uint32_t point = level.PointOf(i);
            reduced.Add({points[point].x, points[point].y, point});
        }
        reduced.Finish();
    }
    crowd->count = crowd->vertices.size();
    crowd->vertices.shrink_to_fit();
    MakeChunks(*crowd);
    if (crowd->count > kManyPoints) MakeCrowd(*crowd);
    level.crowd = std::move(crowd);
}

void PathLod::MakeChunks(Level& level) const {
    level.chunks.reserve(level.count / kChunk + 1);
    const auto count = static_cast<std::uint32_t>(level.count);
    std::uint32_t part = 0;
    double distance = 0.0;
    for (std::uint32_t first = 0; first < count; first += kChunk) {
        while (level.EndOfPart(part) <= first) ++part;
        if (level.parts[part] == first) distance = 0.0;
        Chunk chunk{first, std::min(kChunk, count - first), part, {}, distance};
        level.EachRun(chunk, [&](const Run& run) {
            if (run.startsPart) distance = 0.0;
            tagXY last = points[level.PointOf(run.first)];
            const auto goTo = [&](tagXY point) {
                chunk.box.Add(point.x, point.y);
                distance += Distance(last, point);
                last = point;
            };
            for (std::uint32_t i = run.first; i < run.first + run.count; ++i) goTo(points[level.PointOf(i)]);
            if (run.next != kNone) goTo(points[run.next]);
        });
        level.chunks.push_back(chunk);
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
