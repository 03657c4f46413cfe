#include "display/outline_view.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>

#include "frame/messages.h"
#include "platform/headless.h"
#include "platform/recorder_device.h"
#include "platform/text.h"
#include "support/scratch_drives.h"
#include "target/barge.h"

namespace quillon {
namespace {

class PlainView : public COutlineView {
public:
    using COutlineView::COutlineView;
    void Paint(CDrawDevice& device) override {
        CMyDC dc(&device);
        DrawGrid(dc);
    }
};

class Parent : public CWnd {
public:
    using CWnd::CWnd;
    LRESULT OnMessage(const MSG& message) override {
        if (message.message == UM_CLICK_ON_VESSEL_OUTLINE) clicked = *reinterpret_cast<const tagXY*>(message.wParam);
        return 0;
    }
    tagXY clicked;
};

/// "line 0,0 10,5 20,20 pen 1 #FFFFFF" as its pixels.
std::vector<tagPOINT> PixelsOf(const std::string& call) {
    std::vector<tagPOINT> pixels;
    for (std::string_view rest = call; (rest = rest.substr(std::min(rest.find(' '), rest.size()))).size() > 1;) {
        rest.remove_prefix(1);
        const std::size_t comma = rest.find(',');
        if (comma == std::string_view::npos || comma > rest.find(' ')) break;
        pixels.push_back({Atoi(rest), Atoi(rest.substr(comma + 1))});
    }
    return pixels;
}

class OutlineViewTest : public testing::Test {
protected:
    OutlineViewTest() : platform(drives.Root()), parent(platform), view(parent, 1), dc(&device) {}

    /// One metre a pixel, 0, 0 in the middle of 400 by 200 pixels.
    void ScaleToMetres() { view.ComputeScaling({0, 0, 400, 200}, -200, -100, 200, 100); }
    CDxf& Drawing(const std::string& entities) {
        dxf.OpenBytes(
            bytes =
                "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n0\nLAYER\n2\nRED\n62\n1\n0\nLAYER\n2\nOFF\n62\n-1\n"
                "0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n" +
                entities + "0\nENDSEC\n0\nEOF\n");
        while (dxf.ReadSection()) {
        }
        dxf.Close();
        return dxf;
    }
    std::string Drawn(const CDxf& drawing) {
        view.DrawDxf(dc, &drawing);
        return device.Take();
    }

    ScratchDrives drives;
    HeadlessPlatform platform;
    Parent parent;
    PlainView view;
    RecorderDevice device;
    CMyDC dc;
    std::string bytes;
    CDxf dxf{drives.Files()};
};

TEST_F(OutlineViewTest, StepsOfTheGridBySpan) {
    const double rows[][2] = {{99, 10},    {100, 25},   {249, 25},    {250, 50},     {999, 100},
                              {1000, 250}, {2500, 500}, {9999, 1000}, {10000, 5000}, {1e7, 5000}};
    for (const auto& [span, step] : rows) {
        view.ComputeScaling({0, 0, 300, 200}, 0, 0, span / 2, span);
        EXPECT_EQ(view.GetGridStep(), step) << span;
    }
    view.ComputeScaling({0, 0, 300, 200}, 12, 13, 58, 49);
    EXPECT_DOUBLE_EQ(view.GetMetresPerPixel(), 0.2) << "50 m over 300 and 40 m over 200 pixels";
    EXPECT_EQ(view.CoordToPixel(35, 30), (tagPOINT{150, 100}));
    EXPECT_EQ(view.CoordToPixel(35.3, 30.3), (tagPOINT{151, 99}));
    EXPECT_EQ(view.PixelToCoord(151, 99), (tagXY{35.2, 30.2}));
}

TEST_F(OutlineViewTest, AViewOfNoSizeDrawsNothing) {
    view.ComputeScaling({0, 0, 0, 200}, 0, 0, 100, 100);
    EXPECT_FALSE(view.HasScale());
    view.Paint(device);
    EXPECT_EQ(Drawn(Drawing("0\nLINE\n10\n0\n20\n0\n11\n9\n21\n9\n")), "");
    view.ComputeScaling({0, 0, 300, 200}, 0, 0, 0, 0);
    EXPECT_FALSE(view.HasScale()) << "extents without a size";
}

TEST_F(OutlineViewTest, GridAndClicks) {
    ScaleToMetres();
    view.SetNightMode(true);
    view.Paint(device);
    const std::string drawn = device.Take();
    EXPECT_EQ(drawn.substr(0, drawn.find("line 0,95")),
              "line 200,200 200,0 pen 1 #004000\nline 0,100 400,100 pen 1 #004000\n");
    std::size_t dots = 0;
    for (std::size_t at = 0; (at = drawn.find("pixel ", at)) != std::string::npos; ++at) ++dots;
    EXPECT_EQ(dots, 9u * 5u) << "every 50 m over 400 by 200";
    view.OnLButtonDown({210, 80});
    platform.Messages().Pump();
    EXPECT_EQ(parent.clicked, (tagXY{10, 20}));
}

// Every pixel of an arc lies within a pixel of the true circle, and both its ends are there.
TEST_F(OutlineViewTest, ArcsStayWithinAPixelAtEveryScale) {
    for (const double scale : {0.01, 0.3, 1.0, 7.0, 500.0}) {
        view.ComputeScaling({0, 0, 4000, 4000}, -2000 * scale, -2000 * scale, 2000 * scale, 2000 * scale);
        const double metresPerPixel = view.GetMetresPerPixel();
        for (const double pixels : {0.4, 1.5, 40.0, 900.0}) {
            for (const auto& [from, to] : {std::pair{0.0, 6.283185307179586}, {5.5, 0.7}, {0.2, 0.3}}) {
                for (const auto sense : {CLOCK_DIRECTION::CLOCKWISE, CLOCK_DIRECTION::ANTICLOCKWISE}) {
                    const double radius = pixels * metresPerPixel;
                    view.DrawArc(dc, 0, 0, radius, from, to, sense);
                    std::vector<tagPOINT> drawn;
                    for (const std::string& call : device.Calls()) {
                        for (const tagPOINT& pixel : PixelsOf(call)) drawn.push_back(pixel);
                    }
                    device.Take();
                    ASSERT_FALSE(drawn.empty());
                    for (std::size_t i = 0; i + 1 < drawn.size(); ++i) {
                        const double x = (drawn[i].x + drawn[i + 1].x) / 2.0 - 2000;
                        const double y = 2000 - (drawn[i].y + drawn[i + 1].y) / 2.0;
                        EXPECT_NEAR(std::hypot(x, y), pixels, 2.5) << "middle of a chord, pixels cut";
                    }
                    const double end = sense == CLOCK_DIRECTION::CLOCKWISE ? to : from;
                    EXPECT_NEAR(drawn.back().x - 2000, pixels * std::sin(end), 1.01);
                    EXPECT_NEAR(2000 - drawn.back().y, pixels * std::cos(end), 1.01);
                }
            }
        }
    }
    view.DrawArc(dc, 0, 0, 0, 0, 1, CLOCK_DIRECTION::CLOCKWISE);
    view.DrawArc(dc, 0, 0, 1e300, 0, 1, CLOCK_DIRECTION::CLOCKWISE);  // must end
    SUCCEED();
}

TEST_F(OutlineViewTest, ColoursOfEntities) {
    ScaleToMetres();
    struct Row {
        const char* attributes;
        const char* colour;
    };
    const Row rows[] = {
        {"62\n1\n", "#FF0000"},  {"62\n7\n", "#FFFFFF"},           {"62\n250\n", "#404040"},
        {"8\nRED\n", "#FF0000"}, {"8\nRED\n62\n256\n", "#FF0000"}, {"8\nRED\n62\n5\n", "#0000FF"},
        {"", "#FFFFFF"},         {"62\n300\n", "#FFFFFF"},         {"62\n255\n", "#FFFFFF"},  // black on black
    };
    for (const Row& row : rows) {
        const std::string line = "0\nLINE\n" + std::string(row.attributes) + "10\n0\n20\n0\n11\n10\n21\n5\n";
        EXPECT_EQ(Drawn(Drawing(line)), "line 200,100 210,95 pen 1 " + std::string(row.colour) + "\n")
            << row.attributes;
    }
    EXPECT_EQ(Drawn(Drawing("0\nLINE\n8\nOFF\n10\n0\n20\n0\n11\n10\n21\n5\n")), "") << "a layer that is off";
    dxf.use = false;
    EXPECT_EQ(Drawn(dxf), "");
}

// A drawing placed by complex numbers: scaled, turned clockwise, moved.
TEST_F(OutlineViewTest, DrawingsAreScaledTurnedAndMoved) {
    ScaleToMetres();
    CDxf& drawing = Drawing("0\nLWPOLYLINE\n90\n3\n70\n1\n10\n0\n20\n0\n10\n20\n20\n0\n10\n20\n20\n10\n");
    for (int degrees = 0; degrees < 360; degrees += 30) {
        drawing.scale = 2.5;
        drawing.rotation = degrees;
        drawing.sinRotation = std::sin(degrees * std::numbers::pi / 180);
        drawing.cosRotation = std::cos(degrees * std::numbers::pi / 180);
        drawing.offsetEasting = 10;
        drawing.offsetNorthing = -5;
        std::vector<tagPOINT> drawn;
        view.DrawDxf(dc, &drawing);
        for (const std::string& call : device.Calls()) {
            for (const tagPOINT& pixel : PixelsOf(call)) drawn.push_back(pixel);
        }
        device.Take();
        for (const std::complex<double> corner : {std::complex(0.0, 0.0), {20.0, 0.0}, {20.0, 10.0}}) {
            const auto at =
                corner * 2.5 * std::polar(1.0, -degrees * std::numbers::pi / 180) + std::complex(10.0, -5.0);
            const auto isNear = [&](const tagPOINT& pixel) {
                return std::abs(pixel.x - 200 - at.real()) <= 1 && std::abs(100 - pixel.y - at.imag()) <= 1;
            };
            EXPECT_TRUE(std::any_of(drawn.begin(), drawn.end(), isNear)) << degrees;
        }
    }
}

TEST_F(OutlineViewTest, OutlinesPolygonsAndSymbols) {
    ScaleToMetres();
    CBarge barge(drives.Files());
    barge.points = {{false, {0, 0}}, {true, {10, 0}}, {false, {0, 5}}, {true, {10, 5}}};
    barge.outlinePen = {.style = 0, .thickness = 2, .colour = RGB(0, 255, 0), .fill = 0};
    view.DrawOutline(dc, barge, false);
    EXPECT_EQ(device.Take(), "line 200,100 210,100 pen 2 #00FF00\nline 200,95 210,95 pen 2 #00FF00\n");
    const tagXY triangle[] = {{0, 0}, {10, 0}, {10, 10}};
    view.DrawPolygon(dc, triangle, {.style = 0, .thickness = 1, .colour = RGB(255, 0, 0), .fill = 4});
    EXPECT_EQ(device.Take(), "polygon 200,100 210,100 210,90 pen 1 #FF0000 brush hatch 4 #FF0000 winding\n");
    view.DrawVectorSymbol(dc, {50, 50, 0}, "A", {.symbol = 1, .size = 2, .colour = RGB(255, 0, 0)}, 4);
    EXPECT_NE(device.Take().find("\"A\""), std::string::npos);
}

}  // namespace
}  // namespace quillon
