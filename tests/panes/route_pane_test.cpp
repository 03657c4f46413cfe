#include "panes/route_pane.h"

#include "panes/sail_line_pane.h"
#include "support/job_fixture.h"

namespace quillon {
namespace {

constexpr std::string_view kLeg = "C:\\Jobs\\Leg 7.txt";
constexpr std::string_view kNotes = "C:\\Jobs\\Notes.txt";
constexpr std::string_view kDrawing = "C:\\MyData\\Routes\\Leg 7.DRW";
constexpr std::string_view kCorridor = "C:\\MyData\\Routes\\Leg 7.COR";
constexpr std::string_view kOrder = "C:\\MySettings\\Host\\Leg_7_DATA_ORDER.INI";
constexpr std::string_view kData = "500000 6000000\n500300 6000400.12345\n\n500300 6001400 end\n";

template <class Pane, auto List>
class LineFixture : public JobFixture {
protected:
    ~LineFixture() override { pane.reset(); }

    void Open() {
        pane = std::make_unique<Pane>(*platform);
        ASSERT_TRUE(pane->Create(log.get(), Pane::kTitleId, job.get()->*List));
        EXPECT_EQ(Messages(), Texts());
    }
    void Add(std::vector<std::string> paths, const std::string& update) {
        platform->AnswerFiles(std::move(paths));
        user::Press(pane->GetAddButton());
        Texts expected = RedrawAndRecompute();
        expected.push_back(update);
        EXPECT_EQ(Messages(), expected);
    }
    void Remove(const std::string& update) {
        user::Press(pane->GetRemoveButton());
        EXPECT_EQ(Messages(), (Texts{update, "UM_REDRAW_CHART", "UM_REDRAW_VECTOR_DISPLAY"}));
    }
    /// The messages, and whether the host was told to draw anew by the list's flag.
    Texts Pick(UINT id, std::string_view text) {
        (job.get()->*List).changed = false;
        EXPECT_TRUE(PickRow(*pane, id, text)) << id << " " << text;
        Texts lines = Messages();
        if ((job.get()->*List).changed) lines.push_back("changed");
        return lines;
    }
    static Texts RedrawAndFlag() { return {"UM_REDRAW_CHART", "UM_REDRAW_VECTOR_DISPLAY", "changed"}; }
    COLORREF ColourOf(UINT id) {
        return dynamic_cast<CPickerProperty&>(*pane->GetPropertyList().FindItemByData(id)).GetColour();
    }

    std::unique_ptr<Pane> pane;
};

class RoutePaneTest : public LineFixture<CRoutePane, &JobRecord::routes> {
protected:
    RoutePaneTest() {
        drives.MakeFolder("C:\\MyData");
        drives.Write(kLeg, kData);
        drives.Write(kNotes, "nothing here\r\n");
        Open();
        Add({std::string(kLeg), "c:\\JOBS\\leg 7.TXT", std::string(kNotes)}, "UM_FEATURE_UPDATE 3");
        EXPECT_EQ(pane->GetCombo().GetCount(), 2);
    }
};

TEST_F(RoutePaneTest, ADaysWork) {
    EXPECT_EQ(Lines("C:\\MySettings\\Host\\Route_List.FLS"),
              (Texts{"[Route]", std::string(kLeg), std::string(kNotes)}));
    EXPECT_EQ(Lines("C:\\MySettings\\Host\\Route_List.INI"), (Texts{"Edit File Index = 1", "Edit Point Index = 0"}));
    EXPECT_EQ(TableRow(*pane, 0), (Texts{"WPT 1", "0.000", "0.000", "0.00m", "0.0\xB0"}));
    user::Select(pane->GetCombo(), 0);
    EXPECT_EQ(TableRow(*pane, 0), (Texts{"WPT 1", "500000.000", "6000000.000", "500.10m", "36.9\xB0"}));
    EXPECT_EQ(TableRow(*pane, 2), (Texts{"WPT 3", "500300.000", "6001400.000", "0.00m", "0.0\xB0"}));

    EXPECT_EQ(Pick(ROUTE_DISPLAY, "False"), RedrawAndFlag());
    EXPECT_EQ(Pick(ROUTE_COLOUR, "Red"), RedrawAndFlag());
    EXPECT_EQ(ColourOf(ROUTE_SYMBOL), RGB(255, 0, 0));
    EXPECT_EQ(ColourOf(ROUTE_THICKNESS), RGB(255, 0, 0));
    EXPECT_EQ(Pick(ROUTE_THICKNESS, "6"), RedrawAndFlag());
    const std::vector<RowChoice> symbols = pane->GetPropertyList().FindItemByData(ROUTE_SYMBOL)->GetChoices();
    ASSERT_EQ(symbols.size(), 26u);
    EXPECT_EQ(Pick(ROUTE_SYMBOL, symbols[25].text), RedrawAndFlag());
    EXPECT_EQ(Pick(ROUTE_SYMBOL_SIZE, "Small"), RedrawAndFlag());
    EXPECT_EQ(Pick(ROUTE_CORRIDOR, "True"), RedrawPair());
    EXPECT_EQ(Pick(ROUTE_PORT_WIDTH, "40"), RedrawAndFlag());
    EXPECT_EQ(Pick(ROUTE_STARBOARD_WIDTH, "60.5"), RedrawAndFlag());
    EXPECT_DOUBLE_EQ(job->routes[0][2].portCorridorStart.x, 500260);
    EXPECT_DOUBLE_EQ(job->routes[0][2].starboardCorridorStart.x, 500360.5);
    EXPECT_EQ(Pick(ROUTE_CORRIDOR_FILL, "None"), RedrawAndFlag());
    EXPECT_EQ(Pick(ROUTE_CORRIDOR_COLOUR, "Yellow"), RedrawAndFlag());
    EXPECT_EQ(ColourOf(ROUTE_CORRIDOR_FILL), RGB(255, 255, 0));
    EXPECT_EQ(Lines(kCorridor),
              (Texts{"Display Corridor = 1", "Port Corridor Width = 40.000", "Starboard Corridor Width = 60.500",
                     "Corridor Colour = 65535", "Corridor Fill = 65534"}));
    EXPECT_EQ(drives.Read(kLeg), kData);

    // The label rows rewrite the data file.
    EXPECT_EQ(Pick(ROUTE_LABEL_MODE, "Position"), RedrawAndFlag());
    EXPECT_EQ(Lines(kLeg), (Texts{"500000.000, 6000000.000", "500300.000, 6000400.123", "500300.000, 6001400.000"}));
    EXPECT_EQ(Lines("C:\\Jobs\\Leg 7.INI"), (Texts{"Status = 0", "Highlight = 0"}));
    EXPECT_EQ(Lines(kOrder), Texts{"Data Order = 0"});
    EXPECT_EQ(Pick(ROUTE_LABEL_POSITION, "Left"), RedrawAndFlag());
    EXPECT_EQ(Pick(ROUTE_LEG_LABEL, "True"), RedrawAndFlag());
    EXPECT_EQ(Lines(kDrawing),
              (Texts{"Vector Symbol = 25", "Symbol Size = 2", "Colour = 255", "Line Thickness = 6", "Fill = 4",
                     "Pen Style = 0", "Label Mode = 2", "Label Position = 3", "Show Leg Label = 1"}));
    user::Click(pane->GetTable(), 1);
    EXPECT_EQ(Messages(), RedrawPair("500300.000, 6000400.123"));

    pane.reset();
    Restart();
    Open();
    EXPECT_EQ(RowText(*pane, ROUTE_DISPLAY), "False");
    EXPECT_EQ(RowText(*pane, ROUTE_PORT_WIDTH), "   40.0m");
    EXPECT_EQ(RowText(*pane, ROUTE_LABEL_MODE), "Position");
    EXPECT_EQ(pane->GetCombo().GetCount(), 2);
    Remove("UM_FEATURE_UPDATE 3");
    EXPECT_EQ(pane->GetCombo().GetLBText(0), "Notes");
    Remove("UM_FEATURE_UPDATE 3");
    EXPECT_EQ(Lines("C:\\MySettings\\Host\\Route_List.FLS"), Texts{"[Route]"});
    EXPECT_EQ(Lines("C:\\MySettings\\Host\\Route_List.INI"), (Texts{"Edit File Index = -1", "Edit Point Index = -1"}));
}

TEST_F(RoutePaneTest, TheSameValueAgain) {
    user::Select(pane->GetCombo(), 0);
    for (const std::string_view path : {kDrawing, kCorridor, kLeg}) {
        if (path != kLeg) drives.Write(path, "untouched");
    }
    for (const UINT id : {ROUTE_DISPLAY, ROUTE_COLOUR, ROUTE_THICKNESS, ROUTE_SYMBOL, ROUTE_SYMBOL_SIZE,
                          ROUTE_PORT_WIDTH, ROUTE_STARBOARD_WIDTH, ROUTE_CORRIDOR_FILL, ROUTE_CORRIDOR_COLOUR}) {
        EXPECT_EQ(Pick(id, RowText(*pane, id)), Texts()) << id;
    }
    EXPECT_EQ(drives.Read(kDrawing) + drives.Read(kCorridor), "untoucheduntouched");
    EXPECT_EQ(Pick(ROUTE_CORRIDOR, "False"), Texts());
    EXPECT_EQ(Lines(kCorridor).size(), 5u);
    EXPECT_EQ(drives.Read(kLeg), kData);
    EXPECT_EQ(Pick(ROUTE_LEG_LABEL, "False"), RedrawAndFlag());
    EXPECT_NE(drives.Read(kLeg), kData);
}

TEST_F(RoutePaneTest, ShowsWhatCameOfAnotherOrder) {
    EXPECT_EQ(Pick(ROUTE_LABEL_MODE, "None"), RedrawAndFlag());
    EXPECT_EQ(drives.Read(kNotes), "nothing here\r\n");  // a file of no use is never rewritten
    user::Select(pane->GetCombo(), 0);
    EXPECT_EQ(Pick(ROUTE_ORDER, "Easting, Northing, Name"), RedrawAndRecompute());
    EXPECT_EQ(Lines(kOrder), Texts{"Data Order = 2"});
    EXPECT_EQ(TableRow(*pane, 2)[0], "end");
    EXPECT_EQ(Pick(ROUTE_ORDER, "Name, Easting, Northing"), RedrawAndRecompute());
    EXPECT_EQ(pane->GetTable().GetItemCount(), 0);
    EXPECT_EQ(Pick(ROUTE_LABEL_POSITION, "Left"), RedrawAndFlag());
    EXPECT_EQ(drives.Read(kLeg), kData);
    EXPECT_EQ(Pick(ROUTE_ORDER, "Easting, Northing"), RedrawAndRecompute());
    EXPECT_EQ(pane->GetTable().GetItemCount(), 3);
}

constexpr std::string_view kBlock = "C:\\Jobs\\Block 3.csv";

class SailLinePaneTest : public LineFixture<CSailLinePane, &JobRecord::sailLines> {
protected:
    SailLinePaneTest() {
        drives.MakeFolder("C:\\MyData");
        drives.Write(kBlock, "500000,6000000,500000,6010000\r\n500100,6010000,501100,6010000\r\n7,7\r\n");
        drives.Write(kNotes, "nothing here\r\n");
        Open();
    }
};

TEST_F(SailLinePaneTest, ADaysWork) {
    Add({std::string(kNotes), std::string(kBlock), "C:\\jobs\\BLOCK 3.CSV"}, "UM_FEATURE_UPDATE 2");
    EXPECT_EQ(Lines("C:\\MySettings\\Host\\Sail_Line_List.FLS"),
              (Texts{"[SailLine]", std::string(kNotes), std::string(kBlock)}));
    EXPECT_EQ(Lines("C:\\MySettings\\Host\\Sail_Line_List.INI"),
              (Texts{"Edit File Index = 1", "Edit Point Index = 0"}));
    EXPECT_EQ(pane->GetCombo().GetLBText(1), "Block 3");
    EXPECT_EQ(TableRow(*pane, 1),
              (Texts{"2", "500100.000", "6010000.000", "501100.000", "6010000.000", "1000.00m", "90.0\xB0"}));
    user::Click(pane->GetTable(), 1);
    EXPECT_EQ(Messages(), RedrawPair("500600.000, 6010000.000"));

    EXPECT_EQ(Pick(SAIL_LINE_DISPLAY, "False"), RedrawAndFlag());
    EXPECT_EQ(Pick(SAIL_LINE_COLOUR, "Red"), RedrawAndFlag());
    EXPECT_EQ(ColourOf(SAIL_LINE_THICKNESS), RGB(255, 0, 0));
    EXPECT_EQ(Pick(SAIL_LINE_THICKNESS, "3"), RedrawAndFlag());
    EXPECT_EQ(Pick(SAIL_LINE_THICKNESS, "3"), Texts());
    EXPECT_EQ(Pick(SAIL_LINE_ORDER, "SOL Eng, SOL Nng, EOL Eng, EOL Nng"), RedrawAndRecompute());
    EXPECT_EQ(Lines("C:\\MySettings\\Host\\Block_3_DATA_ORDER.INI"), Texts{"Data Order = 0"});
    EXPECT_EQ(Lines("C:\\MyData\\Routes\\Block 3.DRW"),
              (Texts{"Vector Symbol = 5", "Symbol Size = 3", "Colour = 255", "Line Thickness = 3", "Fill = 4",
                     "Pen Style = 0", "Label Mode = 1", "Label Position = 2", "Show Leg Label = 0"}));

    pane.reset();
    Restart();
    Open();
    user::Select(pane->GetCombo(), 1);
    EXPECT_EQ(RowText(*pane, SAIL_LINE_COLOUR), "Red");
    Remove("UM_FEATURE_UPDATE 2");
    EXPECT_EQ(TableRow(*pane, 0)[5], "0.00m");  // the file of no use has one empty record
    Remove("UM_FEATURE_UPDATE 2");
    EXPECT_EQ(pane->GetPropertyList().GetProperty(0).GetName(), "No Files Selected");
}

}  // namespace
}  // namespace quillon
