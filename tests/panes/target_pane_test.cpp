#include "panes/target_pane.h"

#include "frame/colour_schemes.h"
#include "support/job_fixture.h"

namespace quillon {
namespace {

constexpr std::string_view kVesselFile = "C:\\MyData\\Vessel\\Survey.VSL";

class TargetPaneTest : public JobFixture {
protected:
    TargetPaneTest() {
        drives.MakeFolder("C:\\MyData\\Vessel");
        drives.Write("C:\\Jobs\\Wells.csv", "500000,6000000,0,W1\r\n500100,6000100,0,W1\r\n500200,6000200,0,\r\n");
        drives.Write("C:\\Jobs\\Rigs.csv", "510000,6010000,0,R1\r\n");
        drives.Write("C:\\Jobs\\Lines.csv", "1000,2000,1300,2400\r\n1000,2000,1000,3000\r\n");
        drives.Write("C:\\Jobs\\More.csv", "5000,5000,5000,5000\r\n");
        for (const char* path : {"C:\\Jobs\\Wells.csv", "C:\\Jobs\\Rigs.csv"}) EXPECT_TRUE(job->waypoints.Add(path));
        for (const char* path : {"C:\\Jobs\\Lines.csv", "C:\\Jobs\\More.csv"}) EXPECT_TRUE(job->sailLines.Add(path));
        Prepare(vessel);
        vessel.antennas = {{.name = "Bow", .x = 1.5, .y = 20}, {.name = "Stern", .x = 10, .y = 0}};
        vessel.trueAlignment = 90;
        vessel.UpdateAlignment();
    }
    ~TargetPaneTest() override { pane.reset(); }

    void Prepare(COutline& outline) {
        outline.name = "Survey";
        outline.waypointFiles = &job->waypoints;
        outline.sailLineFiles = &job->sailLines;
        outline.SetWaypoint(0, 0);
        outline.SetSailLine(0, 0);
    }
    template <class Object>
    void Open(Object& object) {
        pane = std::make_unique<CTargetPane>(*platform);
        ASSERT_TRUE(pane->Create(log.get(), 77, &object));
        pane->Resize({300, 600});
        EXPECT_EQ(Messages(), Texts());
    }
    CMyMFCPropertyGridCtrl& List(int tab) {
        return dynamic_cast<CMyMFCPropertyGridCtrl&>(pane->GetTabs().GetTabWnd(tab));
    }
    /// The row by its path, wherever it stands.
    CMFCPropertyGridProperty& Row(int tab, std::string_view group, std::string_view name) {
        for (int g = 0; g < List(tab).GetPropertyCount(); ++g) {
            CMFCPropertyGridProperty& rows = List(tab).GetProperty(g);
            for (int i = 0; rows.GetName() == group && i < rows.GetSubItemsCount(); ++i) {
                if (rows.GetSubItem(i).GetName() == name) return rows.GetSubItem(i);
            }
        }
        throw InvalidArgument("no row " + std::string(group) + ", " + std::string(name));
    }
    std::string Text(int tab, std::string_view group, std::string_view name) {
        return std::string(Trim(Row(tab, group, name).FormatProperty()));
    }
    static Texts Options(const CMFCPropertyGridProperty& row) {
        Texts options;
        for (int i = 0; i < row.GetOptionCount(); ++i) options.push_back(row.GetOption(i));
        return options;
    }
    /// What the operator does on a tab: the file is written, and the pair goes out so many times.
    void Pick(UINT id, std::string_view text, int pairs = 1) {
        for (int tab = 0; tab < pane->GetTabs().GetTabsNum(); ++tab) {
            CMFCPropertyGridProperty* const row = List(tab).FindItemByData(id);
            if (!row) continue;
            user::Select(pane->GetTabs(), tab);
            EXPECT_TRUE(user::Type(List(tab), *row, text)) << id << " " << text;
            Texts expected;
            for (int i = 0; i < pairs; ++i)
                expected.insert(expected.end(), {"UM_REDRAW_CHART", "UM_REDRAW_VECTOR_DISPLAY"});
            EXPECT_EQ(Messages(), expected) << id;
            return;
        }
        ADD_FAILURE() << "no row " << id;
    }
    std::string Setting(std::string_view key) {
        for (const std::string& line : Lines(kVesselFile)) {
            if (line.substr(0, line.find(" = ")) == key) return line.substr(line.find(" = ") + 3);
        }
        return "(none)";
    }

    enum { SAIL, TARGET, SHADOW };
    CBarge vessel{platform->Files()};
    std::unique_ptr<CTargetPane> pane;
};

TEST_F(TargetPaneTest, BothFormsAndTheirTabs) {
    CTemplate object(platform->Files());
    Prepare(object);
    object.beacons = {{.name = "B1"}};
    Open(object);
    EXPECT_EQ(pane->GetWindowText(), "TARGET for Template");
    EXPECT_EQ(Options(Row(SHADOW, "Common Reference Point", "Type")),
              (Texts{"Common Reference Point", "Antenna", "Offset", "Reflector", "Beacon"}));
    EXPECT_EQ(List(SHADOW).GetDlgCtrlID(), 4u);
    Open(vessel);
    EXPECT_EQ(pane->GetWindowText(), "TARGET for Vessel");
    Texts types = {"Common Reference Point", "Antenna", "Offset", "Leg", "Crane", "Transducer", "Clump Weight"};
    EXPECT_EQ(Options(Row(SHADOW, "Common Reference Point", "Type")), types);
    vessel.refSystems = {{.name = "USBL"}};
    pane->InitShadowPropList();
    types.insert(types.end() - 1, "Ref System");
    EXPECT_EQ(Options(Row(SHADOW, "Common Reference Point", "Type")), types);

    vessel.sailLineFiles = nullptr;
    Open(vessel);
    ASSERT_EQ(pane->GetTabs().GetTabsNum(), 2);
    EXPECT_EQ(pane->GetTabs().GetTabLabel(0), "Target");
    EXPECT_EQ(List(0).GetDlgCtrlID(), 2u);
    pane->UpdateSailLine();
    pane->InitSailLinePropList();
    pane->UpdateWaypoint();
    EXPECT_EQ(Messages(), Texts());
}

TEST_F(TargetPaneTest, ADayOnTheTabOfTheSailLine) {
    Open(vessel);
    EXPECT_EQ(Text(SAIL, "Sail Line", "SailLine"), "Line 1");
    EXPECT_EQ(Text(SAIL, "Co-ordinates", "EOL Northing"), "2400.00N");
    EXPECT_EQ(Text(SAIL, "Parameters", "Length"), "500.00");
    Pick(SAIL_LINE, "Line 2");
    EXPECT_EQ(Text(SAIL, "Co-ordinates", "EOL Northing"), "3000.00N");
    EXPECT_DOUBLE_EQ(Row(SAIL, "Parameters", "Bearing").Get<double>(), 0.0);
    Pick(SAIL_FILE, "More");
    EXPECT_EQ(Options(Row(SAIL, "Sail Line", "SailLine")), Texts{"Line 1"});
    EXPECT_EQ(Text(SAIL, "Sail Line", "SailLine"), "n/a") << "both ends are the same";
    EXPECT_EQ(Setting("SailLine File Index"), "1");
    Pick(SAIL_COLOUR, "Red", 2);
    EXPECT_EQ(Setting("Sail Line Colour"), "255");
}

TEST_F(TargetPaneTest, ADayOnTheTabOfTheTarget) {
    Open(vessel);
    EXPECT_EQ(Options(Row(TARGET, "Target", "Waypoint")), (Texts{"W1", "W1 (2)", "Wpt 3"})) << "each can be chosen";
    Pick(TARGET_WAYPOINT, "W1 (2)");
    EXPECT_EQ(Text(TARGET, "Target", "Easting"), "500100.00E");
    EXPECT_EQ(Text(SHADOW, "Common Reference Point", "Northing"), "6000100.00N");
    Pick(TARGET_WAYPOINT, "Wpt 3");
    EXPECT_EQ(vessel.waypointIndex, 2);
    Pick(TARGET_FILE, "Rigs");
    EXPECT_EQ(Text(TARGET, "Target", "Waypoint"), "R1");
    EXPECT_EQ(Options(Row(TARGET, "Target", "Waypoint")), Texts{"R1"});

    Pick(TARGET_SHAPE, "Box");
    EXPECT_TRUE(Row(TARGET, "Position Tolerance", "X").IsVisible());
    EXPECT_FALSE(Row(TARGET, "Position Tolerance", "Ring Size").IsVisible());
    Pick(TARGET_BOX_X, "20");
    Pick(TARGET_BOX_Y, "30.5");
    // At a grid alignment of 90 degrees ahead is east. The sine of it is a hair below 1, and metres are cut.
    EXPECT_EQ(vessel.target.box[0], (tagXY{510030, 6009981}));
    Pick(TARGET_SHAPE, "Radial");
    EXPECT_FALSE(Row(TARGET, "Position Tolerance", "Y").IsVisible());
    Pick(TARGET_RING_COUNT, "24");
    Pick(TARGET_RING_COUNT, "25");
    EXPECT_EQ(vessel.target.ringCount, 24) << "the spin control offers one more than is stored";
    Pick(TARGET_HEADING, "100");
    EXPECT_DOUBLE_EQ(Row(TARGET, "Heading Tolerance", "Minimum").Get<double>(), 350);
    EXPECT_DOUBLE_EQ(Row(TARGET, "Heading Tolerance", "Maximum").Get<double>(), 190);
    // clang-format off
    const std::initializer_list<std::tuple<UINT, const char*, const char*, const char*>> rows = {
        {TARGET_RINGS, "False", "Draw Rings", "0"}, {TARGET_RING_SIZE, "75", "Radius Metres", "75.000"},
        {TARGET_RING_COLOUR, "Red", "Ring Colour", "255"}, {TARGET_CARDINALS, "False", "Display Labels", "0"},
        {TARGET_CARDINAL_COLOUR, "Red", "Cardinal Colour", "255"}, {TARGET_RING_LABELS, "False", "Label Rings", "0"},
        {TARGET_TEXT_COLOUR, "Red", "Text Colour", "255"}, {TARGET_ZONE_LINES, "True", "Draw Zone Lines", "1"},
        {TARGET_ZONE_COLOUR, "Blue", "Zone Line Colour", "16711680"}, {TARGET_PITCH, "3", "Pitch Tolerance", "3.000"},
        {TARGET_ROLL, "4", "Roll Tolerance", "4.000"}, {TARGET_DEPTH, "0.5", "Depth Tolerance", "0.500"},
        {SHADOW_SHOW, "False", "Show", "0"}, {SHADOW_COLOUR, "Red", "Shadow Colour", "255"},
        {SHADOW_THICKNESS, "3", "Shadow Size", "3"}, {SHADOW_FILL, "Solid", "Shadow Fill", "65535"}};
    // clang-format on
    for (const auto& [id, text, key, value] : rows) {
        EXPECT_NE(Setting(key), value) << key << " tells nothing";
        Pick(id, text);
        EXPECT_EQ(Setting(key), value) << key;
    }
    const auto& fill = dynamic_cast<CPickerProperty&>(*List(SHADOW).FindItemByData(SHADOW_FILL));
    EXPECT_EQ(fill.GetColour(), RGB(255, 0, 0)) << "the pickers draw in the shadow's colour";
}

// The target's row moves box and zones along, the shadow's leaves them; both show on both tabs.
TEST_F(TargetPaneTest, TheTwoRowsTrueDiffer) {
    Open(vessel);
    vessel.UpdateZones();
    vessel.UpdateBox();
    const TargetDisplay before = vessel.target;
    Pick(SHADOW_TRUE, "10");
    EXPECT_EQ(vessel.target, before);
    EXPECT_DOUBLE_EQ(Row(TARGET, "Alignment", "True").Get<double>(), 10);
    EXPECT_DOUBLE_EQ(Row(SHADOW, "Alignment", "Grid").Get<double>(), 10);
    Pick(TARGET_HEADING, "20");
    EXPECT_DOUBLE_EQ(vessel.target.startZone, 350);
    EXPECT_DOUBLE_EQ(vessel.target.stopZone, 30);
    Pick(TARGET_TRUE, "10");
    EXPECT_NE(vessel.target.box, before.box) << "the box follows, also at an equal value";
    Pick(TARGET_TRUE, "350");
    EXPECT_DOUBLE_EQ(Row(SHADOW, "Alignment", "True").Get<double>(), 350);
    EXPECT_DOUBLE_EQ(Row(TARGET, "Heading Tolerance", "Maximum").Get<double>(), 10);
}

TEST_F(TargetPaneTest, ATrackedPointMovesWhenItIsPicked) {
    Open(vessel);
    EXPECT_EQ(Text(SHADOW, "Common Reference Point", "Offset"), "CRP - Bow");
    Pick(SHADOW_TYPE, "Antenna");
    EXPECT_EQ(Options(Row(SHADOW, "Common Reference Point", "Offset")), (Texts{"Bow", "Stern"}));
    EXPECT_EQ(Text(SHADOW, "Common Reference Point", "X"), "+1.500m");
    EXPECT_EQ(vessel.trackedPosition, tagXY()) << "nothing moves yet";
    Pick(SHADOW_OFFSET, "Stern");
    EXPECT_EQ(Text(SHADOW, "Common Reference Point", "Easting"), "500000.00E");
    EXPECT_EQ(Text(SHADOW, "Common Reference Point", "Northing"), "6000010.00N");
    EXPECT_EQ(Setting("Trk Pt No"), "1");
    vessel.trackType = TRACK_CRANE;
    pane->UpdateVessel();
    EXPECT_EQ(Messages(), RedrawPair());
    EXPECT_EQ(Text(SHADOW, "Common Reference Point", "Type"), "Crane");
    EXPECT_EQ(Text(SHADOW, "Common Reference Point", "Offset"), "n/a");
    EXPECT_EQ(Setting("Trk Pt Type"), "4");
    List(SHADOW).AddGroup("More").AddSubItem(std::make_unique<CMFCPropertyGridProperty>("Stray", 1.0, "", 19u));
    vessel.draft = 9.5;
    user::Edit(List(SHADOW), Row(SHADOW, "More", "Stray"), 2.0);
    EXPECT_EQ(Messages(), RedrawPair()) << "a row without a reaction saves and redraws";
    EXPECT_EQ(Setting("Draft"), "9.500");
}

TEST_F(TargetPaneTest, ConvergenceIsTheGridsAtTheTarget) {
    CJobGeodesy geodesy(platform->Files());
    vessel.geodesy = &geodesy;
    vessel.SetWaypoint(0, 0);
    Open(vessel);
    EXPECT_NE(Text(TARGET, "Alignment", "Convergence").find("(no grid)"), std::string::npos);
    GeodesyChoice utm;
    utm.zone = 31;
    ASSERT_EQ(geodesy.Choose(utm), GEODESY_FAULT::NONE);
    Pick(TARGET_FILE, "Rigs");
    const double there = geodesy.ScaleAt({510000, 6010000})->convergence * 180 / 3.14159265358979;
    EXPECT_GT(there, 0.05);
    EXPECT_NEAR(vessel.convergence, there, 1e-9);
    EXPECT_NEAR(vessel.gridAlignment, 90 - there, 1e-9);
    EXPECT_NEAR(vessel.target.startZone, vessel.gridAlignment - vessel.headingTolerance, 1e-9);
    EXPECT_NEAR(Row(SHADOW, "Alignment", "Convergence").Get<double>(), there, 1e-9);
    EXPECT_EQ(Text(SHADOW, "Alignment", "Convergence").find("("), std::string::npos);
}

TEST_F(TargetPaneTest, TheListInFrontTakesTheColoursOfTheFrame) {
    Open(vessel);
    EXPECT_EQ(List(SAIL).GetCustomColors().background, 0xCCCCCCu);
    const PropertyColours behind = List(TARGET).GetCustomColors();
    pane->SetNightMode(true);
    EXPECT_EQ(List(SAIL).GetCustomColors().background, 0x606060u);
    EXPECT_EQ(List(SAIL).GetCustomColors().descriptionText, 0xC0C0C0u);
    EXPECT_EQ(List(TARGET).GetCustomColors(), behind);
    user::Select(pane->GetTabs(), TARGET);
    EXPECT_EQ(List(TARGET).GetCustomColors(), TabListColours(0x808080, true));
    EXPECT_EQ(List(TARGET).GetRect(), (tagRECT{0, pane->GetTabs().GetTabsHeight(), 300, 600}));
}

}  // namespace
}  // namespace quillon
