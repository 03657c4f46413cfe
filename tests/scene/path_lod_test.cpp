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
        const PathLod lod = LodOf(row.points, false);
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
        const PathLod lod = LodOf(row.points, false);
        EXPECT_LE(lod.StoredVertices(), row.points.size()) << row.name;
    }
    const std::vector<tagXY> coast = Coast(200000, 1);
    const PathLod lod = LodOf(coast, true);
    EXPECT_LT(lod.For(20.0).VertexCount(), 6000u);
    EXPECT_LT(lod.For(2000.0).VertexCount(), 200u);
}

TEST(PathLod, ChunksHoldAllOfALevelInTheirBoxes) {
    const std::vector<tagXY> points = Coast(5000, 50);
    const PathLod lod = LodOf(points, true, {100, 101, 3000});
    for (const double tolerance : {0.0, 50.0, 1000.0}) {
        const PathLod::Level& level = lod.For(tolerance);
        std::size_t expected = 0, parts = 0;
        double distance = 0;
        for (const PathLod::Chunk& chunk : level.Chunks()) {
            ASSERT_EQ(chunk.first, expected);
            level.EachRun(chunk, [&](const PathLod::Run& run) {
                ASSERT_EQ(run.first, expected);
                expected += run.count;
                if (run.startsPart) distance = 0.0;
                parts += run.startsPart;
                ASSERT_NEAR(run.distance, distance, 1e-6);
                for (std::size_t i = run.first; i < expected; ++i) {
                    const tagXY p = points[level.PointOf(i)];
                    ASSERT_TRUE(chunk.box.Contains(p.x, p.y));
                    const std::uint32_t next = i + 1 < expected ? level.PointOf(i + 1) : run.next;
                    if (next == PathLod::kNone) break;
                    ASSERT_TRUE(chunk.box.Contains(points[next].x, points[next].y));
                    distance += std::hypot(points[next].x - p.x, points[next].y - p.y);
                }
            });
        }
        EXPECT_EQ(expected, level.VertexCount());
        EXPECT_EQ(parts, 4u);
    }
    // The part of one point has nowhere to lead on to; the others lead back to where they began.
    std::vector<std::uint32_t> last;
    const PathLod::Level& full = lod.Full();
    for (const PathLod::Chunk& chunk : full.Chunks()) {
        full.EachRun(chunk, [&](const PathLod::Run& run) {
            const std::uint32_t end = run.first + run.count;
            if (end == 100 || end == 101 || end == 3000 || end == 5000) last.push_back(run.next);
        });
    }
    EXPECT_EQ(last, (std::vector<std::uint32_t>{0, PathLod::kNone, 101, 3000}));
}

/// Squares of a metre, one every 10 m in a field of so many by so many.
std::vector<tagXY> Squares(int side) {
    std::vector<tagXY> points;
    for (int i = 0; i < side * side; ++i) {
        const double x = i % side * 10.0, y = i / side * 10.0;
        for (const tagXY& corner : {tagXY{x, y}, tagXY{x + 1, y}, tagXY{x + 1, y + 1}, tagXY{x, y + 1}}) {
            points.push_back(corner);
        }
    }
    return points;
}

TEST(PathLod, OfManySmallPartsTogetherOneIsKept) {
    const std::vector<tagXY> points = Squares(200);
    const PathLod lod(ChartPoints::Lent(points), {.every = 4, .closed = true});
    EXPECT_EQ(lod.Full().PartCount(), 40000u);
    EXPECT_EQ(lod.For(0.3).PartCount(), 40000u) << "each is larger than that";
    const PathLod::Level& far = lod.For(100.0);
    EXPECT_LT(far.PartCount(), 1500u);
    EXPECT_LT(far.VertexCount(), 5000u);
    // One is never farther away than a part and a square of the grid are wide.
    for (std::size_t i = 0; i < points.size(); i += 101) {
        double nearest = 1e300;
        for (std::size_t v = 0; v < far.VertexCount(); ++v) {
            const tagXY p = points[far.PointOf(v)];
            nearest = std::min(nearest, std::hypot(p.x - points[i].x, p.y - points[i].y));
        }
        ASSERT_LE(nearest, far.Tolerance() * 1.5) << i;
    }
    EXPECT_EQ(LodOf(points, false).Full().PartCount(), 1u);
    const PathLod single(ChartPoints::Lent(points), {.every = 1});
    EXPECT_EQ(single.LevelCount(), 1u) << "no lines, so nothing to thin";
}

TEST(PathLod, ASketchHasFewOfThePointsInTheirParts) {
    struct Row {
        const char* what;
        PathParts parts;
        std::size_t most, leastVertices, mostVertices, partCount;
    };
    const std::vector<tagXY> points = Coast(9000, 0);
    for (const Row& row :
         {Row{"a line", {}, 500, 400, 502, 1}, Row{"parts", {.starts = {4000, 4001}}, 500, 400, 510, 2},
          Row{"pairs", {.every = 2}, 500, 400, 502, 250}, Row{"points", {.every = 1}, 500, 400, 502, 500},
          Row{"few", {.starts = {9}}, 9000, 9000, 9000, 2}}) {
        const PathLod sketch = PathLod::Sketch(ChartPoints::Lent(points), row.parts, row.most);
        const PathLod::Level& level = sketch.Full();
        EXPECT_GE(level.VertexCount(), row.leastVertices) << row.what;
        EXPECT_LE(level.VertexCount(), row.mostVertices) << row.what;
        EXPECT_EQ(level.PartCount(), row.partCount) << row.what;
        EXPECT_EQ(level.PointOf(0), 0u) << row.what;
        EXPECT_EQ(sketch.LevelCount(), 1u);
        const ChartBox whole = LodOf(points, false).Box();
        EXPECT_GT(sketch.Box().Width(), 0.99 * whole.Width()) << row.what;
    }
    EXPECT_TRUE(PathLod::Sketch({}, {}, 5).Box().IsEmpty());
}

TEST(PathLod, ReadsPositionsOutOfRecords) {
    struct Record {
        char kind;
        tagXY at;
        int rest;
    };
    const auto records = std::make_shared<const std::vector<Record>>(
        std::vector<Record>{{'a', {1, 2}, 0}, {'b', {3, 4}, 0}, {'c', {5, 7}, 0}});
    const PathLod lod(ChartPoints(records, &records->front().at, records->size(), sizeof(Record)), {});
    EXPECT_EQ(lod.Box(), (ChartBox{1, 2, 5, 7}));
    EXPECT_EQ(lod.Points()[1], (tagXY{3, 4}));
}

TEST(PathLod, PassesOverWhatIsNoPlace) {
    std::vector<tagXY> points = Points("0,0 1,1 2,2 3,3 4,4 5,5 6,6 7,7");
    points[0].x = kNaN;
    points[3].y = std::numeric_limits<double>::infinity();
    points[4].x = MISSING_VALUE;
    points[7].y = -1e300;
    const PathLod lod = LodOf(points, false, {4});
    EXPECT_EQ(VerticesOf(lod.Full()), (std::vector<std::uint32_t>{1, 2, 5, 6}));
    EXPECT_EQ(lod.Box(), (ChartBox{1, 1, 6, 6}));
    EXPECT_EQ(lod.Full().PartCount(), 2u) << "the part that begins with a point of no use begins with the next";

    EXPECT_TRUE(LodOf({points[0]}, true).Box().IsEmpty());
    EXPECT_TRUE(PathLod({}, PathParts{}).Full().Chunks().empty());
}

}  // namespace
}  // namespace quillon
