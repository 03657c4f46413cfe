#include "scene/chart_hit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "scene/shapes.h"

namespace quillon {
namespace {

TEST(HitPath, FindsWhatLookingAtEveryPointFinds) {
    std::mt19937 random(11);
    for (const bool isClosed : {false, true}) {
        const std::vector<tagXY> walk = Walk(20000, 10, 5);
        const PathLod lod(walk, {}, isClosed);
        int vertices = 0, segments = 0;
        for (int i = 0; i < 300; ++i) {
            const tagXY near = walk[random() % walk.size()];
            const tagXY place{near.x + static_cast<double>(random() % 100) / 10.0,
                              near.y + static_cast<double>(random() % 100) / 10.0};
            const double radius = i % 2 ? 3.0 : 0.5;
            double vertex = 1e300, segment = 1e300;
            for (std::size_t k = 0; k < walk.size(); ++k) {
                vertex = std::min(vertex, std::hypot(walk[k].x - place.x, walk[k].y - place.y));
                if (k + 1 == walk.size() && !isClosed) continue;
                const tagXY a = walk[k], b = walk[(k + 1) % walk.size()];
                segment = std::min(segment, std::sqrt(SquaredDistance(place.x, place.y, a.x, a.y, b.x, b.y)));
            }
            const std::optional<PathHit> hit = HitPath(lod, place, radius);
            ASSERT_EQ(hit.has_value(), segment <= radius) << i;
            if (!hit) continue;
            ASSERT_EQ(hit->isVertex, vertex <= radius) << i;
            ASSERT_NEAR(hit->distance, hit->isVertex ? vertex : segment, 1e-9) << i;
            ASSERT_NEAR(std::hypot(hit->at.x - place.x, hit->at.y - place.y), hit->distance, 1e-9);
            (hit->isVertex ? vertices : segments) += 1;
        }
        EXPECT_GT(vertices, 20);
        EXPECT_GT(segments, 20);
    }
}

TEST(HitPath, NamesTheVertexOrTheBeginOfTheSegment) {
    const std::vector<tagXY> points = Points("0,0 100,0 100,100 200,200 300,200");
    const std::uint32_t starts[] = {3};
    const PathLod lod(points, starts, true);
    EXPECT_EQ(HitPath(lod, {98, 3}, 5)->point, 1u);
    EXPECT_EQ(HitPath(lod, {100, 40}, 5)->point, 1u);
    EXPECT_EQ(HitPath(lod, {50, 52}, 5)->point, 2u);        // the segment that closes the first part
    EXPECT_FALSE(HitPath(lod, {150, 150}, 5).has_value());  // no segment joins the parts
    EXPECT_FALSE(HitPath(PathLod(), {0, 0}, 5).has_value());
}

TEST(HitPath, AVertexComesBeforeANearerSegment) {
    const PathHit vertex{3, true, {}, 4.0}, segment{9, false, {}, 1.0}, nearer{4, true, {}, 2.0};
    EXPECT_TRUE(IsBetterHit(vertex, segment));
    EXPECT_FALSE(IsBetterHit(segment, vertex));
    EXPECT_TRUE(IsBetterHit(nearer, vertex));
}

}  // namespace
}  // namespace quillon
