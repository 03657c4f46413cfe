#include "host/job_targets.h"

#include <gmock/gmock.h>

#include "host/job.h"
#include "host/scene_builder.h"
#include "host/scene_targets.h"
#include "panes/outline_dlg.h"
#include "panes/target_plot_pane.h"
#include "platform/headless.h"
#include "platform/user_actions.h"
#include "support/scene_items.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

class JobTargetsTest : public ::testing::Test {
protected:
    JobTargetsTest() : platform(drives.Root(), "C:\\Programs\\Host.exe") {
        drives.MakeFolder("C:\\MyData\\Vessel");
        drives.Write("C:\\Jobs\\Wells.csv", "500000,6000000,0,W1\r\n500100,6000100,0,W2\r\n");
        drives.Write("C:\\Jobs\\Lines.csv", "499000,6000000,501000,6000000\r\n");
        drives.Write("C:\\Shapes\\hull.txt", "M -5 -20\r\nL 5 -20\r\nL 0 30\r\nL -5 -20\r\nM 0 0\r\nL 0 5\r\n");
        drives.Write("C:\\MySettings\\Host\\GRID_Waypoints.FLS", "[]\r\nC:\\Jobs\\Wells.csv\r\n");
        drives.Write("C:\\MySettings\\Host\\Sail_Line_List.FLS", "[SailLine]\r\nC:\\Jobs\\Lines.csv\r\n");
        Open();
    }
    void Open() {
        job.reset();
        job = std::make_unique<Job>(platform);
        job->Open();
    }
    CVesselList& Vessels() { return job->Record().vessels; }
    CBarge& Vessel() { return *Vessels().GetCurrent(); }
    template <class Pane>
    Pane& PaneWith(UINT id) {
        for (const auto& pane : job->Panes()) {
            if (pane->GetDlgCtrlID() == id) return dynamic_cast<Pane&>(*pane);
        }
        throw std::logic_error("no pane");
    }
    /// The operator's way to a new vessel: a name that is none first, then a good one.
    void MakeVessel() {
        platform.AnswerFiles({"C:\\Shapes\\hull.txt"});
        platform.AnswerDialog([](CDialog& dialog) {
            auto& name = dynamic_cast<CEdit&>(*dialog.GetDlgItem(COutlineDlg::kName));
            user::Press(dynamic_cast<CButton&>(*dialog.GetDlgItem(COutlineDlg::kBrowse)));
            user::Type(name, "a/b");
            user::Accept(dialog);
            EXPECT_TRUE(dialog.IsOpen());
            user::Type(name, "Survey");
            user::Accept(dialog);
        });
        job->Targets().AddNew(Vessels());
        ASSERT_EQ(Vessels().GetCount(), 1);
    }
    void Pick(UINT id, std::string_view text) {
        auto& tabs = PaneWith<CTargetPane>(CTargetPane::kVesselId).GetTabs();
        for (int tab = 0; tab < tabs.GetTabsNum(); ++tab) {
            auto& list = dynamic_cast<CMyMFCPropertyGridCtrl&>(tabs.GetTabWnd(tab));
            if (!list.FindItemByData(id)) continue;
            user::Select(tabs, tab);
            EXPECT_TRUE(user::Type(list, *list.FindItemByData(id), text)) << text;
        }
        platform.Messages().Pump();
    }
    SceneItems Items() {
        SceneBuilder scenes(job->Record());
        const ChartScene scene = scenes.Build();
        for (const ChartLayer& layer : scene.layers) {
            if (layer.id == kTargetLayer) return SceneItems(layer);
        }
        throw std::logic_error("no layer of targets");
    }
    std::vector<std::string> Texts() {
        std::vector<std::string> texts;
        for (const SceneItems::Text& text : Items().texts) texts.push_back(text.text);
        return texts;
    }

    ScratchDrives drives;
    HeadlessPlatform platform;
    std::unique_ptr<Job> job;
};

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(JobTargetsTest, AVesselIsMadeBroughtToItsTargetAndDrawn) {
    MakeVessel();
    EXPECT_THAT(Items().paths, IsEmpty()) << "no target yet";
    Pick(TARGET_FILE, "Wells");
    Pick(TARGET_WAYPOINT, "W2");
    Pick(TARGET_TRUE, "90");
    const SceneItems items = Items();
    // The shadow with its reference point, and the point tracked.
    ASSERT_EQ(items.paths.size(), 3u);
    const std::vector<tagXY> shadow = SceneItems::PointsOf(items.paths[0]);
    ASSERT_EQ(shadow.size(), 6u);
    EXPECT_NEAR(shadow[2].x, 500130, 1e-6) << "the bow points east";
    EXPECT_NEAR(shadow[2].y, 6000100, 1e-6);
    EXPECT_EQ(items.paths[0].line.colour, Vessel().shadowPen.colour);
    ASSERT_EQ(items.circles.size(), 3u);
    EXPECT_EQ(items.circles[2].radius, 150);
    EXPECT_THAT(Texts(), ElementsAre("Survey", "50m", "100m", "150m", "N", "E", "S", "W"));

    Pick(TARGET_SHAPE, "Box");
    Pick(TARGET_ZONE_LINES, "True");
    Pick(SHADOW_SHOW, "False");
    Pick(SAIL_FILE, "Lines");
    const SceneItems boxed = Items();
    EXPECT_THAT(boxed.circles, IsEmpty());
    // The line followed, the point, the box, two zone lines.
    ASSERT_EQ(boxed.paths.size(), 5u);
    EXPECT_EQ(boxed.paths[0].line.colour, Vessel().sailLineColour);
    EXPECT_TRUE(boxed.paths[0].arrows);
    EXPECT_EQ(SceneItems::PointsOf(boxed.paths[2])[0], Vessel().target.box[0]);
    const tagXY start = SceneItems::PointsOf(boxed.paths[3])[1], stop = SceneItems::PointsOf(boxed.paths[4])[1];
    EXPECT_NEAR(start.y - 6000100, 6000100 - stop.y, 1e-6) << "either side of east";
    EXPECT_GT(start.y, stop.y);

    job->Targets().PlaceAt(Vessels(), tagXY{499500, 5999500});
    EXPECT_EQ(Items().paths.size(), 5u) << "hidden";
    Pick(SHADOW_SHOW, "True");
    EXPECT_EQ(Items().paths.back().line.colour, Vessel().outlinePen.colour);
    EXPECT_EQ(Texts().back(), "Survey");
    Open();
    EXPECT_EQ(Vessel().waypoint.name, "W2");
    EXPECT_EQ(Items().paths.size(), 8u);
}

TEST_F(JobTargetsTest, PanesFollowWhatComesAndGoes) {
    auto& pane = PaneWith<CTargetPane>(CTargetPane::kVesselId);
    EXPECT_EQ(pane.GetObject(), nullptr);
    MakeVessel();
    EXPECT_EQ(pane.GetObject(), &Vessel());
    drives.Write("D:\\Stick\\Tug.VSL", drives.Read("C:\\MyData\\Vessel\\Survey.VSL"));
    platform.AnswerFiles({"D:\\Stick\\Tug.VSL"});
    job->Targets().Open(Vessels());
    EXPECT_EQ(pane.GetObject()->name, "Tug");
    job->Targets().Choose(Vessels(), 0);
    EXPECT_EQ(pane.GetObject()->name, "Survey");
    platform.AnswerFiles({"C:\\Shapes\\none.dxf"});
    job->Targets().ChooseOutline(Vessels());
    EXPECT_THAT(platform.Calls().back(), ::testing::HasSubstr("none.dxf can't be read"));
    job->Targets().Remove(Vessels());
    job->Targets().Remove(Vessels());
    job->Targets().Remove(Vessels());
    EXPECT_EQ(pane.GetObject(), nullptr);
    EXPECT_TRUE(drives.Exists("C:\\MyData\\Vessel\\Tug.VSL"));
    // The last pair that the pane has posted finds no vessel.
    platform.Messages().Pump();
}

// The plot's centre comes as longitude and latitude with the redraw pair: it is no point of the chart.
TEST_F(JobTargetsTest, ThePlotFollowsTheVessel) {
    MakeVessel();
    Pick(TARGET_FILE, "Wells");
    Pick(TARGET_WAYPOINT, "W2");
    Pick(TARGET_TRUE, "45");
    GeodesyChoice utm;
    utm.zone = 31;
    ASSERT_EQ(job->ChooseGeodesy(utm), GEODESY_FAULT::NONE);
    EXPECT_GT(Vessel().convergence, 0) << "100 m east of the middle meridian";
    EXPECT_LT(Vessel().gridAlignment, 45);
    job->Targets().PlaceAt(Vessels(), tagXY{500000, 5999900});
    auto& plotPane = PaneWith<CTargetPlotPane>(CTargetPlotPane::kTitleId);
    const auto pick = [&](UINT id, std::string_view text) {
        EXPECT_TRUE(user::Type(plotPane.GetPropertyList(), *plotPane.GetPropertyList().FindItemByData(id), text));
        platform.Messages().Pump();
    };
    pick(PLOT_LATITUDE, "51.5");
    EXPECT_FALSE(job->ShownPoint());
    pick(PLOT_HEADING_MODE, "Vessel Up");
    pick(PLOT_MODE, "Vessel");
    const CTargetPlot& plot = job->Record().targetPlot;
    EXPECT_NEAR(plot.centre.x, 3 * 3.14159265 / 180, 1e-6);
    EXPECT_NEAR(plot.centre.y, 54.147205 * 3.14159265 / 180, 1e-6);
    EXPECT_EQ(plot.orientation, 45);
    EXPECT_EQ(plotPane.GetPropertyList().FindItemByData(PLOT_LATITUDE)->Get<double>(), plot.centre.y);
    Open();
    EXPECT_TRUE(job->Record().plotFollowsVessel);
}

}  // namespace
}  // namespace quillon
