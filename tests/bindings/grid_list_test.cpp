// A grid list on the screen: what the operator clicks and types.

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

#include "bindings/grid_list_binding.h"
#include "bindings/window_binding.h"
#include "frame/messages.h"
#include "platform/dockable_pane.h"
#include "platform/headless.h"
#include "platform/text.h"

namespace quillon::test {
namespace {

/// A pane that is a table of 30 rows, its third column one of choices.
class ListPane : public CDockablePane {
public:
    explicit ListPane(Platform& host) : CDockablePane(host), list(*this, 1) {
        Create("List", {320, 240}, 1);
        list.ModifyStyle(LVS_EDITLABELS);
        list.columns.combo = {2};
        for (const char* const title : {"Point", "Easting", "Type"}) list.AddColumn(0, title, 0, 0, 0);
        for (int i = 0; i < 3; ++i) list.SetColumnWidth(i, 100);
        list.SetRows({.count = 30, .cell = [](int row, int) { return Format("r%d", row); }, .widest = {}});
        AddControl(list);
    }
    void OnSize(tagSIZE size) override { list.MoveWindow({0, 0, size.width, size.height}); }
    LRESULT OnMessage(const MSG& message) override {
        if (message.message == UM_LIST_SET_ITEMS) {
            *reinterpret_cast<std::vector<std::string>*>(message.lParam) = {"r0", "r1", "buoy"};
        }
        return CDockablePane::OnMessage(message);
    }
    CMyListCtrl list;
};

class GridListBindingTest : public testing::Test {
protected:
    GridListBindingTest()
        : pane(std::make_unique<ListPane>(platform)), view(std::make_unique<WindowBinding>(*pane, factory)) {
        view->resize(320, 240);
        view->show();
        view->activateWindow();
        QCoreApplication::processEvents();
        table = dynamic_cast<GridListBinding*>(view->WidgetOf(pane->list));
    }
    ~GridListBindingTest() override {
        view.reset();
        pane.reset();
    }
    QPoint Cell(int row, int column) { return table->visualRect(table->model()->index(row, column)).center(); }
    void Click(int row, int column) {
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, Cell(row, column));
        QCoreApplication::processEvents();
    }
    /// The widget that has the keyboard, after what is posted has arrived.
    template <class Widget>
    Widget* Editor() {
        return dynamic_cast<Widget*>(QApplication::focusWidget());
    }
    void Settle() {
        platform.Messages().Pump();
        QCoreApplication::processEvents();
    }

    HeadlessPlatform platform{std::filesystem::temp_directory_path() / "quillon-bindings"};
    BindingFactory factory;
    std::unique_ptr<ListPane> pane;
    std::unique_ptr<WindowBinding> view;
    GridListBinding* table = nullptr;
};

TEST_F(GridListBindingTest, ClickTypeReturnEscAndElsewhere) {
    ASSERT_NE(table, nullptr);
    Click(1, 1);
    auto* edit = Editor<QLineEdit>();
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->selectedText(), "r1");
    // Over the cell that was clicked, to the pixel.
    EXPECT_EQ(edit->geometry().topLeft(),
              table->viewport()->mapToParent(table->visualRect(table->model()->index(1, 1)).topLeft()));
    QTest::keyClicks(edit, "new");
    EXPECT_EQ(edit->text(), "new");
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_EQ(pane->list.GetItemText(1, 1), "new");
    Settle();
    EXPECT_EQ(QApplication::focusWidget(), table);

    QTest::keyClick(table, Qt::Key_F2);
    edit = Editor<QLineEdit>();
    ASSERT_NE(edit, nullptr) << "the current cell";
    QTest::keyClicks(edit, "gone");
    QTest::keyClick(edit, Qt::Key_Escape);
    EXPECT_EQ(pane->list.GetItemText(1, 1), "new");
    Settle();

    Click(0, 0);
    QTest::keyClicks(Editor<QLineEdit>(), "x");
    Click(2, 0);
    EXPECT_EQ(pane->list.GetItemText(0, 0), "x");
    Settle();
    EXPECT_TRUE(pane->list.OpenEditors().empty());

    Click(3, 0);
    ASSERT_NE(Editor<QLineEdit>(), nullptr);
    table->verticalScrollBar()->setValue(10);
    Settle();
    EXPECT_TRUE(pane->list.OpenEditors().empty()) << "scrolling ends an edit";
    Click(12, 0);
    ASSERT_NE(Editor<QLineEdit>(), nullptr);
    EXPECT_EQ(Editor<QLineEdit>()->text(), "r12") << "the row under the mouse, also scrolled";
}

TEST_F(GridListBindingTest, AChoice) {
    Click(1, 2);
    auto* const combo = Editor<QComboBox>();
    ASSERT_NE(combo, nullptr);
    EXPECT_EQ(combo->currentText(), "r1");
    QTest::keyClick(combo, Qt::Key_Down);
    QTest::keyClick(combo, Qt::Key_Return);
    EXPECT_EQ(pane->list.GetItemText(1, 2), "buoy");
    Settle();
    EXPECT_TRUE(pane->list.OpenEditors().empty());
}

}  // namespace
}  // namespace quillon::test
