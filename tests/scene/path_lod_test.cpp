#include "scene/path_lod.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "scene/shapes.h"

namespace quillon {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

std::vector<std::uint32_t> VerticesOf(const PathLod::Level& level) {
    std::vector<std::uint32_t> vertices;
    for (std::size_t i = 0; i < level.VertexCount(); ++i) vertices.push_back(level.PointOf(i));
    return vertices;
}

/// The greatest distance of any point from the segment of a level that stands for it.
double WorstDeparture(std::span<const tagXY> points, const PathLod::Level& level) {
    double worst = 0.0;
    const std::vector<std::uint32_t> vertices = VerticesOf(level);
    for (std::size_t v = 0; v + 1 < vertices.size(); ++v) {
        const tagXY a = points[vertices[v]], b = points[vertices[v + 1]];
        for (std::uint32_t i = vertices[v]; i <= vertices[v + 1]; ++i) {
            worst = std::max(worst, SquaredDistance(points[i].x, points[i].y, a.x, a.y, b.x, b.y));
        }
    }
    return std::sqrt(worst);
}

struct ShapeRow {
    const char* name;
    std::vector<tagXY> points;
};

std::vector<ShapeRow> ManyShapes() {
    std::vector<ShapeRow> rows = {{"coast", Coast(50000, 0)},
                                  {"rough coast", Coast(50000, 5)},
                                  {"walk", Walk(30000, 10, 3)},
                                  {"noise", Coast(20000, 3000)}};
    ShapeRow straight{"straight", {}}, there{"there and back", {}}, still{"still", {}};
    for (int i = 0; i < 5000; ++i) {
        straight.points.push_back({i * 1.0, i * 2.0});
        // a line run over and over: the segment must not end short of where it turned
        there.points.push_back({std::abs(i % 200 - 100.0), 0.001 * i});
        still.points.push_back({7, 7});
    }
    rows.push_back(straight);
    rows.push_back(there);
    rows.push_back(still);
    return rows;
}

TEST(PathLod, NoPointIsFartherOffThanTheLevelSays) {
    for (const ShapeRow& row : ManyShapes()) {
        const PathLod lod(row.points, {}, false);
        double scale = 1e-3;
        for (int i = 0; i < 30; ++i, scale *= 2) {
            const PathLod::Level& level = lod.For(scale);
            EXPECT_LE(level.Tolerance(), scale);
            EXPECT_LE(WorstDeparture(row.points, level), level.Tolerance() * (1 + 1e-9) + 1e-9) << row.name;
            EXPECT_EQ(level.PointOf(0), 0u);
            EXPECT_EQ(level.PointOf(level.VertexCount() - 1), row.points.size() - 1);
        }
    }
}

TEST(PathLod, LevelsShrinkAndTogetherStaySmallerThanThePath) {
    for (const ShapeRow& row : ManyShapes()) {
        const PathLod lod(row.points, {}, false);
        EXPECT_LE(lod.StoredVertices(), row.points.size()) << row.name;
    }
    const std::vector<tagXY> coast = Coast(200000, 1);
    const PathLod lod(coast, {}, true);
    EXPECT_LT(lod.For(20.0).VertexCount(), 6000u);
    EXPECT_LT(lod.For(2000.0).VertexCount(), 200u);
}

TEST(PathLod, ChunksHoldAllOfALevelInTheirBoxes) {
    const std::vector<tagXY> points = Coast(5000, 50);
    const std::uint32_t starts[] = {100, 101, 3000};
    const PathLod lod(points, starts, true);
    for (const double tolerance : {0.0, 50.0, 1000.0}) {
        const PathLod::Level& level = lod.For(tolerance);
        std::size_t expected = 0, parts = 0;
        double distance = 0;
        for (const PathLod::Chunk& chunk : level.Chunks()) {
            EXPECT_EQ(chunk.first, expected);
            expected += chunk.count;
            parts += chunk.startsPart;
            if (chunk.startsPart) distance = 0;
            EXPECT_NEAR(chunk.distance, distance, 1e-6);
            for (std::size_t i = chunk.first; i < expected; ++i) {
                const tagXY p = points[level.PointOf(i)];
                EXPECT_TRUE(chunk.box.Contains(p.x, p.y));
                const bool isLast = i + 1 == expected;
                if (isLast && chunk.next == PathLod::kNone) break;
                const tagXY q = points[isLast ? chunk.next : level.PointOf(i + 1)];
                EXPECT_TRUE(chunk.box.Contains(q.x, q.y));
                distance += std::hypot(q.x - p.x, q.y - p.y);
            }
        }
        EXPECT_EQ(expected, level.VertexCount());
        EXPECT_EQ(parts, 4u);
    }
    // the part of one point has nowhere to lead on to; the last leads back to where it began
    const std::span<const PathLod::Chunk> chunks = lod.Full().Chunks();
    EXPECT_EQ(chunks[1].next, PathLod::kNone);
    EXPECT_EQ(chunks.back().next, 3000u);
}

TEST(PathLod, PassesOverWhatIsNoPlace) {
    std::vector<tagXY> points = Points("0,0 1,1 2,2 3,3 4,4 5,5 6,6 7,7");
    points[0].x = kNaN;
    points[3].y = std::numeric_limits<double>::infinity();
    points[4].x = MISSING_VALUE;
    points[7].y = -1e300;
    const std::uint32_t starts[] = {4};
    const PathLod lod(points, starts, false);
    EXPECT_EQ(VerticesOf(lod.Full()), (std::vector<std::uint32_t>{1, 2, 5, 6}));
    EXPECT_EQ(lod.Box(), (ChartBox{1, 1, 6, 6}));
    ASSERT_EQ(lod.Full().Chunks().size(), 2u);  // the part that begins with a point of no use begins with the next

    EXPECT_TRUE(PathLod(std::span(points).first(1), {}, true).Box().IsEmpty());
    EXPECT_TRUE(PathLod({}, {}, true).Full().Chunks().empty());
}

}  // namespace
}  // namespace quillon
