#include "scene/visible_path.h"

#include <cmath>
#include <span>
#include <utility>

#include "scene/line_clip.h"
#include "scene/stretches.h"

namespace quillon {
namespace {

using Chunk = PathLod::Chunk;
using Level = PathLod::Level;
using Run = PathLod::Run;

/// From metres to pixels, with its terms at hand for loops.
struct Projection {
    explicit Projection(const ChartView& view)
        : centre(view.Centre()),
          pixelsPerMetre(1.0 / view.MetresPerPixel()),
          middleX(0.5 * view.Width()),
          middleY(0.5 * view.Height()) {}
    PixelPoint operator()(tagXY p) const {
        return {(p.x - centre.x) * pixelsPerMetre + middleX, middleY - (p.y - centre.y) * pixelsPerMetre};
    }
    tagXY centre;
    double pixelsPerMetre, middleX, middleY;
};

double PixelDistance(PixelPoint a, PixelPoint b) {
    return std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y));
}

constexpr std::size_t kDrawnOfAStretch = 5;

/// How many vertices make one stretch, so that of each its outermost points suffice; 1 to draw every one.
std::size_t StretchFor(std::size_t vertices, std::size_t most) {
    return vertices <= most ? 1 : (kDrawnOfAStretch * vertices + most - 1) / most;
}

/// Joins points to lines, leaving out what lies outside a box.
class LineClipper {
public:
    LineClipper(const ChartBox& clip, PixelLines& target) : box(clip), lines(target) {}

    void Begin(double distanceAlong) {
        hasFrom = false;
        isOpen = false;
        distance = distanceAlong;
    }
    void operator()(PixelPoint to) {
        if (!hasFrom) {
            from = to;
            hasFrom = true;
            return;
        }
        if (box.Contains(from.x, from.y) && box.Contains(to.x, to.y)) {
            Join(from, to, 0.0);
        } else {
            Cut(to);
        }
        distance += PixelDistance(from, to);
        from = to;
    }

private:
    void Cut(PixelPoint to) {
        PixelPoint a = from, b = to;
        double fromPart = 0.0, toPart = 0.0;
        if (!ClipSegment(box, a, b, &fromPart, &toPart)) {
            isOpen = false;
            return;
        }
        if (fromPart > 0) isOpen = false;
        Join(a, b, PixelDistance(from, a));
        if (toPart < 1) isOpen = false;
    }
    void Join(PixelPoint a, PixelPoint b, double within) {
        if (!isOpen) {
            lines.runs.push_back({lines.points.size(), distance + within});
            lines.points.push_back(a);
            isOpen = true;
        }
        lines.points.push_back(b);
    }

    ChartBox box;
    PixelLines& lines;
    PixelPoint from;
    bool hasFrom = false;
    bool isOpen = false;
    double distance = 0.0;
};

std::size_t VerticesIn(const Level& level, const ChartBox& world) {
    std::size_t count = 0;
    for (const Chunk& chunk : level.Chunks()) {
        if (chunk.box.Meets(world)) count += chunk.count;
    }
    return count;
}

/// A level, and how many of its vertices make a stretch, to draw no more than may be drawn.
struct Choice {
    const Level* level;
    std::size_t stretch;
};

Choice ChooseLevel(const PathLod& path, const ChartView& view, const ChartBox& world, const DrawingLimits& limits) {
    const auto of = [&](const Level& level) {
        return Choice{&level, StretchFor(VerticesIn(level, world), limits.mostVertices)};
    };
    Choice choice = of(path.For(limits.tolerancePixels * view.MetresPerPixel()));
    while (choice.stretch >= PathLod::kCrowdStretch && choice.level->Crowd()) choice = of(*choice.level->Crowd());
    return choice;
}

/// The side of a box beyond which all of a chunk lies: such a chunk can be replaced by one straight line as far as the
/// area inside the box goes.
bool LiesBeyondOneSide(const ChartBox& chunk, const ChartBox& world) {
    return chunk.maxX < world.minX || chunk.minX > world.maxX || chunk.maxY < world.minY || chunk.minY > world.maxY;
}

/// Closes the run that was begun at `first`: cut to the box, and dropped if nothing is left.
void EndArea(const ChartBox& box, bool isInside, std::vector<PixelPoint>& ring, PixelLines& areas) {
    if (!isInside) ClipArea(box, ring);
    if (ring.size() > 2) {
        areas.runs.push_back({areas.points.size(), 0.0});
        areas.points.insert(areas.points.end(), ring.begin(), ring.end());
    }
    ring.clear();
}

double LengthOf(const PixelLines& lines, std::size_t run) {
    double length = 0.0;
    for (std::size_t i = lines.runs[run].first; i + 1 < lines.EndOf(run); ++i) {
        length += PixelDistance(lines.points[i], lines.points[i + 1]);
    }
    return length;
}

double LengthOf(const PixelLines& lines) {
    double length = 0.0;
    for (std::size_t run = 0; run < lines.runs.size(); ++run) length += LengthOf(lines, run);
    return length;
}

/// Leaves a `factor`th of the lines: of many short runs some, of long ones the outermost points of each stretch.
PixelLines Reduced(const PixelLines& lines, std::size_t factor) {
    constexpr std::size_t kShortRun = 16;
    const bool areShort = lines.points.size() < kShortRun * lines.runs.size();
    PixelLines kept;
    const auto take = [&kept](PixelPoint p) { kept.points.push_back(p); };
    for (std::size_t run = 0; run < lines.runs.size(); run += areShort ? factor : 1) {
        kept.runs.push_back({kept.points.size(), lines.runs[run].distance});
        Stretches<PixelPoint, decltype(take)> reduced(areShort ? 1 : kDrawnOfAStretch * factor, take);
        for (std::size_t i = lines.runs[run].first; i < lines.EndOf(run); ++i) reduced.Add(lines.points[i]);
        reduced.Finish();
    }
    return kept;
}

/// Leaves of lines that are together too long about as much as may be drawn. The outermost points of a stretch are
/// longer than their share of it, so it may take more than one round.
void CutLength(double mostPixels, PixelLines& lines) {
    constexpr int kMostRounds = 4;
    for (int round = 0; round < kMostRounds; ++round) {
        const double length = LengthOf(lines);
        if (!(length > mostPixels)) return;
        lines = Reduced(lines, static_cast<std::size_t>(std::ceil(length / mostPixels)));
    }
}

/// Cells of the grid, each free or taken.
class Cells {
public:
    Cells(const ChartBox& world, double cellMetres)
        : size(cellMetres),
          column0(std::floor(world.minX / size)),
          row0(std::floor(world.minY / size)),
          columns(static_cast<std::size_t>(std::floor(world.maxX / size) - column0) + 1),
          taken(columns * (static_cast<std::size_t>(std::floor(world.maxY / size) - row0) + 1), 0) {}

    /// True once for each cell. The point lies in the box that the cells were made for.
    bool Take(tagXY p) {
        const auto column = static_cast<std::size_t>(std::floor(p.x / size) - column0);
        const auto row = static_cast<std::size_t>(std::floor(p.y / size) - row0);
        char& cell = taken[row * columns + column];
        return std::exchange(cell, char{1}) == 0;
    }

private:
    double size, column0, row0;
    std::size_t columns;
    std::vector<char> taken;
};

/// Every so many points of a chunk are enough to meet all cells that it runs through.
std::size_t StrideOf(const Chunk& chunk, double cellMetres) {
    const double cells = (chunk.box.Width() / cellMetres + 1.0) * (chunk.box.Height() / cellMetres + 1.0);
    std::size_t stride = 1;
    while (static_cast<double>(stride) * 2.0 * 8.0 * cells <= chunk.count) stride *= 2;
    return stride;
}

}  // namespace

void VisibleLine(const PathLod& path, const ChartView& view, const DrawingLimits& limits, PixelLines& lines) {
    lines.Clear();
    const ChartBox world = view.WorldBox(limits.margin);
    const Choice choice = ChooseLevel(path, view, world, limits);
    const Level& level = *choice.level;
    const ChartPoints& points = path.Points();
    const Projection project(view);
    LineClipper clipper(view.PixelBox(limits.margin), lines);
    Stretches<PixelPoint, LineClipper> reduced(choice.stretch, clipper);
    std::uint32_t joined = PathLod::kNone;  // the point that the run before led on to
    for (const Chunk& chunk : level.Chunks()) {
        if (!chunk.box.Meets(world)) continue;
        level.EachRun(chunk, [&](const Run& run) {
            if (run.startsPart || joined != level.PointOf(run.first)) {
                if (joined != PathLod::kNone) reduced.Add(project(points[joined]));
                reduced.Finish();
                clipper.Begin(run.distance * project.pixelsPerMetre);
            }
            for (std::uint32_t i = run.first; i < run.first + run.count; ++i) {
                reduced.Add(project(points[level.PointOf(i)]));
            }
            joined = run.next;
        });
    }
    if (joined != PathLod::kNone) reduced.Add(project(points[joined]));
    reduced.Finish();
    CutLength(limits.mostPixels, lines);
}

void ClipLine(std::span<const PixelPoint> points, const ChartBox& box, PixelLines& lines) {
    lines.Clear();
    LineClipper clipper(box, lines);
    clipper.Begin(0.0);
    for (const PixelPoint& p : points) clipper(p);
}

void VisibleArea(const PathLod& path, const ChartView& view, const DrawingLimits& limits, PixelLines& areas) {
    areas.Clear();
    const ChartBox world = view.WorldBox(limits.margin);
    const Choice choice = ChooseLevel(path, view, world, limits);
    const Level& level = *choice.level;
    const ChartBox box = view.PixelBox(limits.margin);
    const bool isInside = world.Contains(path.Box());
    const ChartPoints& points = path.Points();
    const Projection project(view);
    std::vector<PixelPoint> ring;
    const auto take = [&ring](PixelPoint p) { ring.push_back(p); };
    Stretches<PixelPoint, decltype(take)> reduced(choice.stretch, take);
    for (const Chunk& chunk : level.Chunks()) {
        const bool isBeyond = LiesBeyondOneSide(chunk.box, world);
        level.EachRun(chunk, [&](const Run& run) {
            if (run.startsPart) {
                reduced.Finish();
                EndArea(box, isInside, ring, areas);
            }
            if (isBeyond) {
                reduced.Finish();
                ring.push_back(project(points[level.PointOf(run.first)]));
                return;
            }
            for (std::uint32_t i = run.first; i < run.first + run.count; ++i) {
                reduced.Add(project(points[level.PointOf(i)]));
            }
        });
    }
    reduced.Finish();
    EndArea(box, isInside, ring, areas);
    CutLength(limits.mostPixels, areas);
}

void VisibleMarks(const PathLod& path, const ChartView& view, double cellPixels, std::vector<PixelMark>& marks) {
    marks.clear();
    const double cellMetres = cellPixels * view.MetresPerPixel();
    const ChartBox world = view.WorldBox(cellPixels);
    const Level& level = path.Full();
    const ChartPoints& points = path.Points();
    const Projection project(view);
    Cells cells(world, cellMetres);
    for (const Chunk& chunk : level.Chunks()) {
        if (!chunk.box.Meets(world)) continue;
        const std::size_t stride = StrideOf(chunk, cellMetres);
        const std::size_t end = chunk.first + chunk.count;
        for (std::size_t i = (chunk.first + stride - 1) / stride * stride; i < end; i += stride) {
            const std::uint32_t index = level.PointOf(i);
            const tagXY p = points[index];
            if (world.Contains(p.x, p.y) && cells.Take(p)) marks.push_back({project(p), index});
        }
    }
}

void VisibleLegs(const PathLod& path, const ChartView& view, double leastPixels, std::vector<PixelLeg>& legs) {
    legs.clear();
    const double least = leastPixels * view.MetresPerPixel();
    const ChartBox world = view.WorldBox();
    const ChartBox box = view.PixelBox();
    const Level& level = path.Full();
    const ChartPoints& points = path.Points();
    const Projection project(view);
    const auto consider = [&](std::uint32_t from, std::uint32_t to) {
        const tagXY a = points[from], b = points[to];
        if (std::abs(b.x - a.x) + std::abs(b.y - a.y) < least) return;
        PixelLeg leg{project(a), project(b), from};
        if (ClipSegment(box, leg.from, leg.to, nullptr, nullptr) && PixelDistance(leg.from, leg.to) >= leastPixels) {
            legs.push_back(leg);
        }
    };
    for (const Chunk& chunk : level.Chunks()) {
        if (!chunk.box.Meets(world) || std::hypot(chunk.box.Width(), chunk.box.Height()) < least) continue;
        level.EachRun(chunk, [&](const Run& run) {
            const std::uint32_t last = run.first + run.count - 1;
            for (std::uint32_t i = run.first; i < last; ++i) consider(level.PointOf(i), level.PointOf(i + 1));
            if (run.next != PathLod::kNone) consider(level.PointOf(last), run.next);
        });
    }
}

}  // namespace quillon
