#include "scene/chart_view.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillon {
namespace {

ChartView ViewOf(tagXY centre, double scale, int width, int height) {
    ChartView view;
    view.SetSize(width, height);
    view.SetCentre(centre);
    view.SetScale(scale);
    return view;
}

TEST(ChartView, PixelsComeBackFromTheGridAtEveryScale) {
    for (double scale = 1e-4; scale < 1e5; scale *= 7.3) {
        const ChartView view = ViewOf({512345.678, 7654321.012}, scale, 1600, 1000);
        for (const PixelPoint pixel : {PixelPoint{0, 0}, {1600, 1000}, {37.25, 911.5}}) {
            const PixelPoint back = view.ToPixel(view.ToWorld(pixel));
            // a grid position of seven digits before the point holds about a nanometre
            EXPECT_NEAR(back.x, pixel.x, 1e-9 / scale + 1e-9) << scale;
            EXPECT_NEAR(back.y, pixel.y, 2e-9 / scale + 1e-9) << scale;
        }
    }
}

TEST(ChartView, ZoomingKeepsWhatLiesUnderTheCursor) {
    ChartView view = ViewOf({500000, 6000000}, 10.0, 1600, 1000);
    const PixelPoint cursor{123, 877};
    const tagXY under = view.ToWorld(cursor);
    for (const double factor : {1.25, 1.25, 8.0, 0.1, 1e9, 1e-30}) {
        view.Zoom(factor, cursor);
        EXPECT_NEAR(view.ToWorld(cursor).x, under.x, 1e-6 * view.MetresPerPixel() + 1e-8);
        EXPECT_NEAR(view.ToWorld(cursor).y, under.y, 1e-6 * view.MetresPerPixel() + 1e-8);
    }
}

TEST(ChartView, ABoxIsBroughtIntoViewWhateverItsShape) {
    const ChartBox boxes[] = {{0, 0, 1000, 10}, {0, 0, 10, 1000}, {-5e6, -5e6, 5e6, 5e6}, {100, 200, 100, 200}};
    for (const ChartBox& box : boxes) {
        ChartView view = ViewOf({0, 0}, 1.0, 640, 480);
        view.ZoomTo(box);
        EXPECT_TRUE(view.WorldBox().Contains(box));
        EXPECT_LE(view.MetresPerPixel(), std::max({box.Width() / 500, box.Height() / 400, 0.5}));
    }
    ChartView view = ViewOf({1, 2}, 3.0, 640, 480);
    view.ZoomTo(ChartBox{});
    EXPECT_EQ(view.Centre(), (tagXY{1, 2}));
    view.ZoomToPixels({100, 100}, {420, 340});
    EXPECT_DOUBLE_EQ(view.MetresPerPixel(), 1.5);
    EXPECT_EQ(view.Centre(), (tagXY{1 - 60 * 3, 2 + 20 * 3}));
}

TEST(ChartView, StaysFitToDrawWith) {
    ChartView view = ViewOf({1, 2}, 3.0, 640, 480);
    view.SetSize(0, -5);
    view.SetScale(0);
    view.SetScale(std::numeric_limits<double>::quiet_NaN());
    view.Zoom(-1, {0, 0});
    view.SetCentre({std::numeric_limits<double>::infinity(), 0});
    view.SetCentre({MISSING_VALUE, 0});
    EXPECT_EQ(view.Width(), 1);
    EXPECT_EQ(view.Height(), 1);
    EXPECT_EQ(view.MetresPerPixel(), 3.0);
    EXPECT_EQ(view.Centre(), (tagXY{1, 2}));
}

}  // namespace
}  // namespace quillon
