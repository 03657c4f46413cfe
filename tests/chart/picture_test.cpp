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
    static ChartScene SceneOf(ChartPath path) {
        ChartScene scene;
        scene.layers.push_back({.id = 1, .paths = {std::move(path)}, .circles = {}, .texts = {}});
        return scene;
    }

    ChartView view;
    ChartPainter chart;
    std::vector<tagXY> square = Points("-60,-60 60,-60 60,60 -60,60");
};

TEST_F(ChartPicture, GroundAndGridAreThereWithoutAScene) {
    for (const bool night : {false, true}) {
        const ChartColours& colours = ColoursOf(night);
        const QImage image = Paint({}, night);
        EXPECT_EQ(ColourAt(image, 230, 130), colours.ground);
        EXPECT_EQ(ColourAt(image, 200, 130), colours.gridLine);  // 0 E
        EXPECT_EQ(ColourAt(image, 230, 150), colours.gridLine);  // 0 N
        EXPECT_GT(Others(image, QRect(8, 260, 180, 35), colours.ground), 200) << "no scale bar";
        EXPECT_GT(Others(image, QRect(180, 4, 40, 14), colours.ground), 20) << "no figures of an easting";
    }
}

TEST_F(ChartPicture, LinesAreCrispAndInTheOperatorsColour) {
    ChartPath path;
    path.points = square;
    path.closed = true;
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

TEST_F(ChartPicture, ABlackLineShowsAtNight) {
    ChartPath path;
    path.points = square;
    path.closed = true;
    path.line = {0, 2, PS_SOLID};
    const COLORREF seen = ColourAt(Paint(SceneOf(path), true), 230, 90);
    EXPECT_GT(Lightness(seen), 0.3);
    EXPECT_EQ(ColourAt(Paint(SceneOf(path), false), 230, 90), 0u);
}

TEST_F(ChartPicture, AreasAreFilledInsideOnly) {
    ChartPath path;
    path.points = square;
    path.closed = true;
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
    path.points = square;
    path.closed = true;
    path.fill = {2, RGB(0, 0, 255)};
    const QImage before = Paint(SceneOf(path), false);
    view.Pan(13, 5);
    const QImage after = Paint(SceneOf(path), false);
    for (int i = 0; i < 40; ++i) EXPECT_EQ(ColourAt(before, 205 + i, 100), ColourAt(after, 218 + i, 105)) << i;
}

TEST_F(ChartPicture, SymbolsAndLabelsStandAtTheirPoints) {
    const std::vector<tagXY> points = Points("30,30 130,30");
    ChartPath path;
    path.points = points;
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
    ChartScene scene;
    ChartLayer layer{.id = 1, .paths = {}, .circles = {}, .texts = {}};
    layer.circles.push_back({{50, 50}, 40, {RGB(0, 0, 0), 3, PS_SOLID}, {}});
    layer.circles.push_back({{0, 0}, 1e9, {RGB(0, 0, 0), 3, PS_SOLID}, {}});  // far outside
    layer.texts.push_back({.at = {-100, 0}, .text = "KP 1.0", .along = 0.0, .colour = 0});
    layer.texts.push_back({.at = {-50, 0}, .text = "too long for its leg", .along = 0.0, .room = 20.0, .colour = 0});
    scene.layers.push_back(layer);
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
        ChartScene scene;
        scene.layers.push_back({.id = 1, .paths = {}, .circles = {}, .texts = {}});
        scene.layers[0].texts.push_back({.at = {0, 20},
                                         .text = "12.5",
                                         .along = row.along * std::numbers::pi,
                                         .position = row.position,
                                         .gap = 10,
                                         .colour = 0});
        const QImage image = Paint(scene, false);
        EXPECT_GT(Others(image, row.drawn, ColoursOf(false).ground), 20) << row.along << ' ' << row.position;
        EXPECT_EQ(Others(image, row.free, ColoursOf(false).ground), 0) << row.along << ' ' << row.position;
    }
}

TEST_F(ChartPicture, AnArrowPointsAlongItsLegAndIsLeftOutOnAShortOne) {
    std::vector<tagXY> points = Points("-60,30 60,30 60,-40 90,-40");
    ChartPath path;
    path.points = points;
    path.starts = {2};
    path.line = {RGB(255, 0, 0), 1, PS_SOLID};
    path.arrows = true;
    const QImage image = Paint(SceneOf(path), false);
    const auto height = [&](int x) { return Others(image, QRect(x, 110, 1, 21), ColoursOf(false).ground); };
    EXPECT_GT(height(197), height(201)) << "wide behind, a point ahead";
    EXPECT_GT(height(201), height(170));
    EXPECT_EQ(Others(image, QRect(264, 180, 22, 8), ColoursOf(false).ground), 0) << "the short line has none";
}

TEST_F(ChartPicture, TakesPointsOfNoUse) {
    std::vector<tagXY> points = square;
    points.insert(points.begin() + 2, {MISSING_VALUE, 3});
    ChartPath path;
    path.points = points;
    path.closed = true;
    path.line = {RGB(255, 0, 0), 1, PS_DASHDOT};
    path.fill = {kFillSolid, RGB(255, 0, 0)};
    path.marks = {5, 3, 0, 0, 2, [](std::size_t) { return "x"; }};
    ChartScene scene = SceneOf(path);
    scene.shown = tagXY{MISSING_VALUE, MISSING_VALUE};
    scene.layers[0].circles.push_back({{MISSING_VALUE, 0}, MISSING_VALUE, {0, 1, PS_SOLID}, {kFillSolid, 0}});
    scene.layers.push_back({.id = 1, .paths = {ChartPath{}}, .circles = {}, .texts = {}});  // an id given twice
    EXPECT_NE(ColourAt(Paint(scene, true), 230, 130), ColoursOf(true).ground);
}

TEST_F(ChartPicture, AChangedGenerationIsSeen) {
    ChartPath path;
    path.points = square;
    path.closed = true;
    path.line = {RGB(255, 0, 0), 1, PS_SOLID};
    Paint(SceneOf(path), false);
    for (tagXY& p : square) p.x += 20;
    ++path.generation;
    const QImage image = Paint(SceneOf(path), false);
    EXPECT_EQ(ColourAt(image, 280, 130), RGB(255, 0, 0));
    EXPECT_EQ(chart.Paths().Extent(SceneOf(path)), (ChartBox{-40, -60, 80, 60}));
}

}  // namespace
}  // namespace quillon
