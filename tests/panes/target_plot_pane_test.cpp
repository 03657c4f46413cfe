#include "panes/target_plot_pane.h"

#include "support/job_fixture.h"

namespace quillon {
namespace {

constexpr std::string_view kFile = "C:\\MySettings\\Host\\Target_Plot.INI";

class TargetPlotPaneTest : public JobFixture {
protected:
    TargetPlotPaneTest() { Open(&followsVessel); }

    void Open(bool* flag) {
        pane = std::make_unique<CTargetPlotPane>(*platform);
        ASSERT_TRUE(pane->Create(log.get(), CTargetPlotPane::kTitleId, &plot, flag));
        EXPECT_EQ(Messages(), Texts());
    }
    void Pick(UINT id, std::string_view text, const std::string& point = {}) {
        EXPECT_TRUE(PickRow(*pane, id, text)) << id << " " << text;
        EXPECT_EQ(Messages(), RedrawPair(point)) << id;
    }
    CMFCPropertyGridProperty* Row(UINT id) { return pane->GetPropertyList().FindItemByData(id); }

    CTargetPlot& plot = job->targetPlot;
    bool followsVessel = false;
    std::unique_ptr<CTargetPlotPane> pane;
};

TEST_F(TargetPlotPaneTest, ADaysWork) {
    EXPECT_EQ(pane->GetWindowText(), "Target Plot Window");
    Pick(PLOT_MODE, "Vessel");
    EXPECT_TRUE(followsVessel);
    Pick(PLOT_LATITUDE, "51.5", "0.000, 0.899");
    Pick(PLOT_LONGITUDE, "-2.25", "-0.039, 0.899");
    plot.dirty = false;
    pane->OnPropertyChanged(0, *Row(PLOT_LATITUDE));
    EXPECT_EQ(Messages(), RedrawPair("-0.039, 0.899")) << "the value that it has, told all the same";
    EXPECT_FALSE(plot.dirty);
    Pick(PLOT_UNITS, "Nautical Miles");
    EXPECT_FALSE(Row(PLOT_RING_METRES)->IsVisible());
    Pick(PLOT_RING_NAUTICAL_MILES, "0.25");
    Pick(PLOT_UNITS, "Metres");
    EXPECT_FALSE(Row(PLOT_RING_NAUTICAL_MILES)->IsVisible());
    // clang-format off
    for (const auto& [id, text] : std::initializer_list<std::pair<UINT, const char*>>{
             {PLOT_RING_METRES, "125"}, {PLOT_RING_COUNT, "24"}, {PLOT_RING_COUNT, "25"}, {PLOT_DISPLAY, "False"},
             {PLOT_RING_COLOUR, "Red"}, {PLOT_ZONE_LINES, "True"}, {PLOT_START_ZONE, "360"}, {PLOT_STOP_ZONE, "45"},
             {PLOT_ZONE_COLOUR, "Blue"}, {PLOT_CARDINALS, "False"}, {PLOT_CARDINAL_COLOUR, "Red"},
             {PLOT_RING_LABELS, "False"}, {PLOT_TEXT_COLOUR, "Blue"}, {PLOT_HEADING_MODE, "Vessel Up"},
             {PLOT_ORIENTATION, "30"}}) Pick(id, text);
    EXPECT_NEAR(plot.sinOrientation, 0.5, 1e-12);
    const Texts expected = {
        "Latitude = 0.8988445647770645", "Longitude = -0.0392699081698717", "Orientation = 30", "North Up = 0",
        "Nautical Miles = 0", "Display Labels = 0", "Label Rings = 0", "Cardinal Colour = 255",
        "Text Colour = 16711680", "Draw Zone Lines = 1", "Start Zone Line = 0.000", "Stop Zone Line = 45.000",
        "Zone Line Colour = 16711680", "Shape Box = 0", "Box Size X = 10.000", "Box Size Y = 10.000",
        "Draw Rings = 0", "No Rings = 24", "Radius Metres = 125.000", "Box Size Y = 0.250", "Ring Colour = 255"};
    // clang-format on
    EXPECT_EQ(Lines(kFile), expected);

    // A value out of bounds, and a row without a reaction, write and redraw all the same.
    CMFCPropertyGridProperty beyond("Start Bearing", 361.0, "", PLOT_START_ZONE), stray("Stray", true, "", 11);
    for (CMFCPropertyGridProperty* const row : {&beyond, &stray}) {
        drives.Write(kFile, "gone");
        pane->OnPropertyChanged(0, *row);
        EXPECT_EQ(Messages(), RedrawPair());
        EXPECT_EQ(Lines(kFile), expected);
    }
}

// What the two rows say of each other isn't all that holds: north stays held up until its own row lets it go.
TEST_F(TargetPlotPaneTest, HeadingModeAndOrientation) {
    Pick(PLOT_ORIENTATION, "30");
    EXPECT_EQ(RowText(*pane, PLOT_HEADING_MODE), "Vessel Up");
    EXPECT_TRUE(plot.display.northUp);
    EXPECT_EQ(plot.cosOrientation, 1.0);
    Pick(PLOT_HEADING_MODE, "North Up");
    EXPECT_EQ(plot.orientation, 0);
    EXPECT_EQ(Row(PLOT_ORIENTATION)->Get<std::int32_t>(), 0);
    Pick(PLOT_HEADING_MODE, "Vessel Up");
    Pick(PLOT_ORIENTATION, "90");
    EXPECT_NEAR(plot.sinOrientation, 1.0, 1e-12);
    Pick(PLOT_ORIENTATION, "0");
    EXPECT_EQ(RowText(*pane, PLOT_HEADING_MODE), "North Up");
    EXPECT_EQ(plot.sinOrientation, 0.0);
}

TEST_F(TargetPlotPaneTest, WithoutAVesselToFollow) {
    Open(nullptr);
    for (const UINT id : {PLOT_MODE, PLOT_HEADING_MODE, PLOT_ORIENTATION}) EXPECT_EQ(Row(id), nullptr) << id;
    EXPECT_EQ(pane->GetPropertyList().GetProperty(0).GetSubItemsCount(), 2);
    EXPECT_EQ(pane->GetPropertyList().GetPropertyCount(), 5);
    CTargetPlot other(plot.ellipsoid);
    pane->SetTargetPlot(&other);
    Pick(PLOT_DISPLAY, "False");
    EXPECT_TRUE(plot.display.drawRings);
    EXPECT_FALSE(other.display.drawRings);
}

}  // namespace
}  // namespace quillon
