// Pictures of the chart on the toolkit's raster, looked at in places where no smoothing or text is in the way.

#include <gtest/gtest.h>

#include <QImage>
#include <numbers>

#include "chart/chart_painter.h"
#include "chart/qpainter_device.h"
#include "scene/shapes.h"

namespace quillon {
namespace {

constexpr int kWidth = 400, kHeight = 300;

COLORREF ColourAt(const QImage& image, int x, int y) {
    const QRgb pixel = image.pixel(x, y);
    return RGB(static_cast<unsigned>(qRed(pixel)), static_cast<unsigned>(qGreen(pixel)),
               static_cast<unsigned>(qBlue(pixel)));
}

/// How many pixels of a box differ from a colour.
int Others(const QImage& image, const QRect& box, COLORREF colour) {
    int count = 0;
    for (int y = box.top(); y <= box.bottom(); ++y) {
        for (int x = box.left(); x <= box.right(); ++x) count += ColourAt(image, x, y) != colour;
    }
    return count;
}

class ChartPicture : public testing::Test {
protected:
    /// One metre a pixel, 0,0 in the middle: easting x is pixel 200 + x, northing y is pixel 150 - y.
    QImage Paint(const ChartScene& scene, bool night, double scale = 1.0) {
        view.SetSize(kWidth, kHeight);
        view.SetScale(1.0);
        QImage image(static_cast<int>(kWidth * scale), static_cast<int>(kHeight * scale), QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        QPainter painter(&image);
        chart.Paint(painter, view, scene, night);
        return image;
    }
    static ChartScene SceneOf(std::vector<ChartItem> items) {
        ChartScene scene;
        scene.layers.push_back({.id = 1, .items = std::move(items)});
        return scene;
    }
    static ChartScene SceneOf(ChartItem item) { return SceneOf(std::vector<ChartItem>{std::move(item)}); }
    static ChartTexts TextAt(tagXY at, ChartText text) {
        return {.places = MakePath({at}), .textOf = [text](std::size_t) { return text; }};
    }
    static ChartRings RingRound(tagXY centre, ChartRings::Ring ring) {
        return {.centres = MakePath({centre}), .rings = {ring}};
    }

    ChartView view;
    ChartPainter chart;
    PathPtr square = MakePath(Points("-60,-60 60,-60 60,60 -60,60"), {.closed = true});
};

TEST_F(ChartPicture, LinesAreCrispAndInTheOperatorsColour) {
    ChartPath path;
    path.path = square;
    path.line = {RGB(255, 0, 0), 1, PS_SOLID};
    for (const bool night : {false, true}) {
        const QImage image = Paint(SceneOf(path), night);
        const COLORREF red = FeatureColour(RGB(255, 0, 0), night), ground = ColoursOf(night).ground;
        // one pixel wide, not two at half strength
        EXPECT_EQ(ColourAt(image, 230, 90), red);
        EXPECT_EQ(ColourAt(image, 230, 89), ground);
        EXPECT_EQ(ColourAt(image, 230, 91), ground);
        EXPECT_EQ(ColourAt(image, 260, 130), red);
        EXPECT_EQ(ColourAt(image, 259, 130), ground);
    }
    path.line.thickness = 3;
    const QImage wide = Paint(SceneOf(path), false, 2.0);
    for (int y = 177; y <= 182; ++y) EXPECT_EQ(ColourAt(wide, 460, y), RGB(255, 0, 0)) << y;
    EXPECT_EQ(ColourAt(wide, 460, 176), ColoursOf(false).ground);
    EXPECT_EQ(ColourAt(wide, 460, 183), ColoursOf(false).ground);
}

TEST_F(ChartPicture, AreasAreFilledInsideOnly) {
    ChartPath path;
    path.path = square;
    for (const FILL_STYLE fill : {kFillSolid, FILL_STYLE{0}, FILL_STYLE{5}}) {
        path.fill = {fill, RGB(0, 128, 0)};
        const QImage image = Paint(SceneOf(path), false);
        EXPECT_GT(Others(image, QRect(205, 100, 40, 40), ColoursOf(false).ground), 150) << fill;
        EXPECT_EQ(Others(image, QRect(265, 100, 30, 40), ColoursOf(false).ground), 0) << fill;
    }
    path.fill.style = kFillNone;
    EXPECT_EQ(Others(Paint(SceneOf(path), false), QRect(205, 100, 40, 40), ColoursOf(false).ground), 0);
}

TEST_F(ChartPicture, TheHatchStaysWithTheGridWhenPanned) {
    ChartPath path;
    path.path = square;
    path.fill = {2, RGB(0, 0, 255)};
    const QImage before = Paint(SceneOf(path), false);
    view.Pan(13, 5);
    const QImage after = Paint(SceneOf(path), false);
    for (int i = 0; i < 40; ++i) EXPECT_EQ(ColourAt(before, 205 + i, 100), ColourAt(after, 218 + i, 105)) << i;
}

TEST_F(ChartPicture, SymbolsAndLabelsStandAtTheirPoints) {
    ChartPath path;
    path.path = MakePath(Points("30,30 130,30"));
    path.marks = {1, 3, RGB(255, 0, 0), 0, 2, [](std::size_t i) { return i == 1 ? "Wreck" : ""; }};
    const QImage image = Paint(SceneOf(path), false);
    // a solid square of 16 pixels round 230,120, and no label; the other one with a framed label below
    EXPECT_EQ(Others(image, QRect(222, 112, 16, 16), RGB(255, 0, 0)), 0);
    EXPECT_EQ(Others(image, QRect(205, 112, 16, 16), ColoursOf(false).ground), 0);
    EXPECT_EQ(Others(image, QRect(222, 129, 16, 16), ColoursOf(false).ground), 0);
    EXPECT_EQ(ColourAt(image, 330, 120 + 13 - 1), 0u);             // upper side of the frame
    EXPECT_EQ(ColourAt(image, 330 - 14, 120 + 13 + 2), 0xE7FFFF);  // light yellow beside the letters
    EXPECT_EQ(ColourAt(Paint(SceneOf(path), true), 330 - 14, 120 + 13 + 2), ColoursOf(true).labelGround);
}

TEST_F(ChartPicture, RingsTextsAndThePointShown) {
    ChartScene scene = SceneOf({RingRound({50, 50}, {40, {RGB(0, 0, 0), 3, PS_SOLID}, {}}),
                                RingRound({0, 0}, {1e9, {RGB(0, 0, 0), 3, PS_SOLID}, {}}),  // far outside
                                TextAt({-100, 0}, {.text = "KP 1.0", .along = 0.0}),
                                TextAt({-50, 0}, {.text = "too long for its leg", .along = 0.0, .room = 20.0})});
    scene.shown = tagXY{50, -50};
    const QImage image = Paint(scene, false);
    EXPECT_EQ(ColourAt(image, 290, 100), 0u);
    EXPECT_EQ(ColourAt(image, 210, 100), 0u);
    EXPECT_EQ(ColourAt(image, 250, 100), ColoursOf(false).ground);
    // along a line to the north: higher than wide
    EXPECT_GT(Others(image, QRect(92, 132, 16, 12), ColoursOf(false).ground), 5);
    EXPECT_EQ(Others(image, QRect(122, 151, 60, 60), ColoursOf(false).ground), 0);
    EXPECT_EQ(ColourAt(image, 250 + 11, 200), ColoursOf(false).shown);
    EXPECT_EQ(ColourAt(image, 250, 200), ColoursOf(false).ground);  // the point itself stays free
}

TEST_F(ChartPicture, ATextAcrossALineBeginsOnTheSideItIsMeantFor) {
    struct Row {
        double along;
        LABEL_POSITION position;
        QRect drawn, free;  ///< east or west of the place at pixel 200,130
    };
    const QRect east(212, 123, 26, 14), west(162, 123, 26, 14);
    for (const Row& row : {Row{0.5, 4, east, west}, Row{1.5, 4, west, east}, Row{0.5, 3, west, east}}) {
        const ChartScene scene = SceneOf(TextAt(
            {0, 20}, {.text = "12.5", .along = row.along * std::numbers::pi, .position = row.position, .gap = 10}));
        const QImage image = Paint(scene, false);
        EXPECT_GT(Others(image, row.drawn, ColoursOf(false).ground), 20) << row.along << ' ' << row.position;
        EXPECT_EQ(Others(image, row.free, ColoursOf(false).ground), 0) << row.along << ' ' << row.position;
    }
}

TEST_F(ChartPicture, AnArrowPointsAlongItsLegAndIsLeftOutOnAShortOne) {
    ChartPath path;
    path.path = MakePath(Points("-60,30 60,30 60,-40 90,-40"), {.starts = {2}});
    path.line = {RGB(255, 0, 0), 1, PS_SOLID};
    path.arrows = true;
    const QImage image = Paint(SceneOf(path), false);
    const auto height = [&](int x) { return Others(image, QRect(x, 110, 1, 21), ColoursOf(false).ground); };
    EXPECT_GT(height(197), height(201)) << "wide behind, a point ahead";
    EXPECT_GT(height(201), height(170));
    EXPECT_EQ(Others(image, QRect(264, 180, 22, 8), ColoursOf(false).ground), 0) << "the short line has none";
}

TEST_F(ChartPicture, TakesPointsOfNoUse) {
    std::vector<tagXY> points = Points("-60,-60 60,-60 60,60 -60,60");
    points.insert(points.begin() + 2, {MISSING_VALUE, 3});
    ChartPath path;
    path.path = MakePath(points, {.closed = true});
    path.line = {RGB(255, 0, 0), 1, PS_DASHDOT};
    path.fill = {kFillSolid, RGB(255, 0, 0)};
    path.marks = {5, 3, 0, 0, 2, [](std::size_t) { return "x"; }};
    ChartRings own = RingRound({0, 0}, {0.0, {0, 1, PS_SOLID}, {kFillSolid, 0}});
    own.own = std::make_shared<const ChartRadii>(own.centres->Points(), std::vector<double>{MISSING_VALUE});
    ChartScene scene = SceneOf({path, ChartPath{.path = MakePath({})}, own,
                                RingRound({MISSING_VALUE, 0}, {MISSING_VALUE, {0, 1, PS_SOLID}, {kFillSolid, 0}}),
                                ChartImage{.raster = std::make_shared<const ChartRaster>(
                                               nullptr, std::span<const std::int32_t>(), 9, -9, tagXY(), 1.0)},
                                TextAt({MISSING_VALUE, 0}, {.text = "x"})});
    scene.shown = tagXY{MISSING_VALUE, MISSING_VALUE};
    scene.layers.push_back({.id = 1, .items = {}});  // an id given twice
    EXPECT_NE(ColourAt(Paint(scene, true), 230, 130), ColoursOf(true).ground);
    EXPECT_EQ(ExtentOf(scene), (ChartBox{-60, -60, 60, 60}));
}

TEST_F(ChartPicture, ARasterShowsEachValueInItsColourNorthUp) {
    const auto values = std::make_shared<const std::vector<std::int32_t>>(
        std::vector<std::int32_t>{100, 200, ChartRaster::kNone, 300, 50, 900});
    ChartImage image;
    image.raster = std::make_shared<const ChartRaster>(values, *values, 3, 2, tagXY{-45, -15}, 30.0);
    image.colours = std::make_shared<const ChartColourScale>(
        ChartColourScale{100, 300, {RGB(255, 0, 0), RGB(0, 255, 0), RGB(0, 0, 255)}});
    for (const double scale : {1.0, 2.0}) {
        const QImage picture = Paint(SceneOf(image), false, scale);
        const auto at = [&](int x, int y) {
            return ColourAt(picture, static_cast<int>((200 + x) * scale), static_cast<int>((150 - y) * scale));
        };
        EXPECT_EQ(at(-45, -10), RGB(255, 0, 0));
        EXPECT_EQ(at(-10, -20), RGB(0, 255, 0));
        EXPECT_EQ(at(20, -20), ColoursOf(false).ground) << "no value";
        EXPECT_EQ(at(-45, 20), RGB(0, 0, 255));
        EXPECT_EQ(at(-10, 20), RGB(255, 0, 0)) << "less than the least";
        EXPECT_EQ(at(25, 20), RGB(0, 0, 255)) << "more than the greatest";
        EXPECT_EQ(at(-62, 10), ColoursOf(false).ground);
        EXPECT_EQ(at(32, 10), ColoursOf(false).ground);
        EXPECT_EQ(at(10, 32), ColoursOf(false).ground);
    }
}

}  // namespace
}  // namespace quillon
