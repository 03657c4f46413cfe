#include "display/target_plot_view.h"

#include <gtest/gtest.h>

#include "platform/headless.h"
#include "platform/recorder_device.h"
#include "platform/text.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

CEllipsoid Wgs84() {
    CEllipsoid figure;
    figure.SetEllipsoid(CEllipsoid::kWgs84);
    return figure;
}

class TargetPlotViewTest : public testing::Test {
protected:
    TargetPlotViewTest() : platform(drives.Root()), owner(platform), view(owner, 1), plot(Wgs84()) {
        plot.SetLatitude(0.9);
        plot.display.ringColour = RGB(255, 0, 0);
        plot.display.textColour = RGB(0, 255, 0);
        plot.display.cardinalColour = RGB(0, 0, 255);
        plot.display.zoneColour = RGB(255, 255, 0);
        // Text and gaps leave a radius of 100.
        view.MoveWindow({0, 0, 300, 2 * (100 + 23)});
        view.SetPlot(&plot);
    }
    std::string Painted() {
        view.Paint(device);
        return device.Take();
    }
    /// Whether every line of the part is in the whole, in this order.
    static std::string Missing(const std::string& whole, const std::vector<std::string>& lines) {
        std::size_t at = 0;
        for (const std::string& line : lines) {
            at = whole.find(line, at);
            if (at == std::string::npos) return line + " is missing in\n" + whole;
        }
        return {};
    }

    ScratchDrives drives;
    HeadlessPlatform platform;
    CWnd owner;
    CTargetPlotView view;
    CTargetPlot plot;
    RecorderDevice device;
};

TEST_F(TargetPlotViewTest, RingsLabelsAndZonesWithNorthUp) {
    plot.display.ringCount = 2;
    plot.display.drawZoneLines = true;
    plot.display.startZone = 90;
    plot.display.stopZone = 180;
    EXPECT_EQ(Missing(Painted(), {"ellipse 100,73 201,174 pen 1 #FF0000", "ellipse 50,23 251,224 pen 1 #FF0000",
                                  "line 150,123 250,123 pen 1 #FFFF00", "line 150,123 150,223 pen 1 #FFFF00",
                                  "text 225,37 \"100m\"", "text 189,73 \"50m\"", "text 147,4 \"N\"",
                                  "text 259,116 \"E\"", "text 147,228 \"S\"", "text 35,116 \"W\""}),
              "");
    plot.display.nauticalMiles = true;
    plot.display.ringRadiusNauticalMiles = 0.125;
    EXPECT_EQ(Missing(Painted(), {"\"0.25Nm\"", "\"0.125Nm\""}), "");
    plot.display.ringCount = 24;
    const std::string crowded = Painted();
    EXPECT_EQ(Missing(crowded, {"\"3Nm\"", "\"2.25Nm\"", "\"0.75Nm\""}), "") << "every sixth ring has its radius";
    plot.display.drawRings = plot.display.displayLabels = plot.display.drawZoneLines = false;
    const std::string empty = Painted();
    for (const char* const gone : {"ellipse", "text", "#FFFF00"})
        EXPECT_EQ(empty.find(gone), std::string::npos) << gone;
}

// Turned by 90 degrees, east is up. The orientation counts only while north isn't held up.
TEST_F(TargetPlotViewTest, TurnsByTheOrientationAndDimsAtNight) {
    plot.orientation = 90;
    EXPECT_EQ(Missing(Painted(), {"text 147,4 \"N\""}), "");
    plot.display.northUp = false;
    plot.display.drawZoneLines = true;
    plot.display.startZone = plot.display.stopZone = 90;
    plot.display.ringColour = plot.display.cardinalColour = RGB(255, 255, 255);
    plot.display.textColour = 0;
    view.SetNightMode(true);
    const std::string drawn = Painted();
    EXPECT_EQ(Missing(drawn, {"pen 1 #808080", "line 150,123 150,23 pen 1 #808000", "text 35,116 \"N\"",
                              "text 147,4 \"E\" Tahoma -13 #808080"}),
              "");
    EXPECT_EQ(drawn.find("Tahoma -13 #000000"), std::string::npos) << "black can't be read on black";
}

// Marks stand where their ranges and bearings from the centre say; beyond the rings there are none.
TEST_F(TargetPlotViewTest, MarksWithinTheRings) {
    plot.display.ringCount = 1;
    plot.display.ringRadiusMetres = 1000;
    const tagXY half = {500 / plot.metresPerLongitude, 500 / plot.metresPerLatitude};
    const auto at = [this](double longitude, double latitude) {
        return tagXY{plot.centre.x + longitude, plot.centre.y + latitude};
    };
    view.SetMarks(
        {{at(half.x, 0), "East", RGB(255, 255, 255)}, {at(0, -half.y), "South", 0}, {at(0, 3 * half.y), "Far", 0}});
    const std::string drawn = Painted();
    EXPECT_EQ(Missing(drawn, {"line 195,123 206,123", "text 209,116 \"East\"", "text 159,166 \"South\""}), "");
    EXPECT_EQ(drawn.find("Far"), std::string::npos);
    plot.display.ringRadiusMetres = 0;
    EXPECT_EQ(Painted().find("ellipse"), std::string::npos) << "no scale";
    view.MoveWindow({0, 0, 20, 20});
    view.SetPlot(nullptr);
    EXPECT_EQ(Painted().find("line"), std::string::npos);
}

}  // namespace
}  // namespace quillon
