#include "panes/boundary_pane.h"

#include "platform/property_rows.h"
#include "support/job_fixture.h"

namespace quillon {
namespace {

constexpr std::string_view kArea = "C:\\Jobs\\Work Area.csv";
constexpr std::string_view kZone = "C:\\Jobs\\Zone.txt";
constexpr std::string_view kDrawing = "C:\\MyData\\Boundaries\\Zone.DRW";
constexpr std::string_view kListIndexes = "C:\\MySettings\\Host\\Boundary_List.INI";
constexpr std::string_view kListPaths = "C:\\MySettings\\Host\\Boundary_List.FLS";

class BoundaryPaneTest : public JobFixture {
protected:
    BoundaryPaneTest() {
        drives.Write(kArea, "500000,6000000\r\n500100,6000000\r\n500100.5,6000050.25\r\n");
        drives.Write(kZone, "E 501000 N 6001000\n501500 6001000\n");
        Open();
    }
    ~BoundaryPaneTest() override { pane.reset(); }

    void Open() {
        pane = std::make_unique<CBoundaryPane>(*platform);
        ASSERT_TRUE(pane->Create(log.get(), CBoundaryPane::kTitleId, job->boundaries));
        EXPECT_EQ(Messages(), Texts());
    }
    void Add(std::vector<std::string> paths) {
        platform->AnswerFiles(std::move(paths));
        user::Press(pane->GetAddButton());
    }
    void AddBoth() {
        Add({std::string(kArea), std::string(kZone)});
        EXPECT_EQ(Messages(), RedrawAndRecompute());
    }

    std::unique_ptr<CBoundaryPane> pane;
};

// An empty list must show one heading and survive a press on "Remove File".
TEST_F(BoundaryPaneTest, StartsEmptyAndHidden) {
    EXPECT_FALSE(pane->IsVisible());
    EXPECT_EQ(pane->GetWindowText(), "Boundary Properties");
    ASSERT_EQ(pane->GetPropertyList().GetPropertyCount(), 1);
    EXPECT_EQ(pane->GetPropertyList().GetProperty(0).GetName(), "No Files Selected");
    EXPECT_EQ(pane->GetTable().GetItemCount(), 0);
    EXPECT_EQ(pane->GetTable().GetColumnCount(), 3);
    user::Press(pane->GetRemoveButton());
    EXPECT_EQ(Messages(), Texts());
    EXPECT_EQ(Lines(kListPaths), Texts{"(none)"});
}

TEST_F(BoundaryPaneTest, ADaysWork) {
    AddBoth();
    EXPECT_EQ(platform->FileQuestions().front().title, "Boundary Files ....");
    EXPECT_EQ(pane->GetCombo().GetCount(), 2);
    EXPECT_EQ(pane->GetCombo().GetLBText(0), "Work Area");
    EXPECT_EQ(pane->GetCombo().GetCurSel(), 1);
    EXPECT_EQ(TableRow(*pane, 1), (Texts{"2", "501500.000", "6001000.000"}));
    EXPECT_EQ(Lines(kListPaths), (Texts{"[Boundary]", std::string(kArea), std::string(kZone)}));
    EXPECT_EQ(Lines(kListIndexes), (Texts{"Edit File Index = 1", "Edit Point Index = 0"}));

    // Every row: its message, and what its file says at the end.
    job->boundaries.changed = false;
    EXPECT_TRUE(PickRow(*pane, BOUNDARY_DISPLAY, "False"));
    EXPECT_EQ(Messages(), RedrawPair());
    EXPECT_TRUE(PickRow(*pane, BOUNDARY_DISPLAY, "True"));
    job->boundaries.changed = false;
    Messages();
    EXPECT_TRUE(PickRow(*pane, BOUNDARY_HIGHLIGHT, "True"));
    EXPECT_EQ(Messages(), Recompute());
    EXPECT_FALSE(job->boundaries.changed);
    EXPECT_TRUE(PickRow(*pane, BOUNDARY_COLOUR, "Dark Magenta"));
    EXPECT_EQ(Messages(), RedrawPair());
    EXPECT_TRUE(job->boundaries.changed);
    for (const UINT id : {BOUNDARY_FILL, BOUNDARY_THICKNESS}) {
        const auto& row = dynamic_cast<CPickerProperty&>(*pane->GetPropertyList().FindItemByData(id));
        EXPECT_EQ(row.GetColour(), RGB(128, 0, 128));
    }
    EXPECT_TRUE(PickRow(*pane, BOUNDARY_FILL, "Solid"));
    EXPECT_TRUE(PickRow(*pane, BOUNDARY_THICKNESS, "5"));
    EXPECT_EQ(Messages().size(), 4u);
    EXPECT_TRUE(PickRow(*pane, BOUNDARY_DISPLAY, "False"));
    EXPECT_EQ(Messages(), RedrawAndRecompute());  // it bears on the cross profile while it is highlighted
    EXPECT_EQ(Lines(kDrawing),
              (Texts{"Vector Symbol = 5", "Symbol Size = 3", "Colour = 8388736", "Line Thickness = 5", "Fill = 65535",
                     "Pen Style = 0", "Label Mode = 1", "Label Position = 2", "Show Leg Label = 0"}));

    // Putting back the same value is nothing.
    drives.Write(kDrawing, "untouched");
    EXPECT_TRUE(PickRow(*pane, BOUNDARY_COLOUR, "Dark Magenta"));
    EXPECT_EQ(Messages(), Texts());
    EXPECT_EQ(drives.Read(kDrawing), "untouched");

    // A click in the table.
    user::Click(pane->GetTable(), 1);
    EXPECT_EQ(Messages(), RedrawPair("501500.000, 6001000.000"));
    user::Click(pane->GetTable(), -1);
    pane->OnSelectPoint(0, 2);
    EXPECT_EQ(Messages(), Texts());
}

TEST_F(BoundaryPaneTest, RemovesTheShownFileThenTheLast) {
    AddBoth();
    user::Press(pane->GetRemoveButton());
    EXPECT_EQ(Messages(), RedrawAndRecompute());
    EXPECT_EQ(pane->GetCombo().GetLBText(pane->GetCombo().GetCurSel()), "Work Area");
    EXPECT_EQ(pane->GetTable().GetItemCount(), 3);
    EXPECT_EQ(Lines(kListPaths), (Texts{"[Boundary]", std::string(kArea)}));
    EXPECT_EQ(Lines(kListIndexes), (Texts{"Edit File Index = 0", "Edit Point Index = 0"}));
    user::Press(pane->GetRemoveButton());
    EXPECT_EQ(pane->GetPropertyList().GetProperty(0).GetName(), "No Files Selected");
    EXPECT_EQ(pane->GetTable().GetItemCount(), 0);
    EXPECT_EQ(Lines(kListPaths), Texts{"[Boundary]"});
    EXPECT_EQ(Lines(kListIndexes), (Texts{"Edit File Index = -1", "Edit Point Index = -1"}));
    EXPECT_TRUE(drives.Exists(kZone));
}

}  // namespace
}  // namespace quillon
