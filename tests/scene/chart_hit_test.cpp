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
        const PathLod lod = LodOf(walk, isClosed);
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
    const std::vector<std::uint32_t> starts = {3};
    const PathLod lod = LodOf(points, true, starts);
    EXPECT_EQ(HitPath(lod, {98, 3}, 5)->point, 1u);
    EXPECT_EQ(HitPath(lod, {100, 40}, 5)->point, 1u);
    EXPECT_EQ(HitPath(lod, {50, 52}, 5)->point, 2u);        // the segment that closes the first part
    EXPECT_FALSE(HitPath(lod, {150, 150}, 5).has_value());  // no segment joins the parts
    EXPECT_FALSE(HitPath(PathLod(), {0, 0}, 5).has_value());
}

TEST(NearestOnLines, FindsWhatLookingAtEverySegmentFinds) {
    std::mt19937 random(5);
    const std::vector<tagXY> walk = Walk(20000, 10, 5);
    const PathLod lod = LodOf(walk, false);
    for (int i = 0; i < 100; ++i) {
        const tagXY near = walk[random() % walk.size()];
        const double reach = i % 2 ? 10.0 : 3000.0;
        const tagXY place{near.x + reach * (static_cast<double>(random() % 100) / 50.0 - 1.0), near.y + reach};
        double least = 1e300;
        for (std::size_t k = 0; k + 1 < walk.size(); ++k) {
            least = std::min(least, std::sqrt(SquaredDistance(place.x, place.y, walk[k].x, walk[k].y, walk[k + 1].x,
                                                              walk[k + 1].y)));
        }
        const std::optional<PathHit> hit = NearestOnLines(lod, place);
        ASSERT_TRUE(hit);
        EXPECT_NEAR(hit->distance, least, 1e-9) << i;
        EXPECT_EQ(hit->next, hit->point + 1);
    }
    EXPECT_FALSE(NearestOnLines(PathLod(ChartPoints(Points("0,0 5,5")), {.every = 1}), {0, 0}));
}

TEST(AreaHolds, WhatLookingAtEveryEdgeFinds) {
    std::mt19937 random(3);
    const std::vector<tagXY> coast = Coast(5000, 20);
    for (const bool isClosed : {false, true}) {
        const PathLod lod = LodOf(coast, isClosed);
        int inside = 0;
        for (int i = 0; i < 500; ++i) {
            const tagXY place{lod.Box().minX + lod.Box().Width() * static_cast<double>(random() % 1000) / 1000,
                              lod.Box().minY + lod.Box().Height() * static_cast<double>(random() % 1000) / 1000};
            bool isIn = false;
            for (std::size_t k = 0; k < coast.size(); ++k) {
                const tagXY a = coast[k], b = coast[(k + 1) % coast.size()];
                const bool crosses = (a.y > place.y) != (b.y > place.y);
                if (crosses && place.x < a.x + (place.y - a.y) / (b.y - a.y) * (b.x - a.x)) isIn = !isIn;
            }
            ASSERT_EQ(AreaHolds(lod, place), isIn) << i;
            inside += isIn;
        }
        EXPECT_GT(inside, 100);
    }
    const std::vector<tagXY> parts = Points("0,0 10,0 10,10 0,10 50,0 60,0 60,10");
    EXPECT_TRUE(AreaHolds(LodOf(parts, true, {4}), {58, 3}));
    EXPECT_FALSE(AreaHolds(LodOf(parts, true, {4}), {30, 5})) << "between the parts";
}

/// A click must be able to reach each of the symbols that lie over one another, but not a million of them.
TEST(HitsOf, LonePointsComeOneByOneTheNearestFirst) {
    std::vector<tagXY> points;
    for (int i = 0; i < 1000; ++i) points.push_back({0.01 * (999 - i), 0.0});
    ChartScene scene;
    scene.layers.push_back({.items = {ChartPath{.path = MakePath(points, {.every = 1})}}});
    ChartView view;
    view.SetSize(100, 100);
    view.SetScale(1.0);
    const std::vector<ChartHit> hits = HitsOf(scene, view, {50, 50}, 8);
    ASSERT_EQ(hits.size(), kMostLonePoints);
    for (std::size_t i = 0; i < hits.size(); ++i) EXPECT_EQ(hits[i].hit.point, 999 - i);
}

TEST(HitsOf, ComeInTheOrderThatOneWouldMeanThemIn) {
    const auto area = [](const char* points) {
        return ChartPath{.path = MakePath(Points(points)), .fill = {kFillSolid, 0}};
    };
    ChartScene scene;
    const auto values = std::make_shared<const std::vector<std::int32_t>>(16, 1234);
    scene.layers.push_back({.id = 7,
                            .items = {ChartImage{.raster = std::make_shared<const ChartRaster>(
                                                     values, *values, 4, 4, tagXY{-150, -150}, 100.0)}}});
    scene.layers.push_back({.id = 8, .items = {area("-90,-90 90,-90 90,90 -90,90"), area("-80,-80 80,-80 0,80")}});
    ChartRings rings{.centres = MakePath(Points("0,50 500,0"), {.every = 1})};
    rings.rings = {{20.0, {}, {}}, {50.0, {}, {}}};
    scene.layers.push_back({.id = 9,
                            .items = {rings, ChartPath{.path = MakePath(Points("-50,3 50,3"))},
                                      ChartPath{.path = MakePath(Points("1,1 300,300"))},
                                      ChartPath{.path = MakePath(Points("0,0")), .canBeHit = false}}});
    ChartView view;
    view.SetSize(400, 300);
    view.SetScale(1.0);
    std::vector<std::pair<std::uint64_t, HIT_KIND>> found;
    std::vector<std::size_t> items;
    for (const ChartHit& hit : HitsOf(scene, view, {200, 150}, 8)) {
        found.push_back({hit.layer, hit.kind});
        items.push_back(hit.item);
    }
    using enum HIT_KIND;
    EXPECT_EQ(found, (std::vector<std::pair<std::uint64_t, HIT_KIND>>{
                         {9, VERTEX}, {9, SEGMENT}, {9, RING}, {8, AREA}, {8, AREA}, {7, VALUE}}));
    EXPECT_EQ(items, (std::vector<std::size_t>{2, 1, 0, 1, 0, 0})) << "of equals the upper one first";
    EXPECT_EQ(HitsOf(scene, view, {200, 150}, 8).back().value, 1234);
    EXPECT_EQ(HitScene(scene, view, {200, 150}, 8)->item, 2u);
    EXPECT_FALSE(HitScene(scene, view, {200, 250}, 8)) << "an area alone is no hit";
    EXPECT_FALSE(HitsOf(scene, view, {200, 250}, 8).empty());
}

}  // namespace
}  // namespace quillon
