// Panes of other shapes than the usual one are put together from the same parts; and what a file list, its strip and
// the layout do whatever stands beside them.

#include <gtest/gtest.h>

#include "frame/colour_schemes.h"
#include "frame/pane_layout.h"
#include "panes/boundary_pane.h"
#include "panes/property_pane.h"
#include "panes/route_pane.h"
#include "platform/dialog_controls.h"
#include "platform/tab_ctrl.h"
#include "support/job_fixture.h"

namespace quillon {
namespace {

using enum EQUAL_VALUE;
using enum POST;

constexpr std::array<RowEffect, 3> kEffects = {{
    {1, COUNTS, 1, true, {REDRAW_POINT, FEATURE_UPDATE}},
    {2, ENDS, 0, false, {UPDATE_DTM, SET_FOCUS_FEATURE}},
    {3, ENDS, 0, false, {REDRAW_VECTOR}},
}};

/// A list under what the test puts on top, with a view below it or without.
class ShapedPane : public CPropertyPane {
public:
    explicit ShapedPane(Platform& owner) : CPropertyPane(owner, 20, kEffects) {}
    using CMyDockablePane::CreatePane;

    std::vector<std::unique_ptr<CColourButton>> buttons;
    std::unique_ptr<CStatic> view;
    std::string done;
    std::optional<tagXY> point;

private:
    void BuildPropertyRows() override {
        for (const UINT id : {1u, 2u, 3u}) GetPropertyList().Add<CMFCPropertyGridBool>("Row", false, "", id);
    }
    bool StoreRow(CMFCPropertyGridProperty& row) override { return row.Get<bool>(); }
    void SaveFile(std::uint8_t save) override { done += "save" + std::to_string(save) + " "; }
    void SetChanged() override { done += "changed "; }
    int LayOutTop(int width) override {
        if (buttons.size() < 7) return 0;
        const auto at = [this](std::size_t i) { return static_cast<CControl*>(buttons[i].get()); };
        const int left = width * 3 / 4;
        PlaceInRow({at(0), at(1), at(2)}, {0, 0, left, 30});
        PlaceInRow({at(3), at(4), at(5)}, {0, 30, left, 60});
        return PlaceInRow({at(6)}, {left, 0, width, 60});
    }
    CControl* GetRest() override { return view.get(); }
    FEATURE_TYPES GetFeatureType() const override { return FEATURE_TYPES::STRUCTURE; }
    std::optional<tagXY> GetShownPoint() const override { return point; }
};

/// Three lists in tabs, each its own; the tab control is their window.
class TabbedPane : public CMyDockablePane {
public:
    explicit TabbedPane(Platform& owner) : CMyDockablePane(owner) {
        AddControl(tabs);
        for (int i = 0; i < 3; ++i) {
            lists.push_back(std::make_unique<CMyMFCPropertyGridCtrl>(tabs, UINT(2 + i)));
            tabs.AddTab(*lists.back(), std::string(1, static_cast<char>('A' + i)));
            BeginPropertyList(*lists.back());
        }
    }
    void AdjustLayout() override {
        tabs.MoveWindow({0, 0, GetClientSize().width, GetClientSize().height});
        tabs.GetActiveWnd()->MoveWindow({0, tabs.GetTabsHeight(), GetClientSize().width, GetClientSize().height});
    }
    void RefreshRows() override {}
    void Refresh() override {}

    CMFCTabCtrl tabs{*this, 1};
    std::vector<std::unique_ptr<CMyMFCPropertyGridCtrl>> lists;
};

class PaneParts : public JobFixture {
protected:
    ShapedPane pane{*platform};
};

TEST_F(PaneParts, ListsInTabsTurnWithTheNight) {
    TabbedPane tabbed(*platform);
    tabbed.Resize({300, 500});
    EXPECT_EQ(tabbed.lists[0]->GetRect(), (tagRECT{0, 26, 300, 500}));
    user::Select(tabbed.tabs, 2);
    EXPECT_TRUE(tabbed.lists[2]->IsWindowVisible() && !tabbed.lists[0]->IsWindowVisible());
    tabbed.SetNightMode(true);
    tabbed.SetVSDotNetLook(0);
    for (const auto& list : tabbed.lists) {
        EXPECT_EQ(list->GetCustomColors(), SchemeColours(1, true));
        EXPECT_FALSE(list->IsVSDotNetLook());
    }
}

TEST_F(PaneParts, EveryKindOfMessageGoesOutInItsOrder) {
    ASSERT_TRUE(pane.CreatePane(log.get(), 1, "Shaped"));
    pane.Refresh();
    EXPECT_TRUE(PickRow(pane, 1, "True"));
    Texts expected = RedrawPair();
    expected.push_back("UM_FEATURE_UPDATE 7");
    EXPECT_EQ(Messages(), expected);
    pane.point = {1, 2};
    EXPECT_TRUE(PickRow(pane, 1, "False"));
    expected = RedrawPair("1.000, 2.000");
    expected.push_back("UM_FEATURE_UPDATE 7");
    EXPECT_EQ(Messages(), expected);
    EXPECT_EQ(pane.done, "save1 changed save1 changed ");
    EXPECT_TRUE(PickRow(pane, 2, "True"));
    EXPECT_TRUE(PickRow(pane, 2, "False"));
    EXPECT_TRUE(PickRow(pane, 3, "True"));
    EXPECT_EQ(Messages(), (Texts{"UM_UPDATE_DTM", "UM_SET_FOCUS_FEATURE 7", "UM_REDRAW_VECTOR_DISPLAY"}));
}

// Without a parent the messages go to the main window; without that, nowhere.
TEST_F(PaneParts, APaneWithoutAParent) {
    MessageLog main(*platform);
    for (CWnd* const mainWindow : {static_cast<CWnd*>(&main), static_cast<CWnd*>(nullptr)}) {
        platform->SetMainWindow(mainWindow);
        ShapedPane orphan(*platform);
        ASSERT_TRUE(orphan.CreatePane(nullptr, 1, "Orphan"));
        orphan.Refresh();
        EXPECT_EQ(orphan.GetReceiver(), mainWindow);
        EXPECT_TRUE(PickRow(orphan, 3, "True"));
        platform->Messages().Pump();
        EXPECT_EQ(main.lines, Texts{"UM_REDRAW_VECTOR_DISPLAY"});
    }
}

class FileListPane : public JobFixture {
protected:
    FileListPane() {
        for (const char* path : {"C:\\A.csv", "C:\\B.csv", "C:\\C.csv"}) {
            drives.Write(path, "1,2\r\n3,4\r\n");
            EXPECT_TRUE(job->boundaries.Add(path));
        }
        EXPECT_TRUE(pane.Create(log.get(), CBoundaryPane::kTitleId, job->boundaries));
    }
    std::string Shown() { return pane.GetCombo().GetLBText(pane.GetCombo().GetCurSel()); }
    std::pair<int, int> Cursor() const {
        return {job->boundaries.editState.editFileIndex, job->boundaries.editState.editPointIndex};
    }
    using At = std::pair<int, int>;

    CBoundaryPane pane{*platform};
};

// A host that adds a file finds the pane on the file that it showed; one that takes it away finds it on the first.
TEST_F(FileListPane, SetupKeepsTheSelection) {
    user::Select(pane.GetCombo(), 2);
    EXPECT_EQ(Cursor(), At(0, 0));
    pane.SetupComboBox();
    EXPECT_EQ(Shown(), "C");
    EXPECT_EQ(Cursor(), At(2, 0));
    job->boundaries.RemoveAt(1);
    pane.SetupComboBox();
    EXPECT_EQ(Shown(), "A");
    EXPECT_EQ(Cursor(), At(0, 0));
}

// The edit cursor is the host's: a file that goes takes it along only where it stood on that file.
TEST_F(FileListPane, RemovalWithTheCursorOnAnotherFile) {
    constexpr std::string_view kIndexes = "C:\\MySettings\\Host\\Boundary_List.INI";
    user::Select(pane.GetCombo(), 2);
    job->boundaries.SetEditCursor(1, 1);
    user::Press(pane.GetRemoveButton());
    EXPECT_EQ(Shown(), "B");
    EXPECT_EQ(Cursor(), At(1, 0));
    EXPECT_EQ(Lines(kIndexes), (Texts{"Edit File Index = 1", "Edit Point Index = 0"}));
    user::Select(pane.GetCombo(), 0);
    job->boundaries.SetEditCursor(0, 1);
    user::Press(pane.GetRemoveButton());
    EXPECT_EQ(Shown(), "B");
    EXPECT_EQ(Cursor(), At(0, 0));
    EXPECT_EQ(job->boundaries.GetPath(0), "C:\\B.csv");
}

// The strip, then 16 or 24 rows of 20 pixels, then the table in what is left.
TEST_F(FileListPane, TheHeightsOfTheUsualLayout) {
    CRoutePane routes(*platform);
    ASSERT_TRUE(routes.Create(log.get(), CRoutePane::kTitleId, job->routes));
    const auto check = [](CFeaturePane& shown, int listRows, int height) {
        shown.Resize({301, height});
        const int listBottom = 54 + 20 * listRows;
        EXPECT_EQ(shown.GetAddButton().GetRect(), (tagRECT{0, 0, 150, 30}));
        EXPECT_EQ(shown.GetRemoveButton().GetRect(), (tagRECT{150, 0, 301, 30}));
        EXPECT_EQ(shown.GetCombo().GetRect(), (tagRECT{0, 30, 301, 54}));
        EXPECT_EQ(shown.GetPropertyList().GetRect(), (tagRECT{0, 54, 301, listBottom}));
        EXPECT_EQ(shown.GetTable().IsWindowVisible(), listBottom < height) << height;
        if (listBottom < height) {
            EXPECT_EQ(shown.GetTable().GetRect(), (tagRECT{0, listBottom, 301, height}));
        }
    };
    for (const int height : {900, 375, 374, 60}) check(pane, 16, height);
    for (const int height : {900, 535, 534}) check(routes, 24, height);
}

}  // namespace
}  // namespace quillon
