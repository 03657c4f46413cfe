#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "scene/chart_geometry.h"

namespace quillon {

/// A path at falling levels of detail, so that drawing it costs what can be seen of it, not what it has.
///
/// Level 0 is the path itself. Each further level keeps some of the points of a finer one, so that no point left out
/// lies farther than the level's tolerance from the segment that stands for it. A level is kept only if it has at most
/// half the points of the one before: all of them together never have more points than the path, four bytes each.
///
/// Every level is cut into chunks with their boxes, through which a part of the grid is found without looking at
/// points. The points are lent, and stay unchanged for as long as this is used. Points that are no place are passed
/// over.
class PathLod {
public:
    /// A stretch of one level: some vertices that follow one another in one part, and the segment that leads on.
    struct Chunk {
        std::uint32_t first = 0;  ///< place among the level's vertices
        std::uint32_t count = 0;
        std::uint32_t next = kNone;  ///< index of the point that the last vertex is joined to
        bool startsPart = false;
        ChartBox box;           ///< of vertices and segments
        double distance = 0.0;  ///< along the part to the first vertex
    };
    class Level {
    public:
        double Tolerance() const { return tolerance; }
        std::size_t VertexCount() const { return count; }
        /// The index of the point that a vertex is.
        std::uint32_t PointOf(std::size_t vertex) const {
            return vertices.empty() ? static_cast<std::uint32_t>(vertex) : vertices[vertex];
        }
        std::span<const Chunk> Chunks() const { return chunks; }

    private:
        friend class PathLod;
        double tolerance = 0.0;
        std::size_t count = 0;
        std::vector<std::uint32_t> vertices;  ///< none where every point is a vertex
        std::vector<std::size_t> parts;       ///< place of the first vertex of each
        std::vector<Chunk> chunks;
    };

    static constexpr std::uint32_t kNone = 0xFFFFFFFF;

    PathLod() = default;
    PathLod(std::span<const tagXY> pathPoints, std::span<const std::uint32_t> starts, bool isClosed);

    const ChartBox& Box() const { return box; }
    std::span<const tagXY> Points() const { return points; }
    const Level& Full() const { return levels.front(); }
    /// The coarsest level that is true to a tolerance in metres.
    const Level& For(double tolerance) const;
    std::size_t LevelCount() const { return levels.size(); }
    /// Of all levels but the first.
    std::size_t StoredVertices() const;

private:
    void MakeFullLevel(std::span<const std::uint32_t> starts);
    void MakeCoarserLevels();
    double ExpectedCount(const Level& from, double tolerance) const;
    /// True to `tolerance` whatever `from` is off by.
    Level Coarser(const Level& from, double tolerance) const;
    void MakeChunks(Level& level) const;
    double FirstTolerance() const;

    std::span<const tagXY> points;
    bool closed = false;
    ChartBox box;
    std::vector<Level> levels{1};
};

}  // namespace quillon
