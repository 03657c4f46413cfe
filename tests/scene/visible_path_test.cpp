#include "scene/visible_path.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "scene/shapes.h"

namespace quillon {
namespace {

ChartView ViewOf(tagXY centre, double scale) {
    ChartView view;
    view.SetSize(400, 300);
    view.SetCentre(centre);
    view.SetScale(scale);
    return view;
}

double DistanceToLines(PixelPoint p, const PixelLines& lines) {
    double best = 1e300;
    for (std::size_t run = 0; run < lines.runs.size(); ++run) {
        for (std::size_t i = lines.runs[run].first; i + 1 < lines.EndOf(run); ++i) {
            const PixelPoint a = lines.points[i], b = lines.points[i + 1];
            best = std::min(best, SquaredDistance(p.x, p.y, a.x, a.y, b.x, b.y));
        }
    }
    return std::sqrt(best);
}

double DistanceToPath(PixelPoint p, const std::vector<tagXY>& points, const ChartView& view) {
    double best = 1e300;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const PixelPoint a = view.ToPixel(points[i]), b = view.ToPixel(points[(i + 1) % points.size()]);
        best = std::min(best, SquaredDistance(p.x, p.y, a.x, a.y, b.x, b.y));
    }
    return std::sqrt(best);
}

TEST(VisibleLine, IsTrueToThePathBothWaysAtEveryScale) {
    const std::vector<tagXY> coast = Coast(20000, 3);
    const PathLod lod = LodOf(coast, true);
    const DrawingLimits limits;
    PixelLines lines;
    for (const double scale : {100.0, 20.0, 4.0, 0.5, 0.02}) {
        const ChartView view = ViewOf(coast[1234], scale);
        VisibleLine(lod, view, limits, lines);
        ASSERT_FALSE(lines.points.empty());
        for (std::size_t i = 0; i < lines.points.size(); i += 7) {
            ASSERT_TRUE(view.PixelBox(limits.margin + 1e-6).Contains(lines.points[i].x, lines.points[i].y));
            ASSERT_LE(DistanceToPath(lines.points[i], coast, view), 0.5) << scale;
        }
        for (std::size_t i = 0; i < coast.size(); i += 11) {
            const PixelPoint p = view.ToPixel(coast[i]);
            if (view.PixelBox().Contains(p.x, p.y)) {
                ASSERT_LE(DistanceToLines(p, lines), 0.5) << scale;
            }
        }
    }
}

TEST(VisibleLine, PartsAreNotJoined) {
    const std::vector<tagXY> points = Points("0,0 10,0 10,10 50,50 60,50 60,60");
    const std::vector<std::uint32_t> starts = {3};
    PixelLines lines;
    VisibleLine(LodOf(points, true, starts), ViewOf({30, 30}, 1.0), {}, lines);
    ASSERT_EQ(lines.runs.size(), 2u);
    EXPECT_EQ(lines.EndOf(0), 4u);  // three corners and back to the first
    EXPECT_EQ(lines.points[4], lines.points[7]);
}

TEST(VisibleLine, DrawsOnlyPartOfWhatLiesOverItselfButItsExtremes) {
    const std::vector<tagXY> noise = Coast(100000, 500);
    const PathLod lod = LodOf(noise, true);
    const DrawingLimits limits{.mostVertices = 5000};
    ChartView view = ViewOf({500000, 6000000}, 1.0);
    view.ZoomTo(lod.Box());
    PixelLines lines;
    VisibleLine(lod, view, limits, lines);
    EXPECT_LE(lines.points.size(), 5100u);
    ChartBox drawn;
    for (const PixelPoint& p : lines.points) drawn.Add(p.x, p.y);
    const PixelPoint low = view.ToPixel({lod.Box().minX, lod.Box().minY});
    const PixelPoint high = view.ToPixel({lod.Box().maxX, lod.Box().maxY});
    EXPECT_NEAR(drawn.minX, low.x, 0.5);
    EXPECT_NEAR(drawn.maxX, high.x, 0.5);
    EXPECT_NEAR(drawn.minY, high.y, 0.5);
    EXPECT_NEAR(drawn.maxY, low.y, 0.5);
}

TEST(VisibleLine, CoversAViewThatItsLinesCrossAllOverWithoutDrawingThemAll) {
    const std::vector<tagXY> noise = Coast(100000, 5000);
    const PathLod lod = LodOf(noise, true);
    const DrawingLimits limits{.mostPixels = 1e5};
    PixelLines lines;
    for (const double scale : {60.0, 5.0, 0.5}) {
        VisibleLine(lod, ViewOf({500000, 6010000}, scale), limits, lines);
        double length = 0;
        bool cells[4][3] = {};
        for (std::size_t run = 0; run < lines.runs.size(); ++run) {
            for (std::size_t i = lines.runs[run].first; i + 1 < lines.EndOf(run); ++i) {
                const PixelPoint a = lines.points[i], b = lines.points[i + 1];
                length += std::hypot(b.x - a.x, b.y - a.y);
                for (double t = 0; t < 1; t += 0.02) {
                    const double x = (a.x + (b.x - a.x) * t) / 100, y = (a.y + (b.y - a.y) * t) / 100;
                    if (x >= 0 && x < 4 && y >= 0 && y < 3) cells[static_cast<int>(x)][static_cast<int>(y)] = true;
                }
            }
        }
        EXPECT_LE(length, 2e5) << scale;
        if (scale < 10) {
            for (const auto& column : cells) EXPECT_TRUE(column[0] && column[1] && column[2]) << scale;
        }
    }
}

int Winding(const PixelPoint* begin, const PixelPoint* end, double x, double y) {
    int winding = 0;
    for (const PixelPoint* p = begin; p != end; ++p) {
        const PixelPoint a = *p, b = p + 1 == end ? *begin : p[1];
        const double side = (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x);
        if (a.y <= y && b.y > y && side > 0) ++winding;
        if (a.y > y && b.y <= y && side < 0) --winding;
    }
    return winding;
}

TEST(VisibleArea, CoversWhatThePathEncloses) {
    const std::vector<tagXY> coast = Coast(20000, 3);
    const PathLod lod = LodOf(coast, true);
    PixelLines areas;
    for (const double scale : {100.0, 20.0, 1.0, 0.05}) {
        const ChartView view = ViewOf(coast[777], scale);
        VisibleArea(lod, view, {}, areas);
        std::vector<PixelPoint> whole;
        for (const tagXY& p : coast) whole.push_back(view.ToPixel(p));
        for (int probe = 0; probe < 400; ++probe) {
            const PixelPoint p{probe % 20 * 20.0 + 3, probe / 20 * 15.0 + 4};
            if (DistanceToPath(p, coast, view) < 1) continue;
            int winding = 0;
            for (std::size_t run = 0; run < areas.runs.size(); ++run) {
                const PixelPoint* points = areas.points.data();
                winding += Winding(points + areas.runs[run].first, points + areas.EndOf(run), p.x, p.y);
            }
            ASSERT_EQ(winding, Winding(whole.data(), whole.data() + whole.size(), p.x, p.y))
                << scale << " at " << p.x << "," << p.y;
        }
        EXPECT_LT(areas.points.size(), 4000u);
    }
}

TEST(VisibleMarks, AreThinnedWhereTheyCrowdAndCompleteWhereTheyDont) {
    const std::vector<tagXY> coast = Coast(20000, 3);
    const PathLod lod = LodOf(coast, true);
    std::vector<PixelMark> marks;
    VisibleMarks(lod, ViewOf({500000, 6000000}, 150), 20, marks);
    EXPECT_GT(marks.size(), 30u);
    EXPECT_LT(marks.size(), 22u * 17u);
    // no stretch of the line goes without: every point has a mark within two cells
    const ChartView far = ViewOf({500000, 6000000}, 150);
    for (std::size_t i = 0; i < coast.size(); i += 50) {
        const PixelPoint p = far.ToPixel(coast[i]);
        if (!far.PixelBox().Contains(p.x, p.y)) continue;
        double best = 1e300;
        for (const PixelMark& mark : marks) best = std::min(best, std::hypot(mark.at.x - p.x, mark.at.y - p.y));
        ASSERT_LT(best, 57) << i;
    }
    // from near, every point in view is there
    const ChartView near = ViewOf(coast[500], 0.05);
    VisibleMarks(lod, near, 20, marks);
    std::set<std::uint32_t> found;
    for (const PixelMark& mark : marks) found.insert(mark.point);
    for (std::uint32_t i = 0; i < coast.size(); ++i) {
        const PixelPoint p = near.ToPixel(coast[i]);
        EXPECT_TRUE(!near.PixelBox().Contains(p.x, p.y) || found.contains(i)) << i;
    }
    EXPECT_TRUE(found.contains(500));
}

TEST(VisibleMarks, PanningDoesNotChangeTheChoice) {
    const std::vector<tagXY> coast = Coast(20000, 3);
    const PathLod lod = LodOf(coast, true);
    const auto chosen = [&](double shift) {
        ChartView view = ViewOf(coast[0], 30);
        view.Pan(shift, shift / 3);
        std::vector<PixelMark> marks;
        VisibleMarks(lod, view, 20, marks);
        std::set<std::uint32_t> inBoth;
        for (const PixelMark& mark : marks) {
            const PixelPoint p = ViewOf(coast[0], 30).ToPixel(coast[mark.point]);
            if (p.x > 60 && p.x < 340 && p.y > 60 && p.y < 240) inBoth.insert(mark.point);
        }
        return inBoth;
    };
    const std::set<std::uint32_t> before = chosen(0);
    EXPECT_FALSE(before.empty());
    for (const double shift : {1.0, 7.5, 30.0}) EXPECT_EQ(chosen(shift), before);
}

}  // namespace
}  // namespace quillon
