#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "scene/chart_geometry.h"
#include "scene/chart_points.h"

namespace quillon {

/// Which points of a path are joined: the parts of the path, between which there is a gap.
struct PathParts {
    /// Where further parts begin, ascending.
    std::vector<std::uint32_t> starts = {};
    /// So many points make a part, in place of `starts`: 1 for points that stand alone, 2 for single lines.
    std::uint32_t every = 0;
    /// Each part of more than two points is joined from its last point to its first.
    bool closed = false;
};

/// A path at falling levels of detail, so that drawing it costs what can be seen of it, not what it has. It never
/// changes, so threads share it.
///
/// Level 0 is the path itself. Each further level keeps some of the points of a finer one, so that no point left out
/// lies farther than the level's tolerance from the segment that stands for it. Of the parts of a path of many parts
/// that are smaller than the tolerance a level keeps one where several lie together. A level is kept only if it has at
/// most 0.6 of the points of the one before; as most have half of them, all together seldom have more points than the
/// path, four bytes each.
///
/// Every level is cut into chunks with their boxes, through which a part of the grid is found without looking at
/// points. Points that are no place are passed over.
class PathLod {
public:
    /// Raised to give up: what is left unfinished then has fewer levels, and is of no use but to be dropped.
    using Stop = std::atomic<bool>;

    /// Some vertices that follow one another in a level.
    struct Chunk {
        std::uint32_t first = 0;  ///< place among the level's vertices
        std::uint32_t count = 0;
        std::uint32_t part = 0;  ///< the part that the first vertex belongs to
        ChartBox box;            ///< of vertices and of the segments that lead on from them
        double distance = 0.0;   ///< along its part to the first vertex, metres
    };
    /// The vertices of a chunk that belong to one part.
    struct Run {
        std::uint32_t first = 0;
        std::uint32_t count = 0;
        std::uint32_t next = kNone;  ///< index of the point that the last vertex is joined to
        bool startsPart = false;
        double distance = 0.0;
    };
    class Level {
    public:
        double Tolerance() const { return tolerance; }
        std::size_t VertexCount() const { return count; }
        std::size_t PartCount() const { return parts.size(); }
        /// The index of the point that a vertex is.
        std::uint32_t PointOf(std::size_t vertex) const {
            return vertices.empty() ? static_cast<std::uint32_t>(vertex) : vertices[vertex];
        }
        std::span<const Chunk> Chunks() const { return chunks; }
        /// Of each stretch of `kCrowdStretch` vertices the first and the outermost, where a level has very many: enough
        /// to draw so many that they lie over one another. Null elsewhere.
        const Level* Crowd() const { return crowd.get(); }
        /// Calls `each` with every run of a chunk.
        template <class Each>
        void EachRun(const Chunk& chunk, Each each) const;
        /// Calls `each(first, last)` with the first and the last point of every part of more than two points that
        /// doesn't lead back to its first.
        template <class Each>
        void EachOpenPart(Each each) const {
            for (std::size_t part = 0; !closed && part < parts.size(); ++part) {
                const std::uint32_t end = EndOfPart(part);
                if (end - parts[part] > 2) each(PointOf(parts[part]), PointOf(end - 1));
            }
        }

    private:
        friend class PathLod;
        std::uint32_t EndOfPart(std::size_t part) const {
            return part + 1 < parts.size() ? parts[part + 1] : static_cast<std::uint32_t>(count);
        }

        double tolerance = 0.0;
        std::size_t count = 0;
        bool closed = false;
        std::vector<std::uint32_t> vertices;  ///< none where every point is a vertex
        std::vector<std::uint32_t> parts;     ///< place of the first vertex of each
        std::vector<Chunk> chunks;
        std::shared_ptr<const Level> crowd;
    };

    static constexpr std::uint32_t kNone = 0xFFFFFFFF;
    static constexpr std::size_t kCrowdStretch = 64;

    PathLod() = default;
    /// The whole path with all its levels: 50 to 100 milliseconds a million points.
    PathLod(ChartPoints pathPoints, const PathParts& parts, const Stop* stop = nullptr);
    /// The same of some of the points only, ascending; `starts` of the parts count among these.
    PathLod(ChartPoints pathPoints, std::vector<std::uint32_t> chosen, const PathParts& parts,
            const Stop* stop = nullptr);
    /// About so many points out of all, more than none, at once: what can be shown of a long path until it is made.
    static PathLod Sketch(ChartPoints pathPoints, const PathParts& parts, std::size_t most);

    const ChartBox& Box() const { return box; }
    const ChartPoints& Points() const { return points; }
    const Level& Full() const { return levels.front(); }
    /// The coarsest level that is true to a tolerance in metres.
    const Level& For(double tolerance) const;
    std::size_t LevelCount() const { return levels.size(); }
    /// Of all levels but the first.
    std::size_t StoredVertices() const;

private:
    void MakeFullLevel(const PathParts& parts);
    void Finish(const Stop* stop);
    void MakeCoarserLevels(const Stop* stop);
    double ExpectedCount(const Level& from, double tolerance) const;
    /// True to `tolerance` whatever `from` is off by.
    Level Coarser(const Level& from, double tolerance, const Stop* stop) const;
    void MakeChunks(Level& level) const;
    void MakeCrowd(Level& level) const;
    double FirstTolerance() const;

    ChartPoints points;
    ChartBox box;
    std::vector<Level> levels{1};
};

template <class Each>
void PathLod::Level::EachRun(const Chunk& chunk, Each each) const {
    std::size_t part = chunk.part;
    const std::uint32_t end = chunk.first + chunk.count;
    for (std::uint32_t first = chunk.first; first < end; ++part) {
        const std::uint32_t endOfPart = EndOfPart(part), start = parts[part];
        Run run{first, std::min(end, endOfPart) - first, kNone, first == start, first == start ? 0.0 : chunk.distance};
        if (endOfPart > end) {
            run.next = PointOf(end);
        } else if (closed && endOfPart - start > 2) {
            run.next = PointOf(start);
        }
        each(run);
        first += run.count;
    }
}

}  // namespace quillon
