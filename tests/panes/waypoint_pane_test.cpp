#include "panes/waypoint_pane.h"

#include "platform/password.h"
#include "support/job_fixture.h"

namespace quillon {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view kWrecks = "C:\\Jobs\\Wrecks 1.csv";
constexpr std::string_view kBuoys = "C:\\Jobs\\Buoys.txt";
constexpr std::string_view kNotes = "C:\\Jobs\\Notes.txt";
constexpr std::string_view kSettings = "C:\\MySettings\\Host\\Wrecks_1_GRID_WAYPOINT.INI";
constexpr std::string_view kListPaths = "C:\\MySettings\\Host\\GRID_Waypoints.FLS";

class WaypointPaneTest : public JobFixture {
protected:
    WaypointPaneTest() {
        drives.Write(kWrecks, "500000,6000000,-85.5,Wreck A\r\n500100;6000100;;\r\n0,0,0,none\r\n");
        drives.Write(kBuoys, "501000,6001000,2,Buoy\r\n");
        drives.Write(kNotes, "nothing here\r\n");
    }
    ~WaypointPaneTest() override { pane.reset(); }

    void Open(bool catenary) {
        pane = std::make_unique<CGridWaypointPane>(*platform);
        ASSERT_TRUE(pane->Create(log.get(), CGridWaypointPane::kPlainId, "Waypoints", job->waypoints, catenary));
        EXPECT_EQ(Messages(), Texts());
    }
    static Texts ComeAndGo() {
        Texts lines = RedrawAndRecompute();
        lines.push_back("UM_FEATURE_UPDATE 1");
        return lines;
    }
    /// The wrecks twice, and a file of no use; leaves the wrecks shown.
    void AddAll() {
        platform->AnswerFiles(
            {std::string(kWrecks), std::string(kNotes), "c:\\JOBS\\wrecks 1.CSV", std::string(kBuoys)});
        user::Press(pane->GetAddButton());
        EXPECT_EQ(Messages(), ComeAndGo());
        ASSERT_EQ(pane->GetCombo().GetCount(), 2);
        EXPECT_EQ(pane->GetCombo().GetCurSel(), 1);
        EXPECT_EQ(TableRow(*pane, 0), (Texts{"Buoy", "501000.000", "6001000.000", "2.000"}));
        user::Select(pane->GetCombo(), 0);
        EXPECT_EQ(Messages(), Texts());
    }
    Texts Pick(UINT id, std::string_view text) {
        EXPECT_TRUE(PickRow(*pane, id, text)) << id << " " << text;
        return Messages();
    }

    std::unique_ptr<CGridWaypointPane> pane;
};

TEST_F(WaypointPaneTest, ADaysWorkInThePlainForm) {
    Open(false);
    AddAll();
    EXPECT_EQ(Lines(kListPaths), (Texts{"[]", std::string(kWrecks), std::string(kBuoys)}));
    EXPECT_EQ(job->waypoints.editState.editFileIndex, 1);
    EXPECT_EQ(job->waypoints.editState.editPointIndex, 0);
    EXPECT_EQ(
        Lines(kSettings),
        (Texts{"Data Order = 0", "Use = 1", "Clearance = 10.000", "Tolerance = 25.000", "Symbol = 9", "Colour = 65535",
               "Size = 2", "Label Mode = 0", "Label Position = 0", "Draw Rings = 0", "No Rings = 1",
               "Ring Size Metres = 50.000", "Ring Size NM = 1.000", "Ring Colour = 16711935", "Catenary Mode = 0"}));
    EXPECT_EQ(pane->GetTable().GetItemCount(), 2);
    EXPECT_EQ(TableRow(*pane, 1), (Texts{"Wpt 2", "500100.000", "6000100.000", "0.000"}));

    for (const auto& [id, text] :
         std::initializer_list<std::pair<UINT, const char*>>{{WAYPOINT_DISPLAY, "False"},
                                                             {WAYPOINT_COLOUR, "Red"},
                                                             {WAYPOINT_SIZE, "Large"},
                                                             {WAYPOINT_LABEL_MODE, "Name"},
                                                             {WAYPOINT_LABEL_POSITION, "Right"},
                                                             {WAYPOINT_RINGS, "True"},
                                                             {WAYPOINT_RING_COUNT, "3"},
                                                             {WAYPOINT_RING_SIZE, "120m"},
                                                             {WAYPOINT_RING_COLOUR, "Cyan"},
                                                             {WAYPOINT_RING_COLOUR, "Cyan"}}) {
        EXPECT_EQ(Pick(id, text), RedrawPair()) << id;
    }
    auto& symbol = dynamic_cast<CPickerProperty&>(*pane->GetPropertyList().FindItemByData(WAYPOINT_SYMBOL));
    EXPECT_EQ(symbol.GetColour(), RGB(255, 0, 0));
    EXPECT_EQ(symbol.GetChoices().size(), 13u);
    EXPECT_EQ(Pick(WAYPOINT_SYMBOL, symbol.GetChoices()[4].text), RedrawPair());
    for (const char* refused : {"26", "-1", "1.5", "three"}) {
        EXPECT_FALSE(PickRow(*pane, WAYPOINT_RING_COUNT, refused)) << refused;
    }

    // A column comes and one goes with the order; what the file doesn't say is left blank.
    EXPECT_EQ(Pick(WAYPOINT_ORDER, "Eng, Nng, Radius"), RedrawAndRecompute());
    EXPECT_EQ(pane->GetTable().GetColumn(3).header, "Radius");
    EXPECT_EQ(TableRow(*pane, 0), (Texts{"Wpt 1", "500000.000", "6000000.000", "-85.500"}));
    EXPECT_EQ(TableRow(*pane, 1), (Texts{"Wpt 2", "500100.000", "6000100.000", ""}));
    EXPECT_EQ(Lines(kSettings), (Texts{"Data Order = 6", "Use = 0", "Clearance = 10.000", "Tolerance = 0.000",
                                       "Symbol = 4", "Colour = 255", "Size = 4", "Label Mode = 1", "Label Position = 4",
                                       "Draw Rings = 1", "No Rings = 3", "Ring Size Metres = 120.000",
                                       "Ring Size NM = 1.000", "Ring Colour = 16776960", "Catenary Mode = 0"}));
    // An order that the file doesn't suit leaves it in the list without points.
    EXPECT_EQ(Pick(WAYPOINT_ORDER, "Name, Eng, Nng, Radius"), RedrawAndRecompute());
    EXPECT_EQ(pane->GetTable().GetColumnCount(), 4);
    EXPECT_EQ(Pick(WAYPOINT_ORDER, "Eng, Nng"), RedrawAndRecompute());
    EXPECT_EQ(pane->GetTable().GetColumnCount(), 3);
    EXPECT_FALSE(PickRow(*pane, WAYPOINT_ORDER, "Eng"));
    user::Click(pane->GetTable(), 1);
    EXPECT_EQ(Messages(), RedrawPair("500100.000, 6000100.000"));

    pane.reset();
    Restart();
    Open(false);
    EXPECT_EQ(pane->GetCombo().GetLBText(0), "Wrecks 1");
    EXPECT_EQ(RowText(*pane, WAYPOINT_ORDER), "Eng, Nng");
    EXPECT_EQ(RowText(*pane, WAYPOINT_RING_SIZE), " 120m");
    EXPECT_EQ(TableRow(*pane, 0), (Texts{"Wpt 1", "500000.000", "6000000.000"}));

    user::Press(pane->GetRemoveButton());
    EXPECT_EQ(Messages(), ComeAndGo());
    EXPECT_EQ(Lines(kListPaths), (Texts{"[]", std::string(kBuoys)}));
    user::Press(pane->GetRemoveButton());
    EXPECT_EQ(pane->GetPropertyList().GetProperty(0).GetName(), "No Files Selected");
    EXPECT_EQ(Lines(kListPaths), Texts{"[]"});
    EXPECT_EQ(job->waypoints.editState.editFileIndex, 0);
    EXPECT_EQ(job->waypoints.editState.editPointIndex, 0);
    EXPECT_TRUE(drives.Exists(kWrecks));
}

// A file of no use adds nothing, but the form of the pane is noted with every member.
TEST_F(WaypointPaneTest, TheFormGoesToAllMembers) {
    Open(false);
    AddAll();
    Open(true);
    platform->AnswerFiles({std::string(kNotes)});
    user::Press(pane->GetAddButton());
    EXPECT_EQ(pane->GetCombo().GetCount(), 2);
    EXPECT_EQ(Lines(kSettings).back(), "Catenary Mode = 1");
    EXPECT_EQ(Lines("C:\\MySettings\\Host\\Buoys_GRID_WAYPOINT.INI").back(), "Catenary Mode = 1");
    EXPECT_FALSE(drives.Exists("C:\\MySettings\\Host\\Notes_GRID_WAYPOINT.INI"));
}

TEST_F(WaypointPaneTest, ThePasswordOpensTheAlarmForTenMinutes) {
    ASSERT_TRUE(platform->Passwords().Set("deep water"));
    Open(true);
    AddAll();
    const auto isOpen = [this] {
        const bool clearance = PickRow(*pane, WAYPOINT_CLEARANCE, "15");
        EXPECT_EQ(PickRow(*pane, WAYPOINT_TOLERANCE, "30"), clearance);
        Messages();
        return clearance;
    };
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(Pick(WAYPOINT_PASSWORD, "shallow water"), Texts());
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(Pick(WAYPOINT_PASSWORD, "deep water"), Texts());
    EXPECT_TRUE(isOpen());
    platform->Advance(599999ms);
    EXPECT_TRUE(isOpen());
    platform->Advance(1ms);
    EXPECT_FALSE(isOpen());
    platform->Advance(600000ms);
    EXPECT_FALSE(isOpen());
    // A right entry begins the ten minutes anew.
    Pick(WAYPOINT_PASSWORD, "deep water");
    platform->Advance(400000ms);
    Pick(WAYPOINT_PASSWORD, "deep water");
    platform->Advance(599999ms);
    EXPECT_TRUE(isOpen());
    platform->Advance(1ms);
    EXPECT_FALSE(isOpen());
    // Rows that are built anew start locked.
    Pick(WAYPOINT_PASSWORD, "deep water");
    user::Select(pane->GetCombo(), 1);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(PickRow(*pane, WAYPOINT_TOLERANCE_CIRCLE, "True"));
}

}  // namespace
}  // namespace quillon
