#include "scene/line_clip.h"

#include <gtest/gtest.h>

#include <random>

namespace quillon {
namespace {

constexpr ChartBox kBox{-10, -5, 30, 20};

class Random {
public:
    PixelPoint Point(double reach) { return {10 + reach * Part(), 7 + reach * Part()}; }
    double Part() { return static_cast<double>(engine()) / 2147483647.5 - 1.0; }

private:
    std::mt19937 engine{7};
};

TEST(ClipSegment, KeepsWhatLiesInsideAndNothingElse) {
    Random random;
    int cut = 0;
    for (int i = 0; i < 5000; ++i) {
        const PixelPoint a = random.Point(60), b = random.Point(60);
        PixelPoint from = a, to = b;
        double fromPart = 0, toPart = 0;
        const bool shows = ClipSegment(kBox, from, to, &fromPart, &toPart);
        // walks along the segment: a step inside must be in the piece, a step clearly outside must not
        for (int step = 0; step <= 200; ++step) {
            const double t = step / 200.0;
            const double x = a.x + (b.x - a.x) * t, y = a.y + (b.y - a.y) * t;
            const bool isKept = shows && t >= fromPart - 1e-12 && t <= toPart + 1e-12;
            if (kBox.Grown(-1e-9).Contains(x, y)) {
                ASSERT_TRUE(isKept) << i;
            } else if (!kBox.Grown(1e-9).Contains(x, y)) {
                ASSERT_FALSE(isKept) << i;
            }
        }
        cut += shows && (fromPart > 0 || toPart < 1);
    }
    EXPECT_GT(cut, 1000);
}

/// How often a ring goes round a place.
int Winding(const std::vector<PixelPoint>& ring, double x, double y) {
    int winding = 0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const PixelPoint a = ring[i], b = ring[(i + 1) % ring.size()];
        const double side = (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x);
        if (a.y <= y && b.y > y && side > 0) ++winding;
        if (a.y > y && b.y <= y && side < 0) --winding;
    }
    return winding;
}

TEST(ClipArea, GoesRoundEveryPlaceInsideAsOftenAsBefore) {
    Random random;
    for (int i = 0; i < 300; ++i) {
        std::vector<PixelPoint> ring;
        for (int corner = 0; corner < 3 + i % 30; ++corner) ring.push_back(random.Point(50));
        std::vector<PixelPoint> cut = ring;
        ClipArea(kBox, cut);
        for (const PixelPoint& p : cut) ASSERT_TRUE(kBox.Grown(1e-9).Contains(p.x, p.y));
        for (int probe = 0; probe < 100; ++probe) {
            const double x = 10 + 19.9 * random.Part(), y = 7.5 + 12.4 * random.Part();
            ASSERT_EQ(Winding(ring, x, y), Winding(cut, x, y)) << "ring " << i << " at " << x << "," << y;
        }
    }
}

}  // namespace
}  // namespace quillon
