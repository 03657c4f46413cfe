#include "platform/controls.h"

#include <gtest/gtest.h>

#include "platform/dialog.h"
#include "platform/dockable_pane.h"
#include "platform/headless.h"
#include "platform/property_rows.h"
#include "platform/user_actions.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

using enum CONTROL_CHANGE;
using Changes = std::vector<CONTROL_CHANGE>;

class Watcher : public ControlObserver {
public:
    void OnControlChanged(CControl&, CONTROL_CHANGE change) override { changes.push_back(change); }
    void OnControlGone(CControl&) override { gone = true; }
    Changes Taken() { return std::exchange(changes, {}); }
    bool gone = false;

private:
    Changes changes;
};

class CommandWindow : public CDockablePane {
public:
    using CDockablePane::CDockablePane;
    void OnCommand(UINT control) override { commands.push_back(control); }
    void OnDoubleClick(UINT control) override { commands.push_back(1000 + control); }
    LRESULT OnMessage(const MSG& message) override {
        if (message.message == AFX_WM_CHANGE_ACTIVE_TAB) commands.push_back(2000 + static_cast<UINT>(message.wParam));
        return 0;
    }
    void OnSize(tagSIZE size) override { sizes.push_back(size); }
    std::vector<UINT> commands;
    std::vector<tagSIZE> sizes;
};

class Controls : public ::testing::Test {
protected:
    ScratchDrives drives;
    HeadlessPlatform platform{drives.Root()};
    CommandWindow window{platform};
    Watcher watcher;
};

TEST_F(Controls, PropertyListsTellWhatChanged) {
    CMyMFCPropertyGridCtrl list(window, 3);
    list.SetObserver(&watcher);
    CMFCPropertyGridProperty& group = list.AddGroup("Area");
    auto& row = group.Add<CMFCPropertyGridInteger>("n", 1, "", "What it is", 4u);
    EXPECT_EQ(watcher.Taken(), (Changes{CONTENT, CONTENT}));
    row.SetValue(std::int32_t{2});
    row.SetLock(true);
    row.Enable(false);
    EXPECT_EQ(watcher.Taken(), (Changes{VALUE, VALUE, VALUE}));
    row.Show(false);
    row.Show(false);
    EXPECT_EQ(watcher.Taken(), Changes{CONTENT});
    list.SetCurSel(&row);
    list.SetCustomColors({});
    EXPECT_EQ(watcher.Taken(), (Changes{SELECTION, COLOURS}));
    EXPECT_EQ(list.GetDescription().text, "What it is");
    EXPECT_EQ(list.FindItemByData(4), &row);
    EXPECT_EQ(list.FindItemByData(0), nullptr);
    EXPECT_EQ(list.FindItemByData(5), nullptr);
    EXPECT_TRUE(row.IsModified());
    EXPECT_THROW(list.GetProperty(1), InvalidArgument);
    EXPECT_THROW(group.GetSubItem(1), InvalidArgument);
    list.RemoveAll();
    EXPECT_EQ(list.GetCurSel(), nullptr);

    // Rows put together before they are added belong to the list all the same.
    auto made = std::make_unique<CMFCPropertyGridProperty>("made");
    auto& inner = made->Add<CMFCPropertyGridBool>("b", true, "", 9u);
    list.AddProperty(std::move(made));
    watcher.Taken();
    inner.SetValue(false);
    EXPECT_EQ(watcher.Taken(), Changes{VALUE});
}

TEST_F(Controls, ButtonsAndCombosReachTheirOwner) {
    CButton button(window, 7, "Add File");
    CComboBox combo(window, 8);
    EXPECT_EQ(combo.AddString("a"), 0);
    EXPECT_EQ(combo.AddString("b"), 1);
    combo.SetCurSel(1);
    EXPECT_EQ(window.commands, std::vector<UINT>{}) << "the program's own choice tells nobody";
    user::Press(button);
    user::Select(combo, 0);
    user::Select(combo, 0);
    user::Select(combo, 2);
    user::Select(combo, -1);
    EXPECT_EQ(combo.GetCurSel(), 0);
    EXPECT_EQ(window.commands, (std::vector<UINT>{7, 8, 8}));
    for (CControl* control : {static_cast<CControl*>(&button), static_cast<CControl*>(&combo)}) {
        control->EnableWindow(false);
        user::Press(button);
        user::Select(combo, 1);
        control->EnableWindow(true);
        control->ShowWindow(false);
        user::Press(button);
        user::Select(combo, 1);
        control->EnableWindow(false);
    }
    EXPECT_EQ(window.commands, (std::vector<UINT>{7, 8, 8, 8, 8}));
    combo.SetCurSel(5);
    EXPECT_EQ(combo.GetCurSel(), -1);
    EXPECT_THROW(combo.GetLBText(2), InvalidArgument);
    combo.ResetContent();
    EXPECT_EQ(combo.GetCurSel(), -1);
    EXPECT_THROW(combo.GetLBText(0), InvalidArgument);
}

TEST_F(Controls, DialogControlsReachTheirOwnerOnceForAnAct) {
    CEdit edit(window, 1);
    CCheckBox box(window, 2, "Show");
    CListBox list(window, 3);
    CMFCTabCtrl tabs(window, 4);
    CMyMFCPropertyGridCtrl first(tabs, 5), second(tabs, 6);
    list.AddString("North");
    list.AddString("South");
    tabs.AddTab(first, "Target");
    tabs.AddTab(second, "Shadow");
    EXPECT_TRUE(first.IsWindowVisible() && !second.IsWindowVisible());
    user::Type(edit, "a");
    user::Type(edit, "a");
    edit.SetReadOnly(true);
    user::Type(edit, "b");
    EXPECT_EQ(edit.GetWindowText(), "a");
    user::Check(box, true);
    user::DoubleClick(list, 1);
    user::DoubleClick(list, 2);
    EXPECT_EQ(list.FindStringExact("South"), list.GetCurSel());
    EXPECT_EQ(list.FindStringExact("south"), -1);
    user::Select(tabs, 1);
    user::Select(tabs, 1);
    user::Select(tabs, 2);
    EXPECT_EQ(tabs.GetActiveWnd(), &second);
    EXPECT_TRUE(!first.IsWindowVisible() && second.IsWindowVisible());
    EXPECT_EQ(window.commands, (std::vector<UINT>{1, 2, 3, 1003, 2001}));
    EXPECT_THROW(tabs.GetTabWnd(2), InvalidArgument);
    CImageList images({2, 1}, 0);
    EXPECT_THROW(images.Add({1}), InvalidArgument);
    EXPECT_THROW(images.GetPixels(0), InvalidArgument);
}

TEST_F(Controls, TablesMakeTheirCellsWhenAsked) {
    struct Table : CListCtrl {
        using CListCtrl::CListCtrl;
        void OnItemClick(int row) override { clicked.push_back(row); }
        std::vector<int> clicked;
    } table(window, 9);
    table.InsertColumn("No");
    table.InsertColumn("Easting");
    int asked = 0;
    table.SetRows({3,
                   [&](int row, int column) {
                       ++asked;
                       return std::to_string(row * 10 + column);
                   },
                   {}});
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(table.GetItemText(2, 1), "21");
    EXPECT_EQ(table.GetWidestTexts(0), std::vector<std::string>{});
    for (const auto& [row, column] : {std::pair(3, 0), std::pair(-1, 0), std::pair(0, 2), std::pair(0, -1)}) {
        EXPECT_THROW(table.GetItemText(row, column), InvalidArgument);
    }
    user::Click(table, 1);
    user::Click(table, -1);
    user::Click(table, 3);
    EXPECT_EQ(table.clicked, std::vector<int>{1});
    EXPECT_EQ(table.GetSelection(), 1);
    table.DeleteAllItems();
    EXPECT_EQ(table.GetSelection(), -1);
    EXPECT_EQ(table.GetItemCount(), 0);
    table.DeleteAllColumns();
    EXPECT_THROW(table.SetColumnWidth(0, 10), InvalidArgument);
}

TEST_F(Controls, WindowsTellWhatShowsThem) {
    struct Dock : WindowObserver {
        void OnWindowChanged(CControlWindow& shown) override {
            seen.push_back(shown.GetWindowText() + (shown.IsVisible() ? "+" : "-"));
        }
        void OnWindowFocus(CControlWindow&, CControl& control) override { focus = &control; }
        void OnWindowGone(CControlWindow&) override { gone = true; }
        std::vector<std::string> seen;
        CControl* focus = nullptr;
        bool gone = false;
    } dock;
    ASSERT_TRUE(window.Create("Boundary", {200, 200}, 5));
    EXPECT_FALSE(window.Create("again", {1, 1}, 6));
    window.SetObserver(&dock);
    window.ShowPane(true);
    window.ShowPane(false);
    window.SetWindowText("Area");
    EXPECT_EQ(dock.seen, (std::vector<std::string>{"Boundary-", "Area-"}));
    window.Resize({300, 400});
    EXPECT_EQ(window.sizes, std::vector<tagSIZE>{tagSIZE({300, 400})});
    EXPECT_EQ(window.GetClientSize(), tagSIZE({300, 400}));
    CButton button(window, 7, "Add File");
    window.AddControl(button);
    window.SetFocusTo(button);
    EXPECT_EQ(dock.focus, &button);
    EXPECT_EQ(window.GetDlgItem(7), &button);
    EXPECT_EQ(window.GetDlgItem(8), nullptr);
    window.SetObserver(nullptr);
    {
        CommandWindow passing(platform);
        passing.SetObserver(&dock);
    }
    EXPECT_TRUE(dock.gone);
}

/// A dialog with a timer, which writes down what happens to it.
class CountingDialog : public CDialog {
public:
    explicit CountingDialog(Platform& owner) : CDialog(owner, "Counting", {100, 50}), ok(*this, IDOK, "OK") {
        AddControl(ok);
    }
    void OnInitDialog() override {
        done += "init ";
        SetTimer(1, std::chrono::milliseconds(100));
        if (endsAtOnce) EndDialog(9);
    }
    void OnTimer(UINT) override {
        done += "tick ";
        if (++ticks == 3) EndDialog(7);
    }
    void OnCancel() override {
        done += "cancel ";
        CDialog::OnCancel();
    }
    CButton ok;
    std::string done;
    int ticks = 0;
    bool endsAtOnce = false;
};

TEST_F(Controls, ModalDialogsRunUntilTheyAreEnded) {
    const struct {
        const char* name;
        std::function<void(CountingDialog&)> act;
        int result;
        const char* done;
    } cases[] = {
        {"by its timer", {}, 7, "init tick tick tick "},
        {"Return", [](CountingDialog& d) { user::Accept(d); }, IDOK, "init "},
        {"Esc", [](CountingDialog& d) { user::Dismiss(d); }, IDCANCEL, "init cancel "},
        {"its button", [](CountingDialog& d) { user::Press(d.ok); }, IDOK, "init "},
        {"Return, where OK can't be pressed",
         [](CountingDialog& d) {
             d.ok.EnableWindow(false);
             user::Accept(d);
         },
         7, "init tick tick tick "},
        {"by a message", [](CountingDialog& d) { d.DestroyWindow(); }, IDCANCEL, "init "},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        CountingDialog dialog(platform);
        if (c.act) {
            platform.AnswerDialog([&](CDialog& shown) {
                EXPECT_TRUE(shown.IsModal());
                c.act(static_cast<CountingDialog&>(shown));
            });
        }
        EXPECT_EQ(dialog.DoModal(), c.result);
        EXPECT_EQ(dialog.done, c.done);
        EXPECT_FALSE(dialog.IsOpen());
        EXPECT_EQ(platform.Calls().back(), "dialog: Counting");
    }
    CountingDialog unseen(platform);
    unseen.endsAtOnce = true;
    const auto calls = platform.Calls().size();
    EXPECT_EQ(unseen.DoModal(), 9);
    EXPECT_EQ(platform.Calls().size(), calls);
}

TEST_F(Controls, ModelessDialogsStayUntilTheyAreDestroyed) {
    CountingDialog dialog(platform);
    EXPECT_TRUE(dialog.Create());
    EXPECT_FALSE(dialog.Create());
    EXPECT_TRUE(dialog.IsOpen() && !dialog.IsModal());
    platform.Advance(std::chrono::milliseconds(150));
    EXPECT_EQ(dialog.done, "init tick ");
    user::Dismiss(dialog);
    EXPECT_FALSE(dialog.IsOpen());
    user::Dismiss(dialog);
    EXPECT_EQ(dialog.done, "init tick cancel ");
    EXPECT_TRUE(dialog.Create()) << "once more";
    dialog.DestroyWindow();
    EXPECT_FALSE(dialog.IsOpen());
}

}  // namespace
}  // namespace quillon
