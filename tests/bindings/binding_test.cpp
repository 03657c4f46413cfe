// The bindings of buttons, lists and tables, and of the pane around them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QHeaderView>
#include <QPointer>
#include <QTest>

#include "bindings/button_binding.h"
#include "bindings/combo_binding.h"
#include "bindings/property_list_binding.h"
#include "bindings/sample_pane.h"
#include "bindings/table_binding.h"
#include "bindings/window_binding.h"
#include "platform/headless.h"

namespace quillon::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BindingTest : public testing::Test {
protected:
    BindingTest()
        : pane(std::make_unique<SamplePane>(platform)), view(std::make_unique<WindowBinding>(*pane, factory)) {
        view->resize(300, 760);
        view->show();
        view->activateWindow();
        QCoreApplication::processEvents();
    }

    template <class Binding>
    Binding& Of(const CControl& control) {
        return dynamic_cast<Binding&>(*view->WidgetOf(control));
    }
    QPoint CellCentre(TableBinding& table, int row) { return table.visualRect(table.model()->index(row, 1)).center(); }

    HeadlessPlatform platform{std::filesystem::temp_directory_path() / "quillon-bindings"};
    BindingFactory factory;
    std::unique_ptr<SamplePane> pane;
    std::unique_ptr<WindowBinding> view;
};

TEST_F(BindingTest, EveryControlShowsWhereThePanePutsIt) {
    EXPECT_EQ(view->windowTitle(), "Sample Properties");
    for (CControl* control : pane->GetControls()) {
        QWidget* const widget = view->WidgetOf(*control);
        ASSERT_TRUE(widget) << control->GetDlgCtrlID();
        EXPECT_EQ(widget->geometry(), ToQRect(control->GetRect())) << control->GetDlgCtrlID();
    }
    view->resize(400, 900);
    EXPECT_EQ(pane->GetClientSize(), (tagSIZE{400, 900}));
    EXPECT_EQ(view->WidgetOf(pane->remove)->geometry(), QRect(200, 0, 200, 30));
    pane->table.ShowWindow(false);
    EXPECT_FALSE(view->WidgetOf(pane->table)->isVisible());
}

TEST_F(BindingTest, AButtonTellsItsOwnerOnceHoweverItIsPressed) {
    auto& button = Of<ButtonBinding>(pane->add);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_THAT(pane->commands, ElementsAre(ADD_BUTTON, ADD_BUTTON, ADD_BUTTON));
    pane->add.EnableWindow(false);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(pane->commands.size(), 3u);
}

TEST_F(BindingTest, AComboFollowsItsModelAndTellsAChoiceOnce) {
    auto& combo = Of<ComboBinding>(pane->files);
    EXPECT_EQ(combo.currentText(), "prospect limits.csv");
    pane->files.SetCurSel(2);
    EXPECT_EQ(combo.currentIndex(), 2);
    EXPECT_THAT(pane->commands, IsEmpty());
    QTest::keyClick(&combo, Qt::Key_Up);
    EXPECT_EQ(pane->files.GetCurSel(), 1);
    EXPECT_THAT(pane->commands, ElementsAre(FILE_COMBO));
    pane->files.ResetContent();
    EXPECT_EQ(combo.count(), 0);
    pane->files.AddString("h\xE9lice.csv");
    EXPECT_EQ(combo.itemText(0), QString::fromUtf8("h\u00E9lice.csv"));
    EXPECT_EQ(combo.currentIndex(), -1);
    EXPECT_EQ(pane->commands.size(), 1u);
}

TEST_F(BindingTest, ATableClicksByMouseAndKeyboard) {
    auto& table = Of<TableBinding>(pane->table);
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, CellCentre(table, 2));
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, CellCentre(table, 2));
    QTest::keyClick(&table, Qt::Key_Down);
    QTest::keyClick(&table, Qt::Key_Return);
    EXPECT_THAT(pane->table.clicks, ElementsAre(2, 2, 3, 3));
    EXPECT_EQ(pane->table.GetSelection(), 3);
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(platform.ClipboardText(), "4\t512337.750\t6213447.375\tWP 3");
}

TEST_F(BindingTest, ATableFollowsItsModelInSilence) {
    auto& table = Of<TableBinding>(pane->table);
    pane->table.SetSelection(50);
    EXPECT_EQ(table.currentIndex().row(), 50);
    pane->FillTable(3);
    EXPECT_EQ(table.model()->rowCount(), 3);
    EXPECT_FALSE(table.selectionModel()->hasSelection());
    EXPECT_THAT(pane->table.clicks, IsEmpty());
    // Below the rows.
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, CellCentre(table, 2) + QPoint(0, 60));
    EXPECT_THAT(pane->table.clicks, IsEmpty());
}

// Opening, drawing and walking to the end must ask for what is seen, not for what there is.
TEST_F(BindingTest, AMillionRowsAreNeverAllAskedFor) {
    auto& table = Of<TableBinding>(pane->table);
    pane->cellsAsked = 0;
    pane->FillTable(1'000'000);
    table.grab();
    QTest::keyClick(&table, Qt::Key_End);
    table.grab();
    QTest::keyClicks(&table, "WP77");
    EXPECT_EQ(table.currentIndex().row(), 999'999);
    EXPECT_LT(pane->cellsAsked, 2000);
}

TEST_F(BindingTest, CellsAndHeadersStandAsTheirColumnSays) {
    const auto& model = *Of<TableBinding>(pane->table).model();
    for (const auto& [column, side] : {std::pair{1, Qt::AlignRight}, std::pair{3, Qt::AlignLeft}}) {
        EXPECT_TRUE(model.data(model.index(0, column), Qt::TextAlignmentRole).toInt() & side) << column;
        EXPECT_TRUE(model.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).toInt() & side) << column;
    }
}

TEST_F(BindingTest, ThePaneAsksForTheKeyboardAndToBeShown) {
    view->setFocus();
    EXPECT_TRUE(Of<PropertyListBinding>(pane->list).View().hasFocus());
    std::vector<bool> asked;
    view->onChanged = [&] { asked.push_back(pane->IsVisible()); };
    pane->ShowPane(false);
    pane->ShowPane(true);
    EXPECT_THAT(asked, ElementsAre(false, true));
}

// The list gets what its pane wants for it, as far as what stands below keeps its least; in a low window each keeps
// half.
TEST(SharedHeight, IsFairToBoth) {
    const struct {
        int wanted, bottom, height;
    } cases[] = {{480, 760, 480}, {480, 600, 426}, {480, 300, 126}, {480, 200, 73}, {480, 60, 3},
                 {480, 54, 0},    {480, 20, 0},    {10, 760, 60},   {10, 100, 23},  {9999, 760, 586}};
    for (const auto& c : cases) {
        const SharedHeight shared{
            .top = 54, .wanted = c.wanted, .bottom = c.bottom, .leastBelow = 120, .leastList = 60};
        EXPECT_EQ(shared.ListHeight(), c.height) << c.wanted << " of " << c.bottom;
    }
}

TEST_F(BindingTest, ListAndTableShareTheHeightOfALowPane) {
    view->resize(300, 400);
    const auto rows = [this] {
        const auto& table = Of<TableBinding>(pane->table);
        return table.isVisible() ? table.viewport()->height() / table.rowHeight(0) : 0;
    };
    EXPECT_GE(rows(), 4);
    EXPECT_EQ(view->WidgetOf(pane->table)->geometry().bottom(), 399);
    const auto handle = [this] {
        HeightSplit* found = nullptr;
        for (QObject* const child : view->children()) {
            if (!found) found = dynamic_cast<HeightSplit*>(child);
        }
        return found;
    };
    auto* const split = handle();
    ASSERT_TRUE(split);
    const auto edge = [this] { return view->WidgetOf(pane->table)->y(); };
    EXPECT_EQ(split->geometry().center().y(), edge());
    const int before = edge();
    QTest::keyClick(split, Qt::Key_Up);
    QTest::keyClick(split, Qt::Key_Up);
    EXPECT_EQ(edge(), before - 40);
    QTest::mousePress(split, Qt::LeftButton, {}, {50, 3});
    QTest::mouseMove(split, {50, -17});
    QTest::mouseRelease(split, Qt::LeftButton, {}, {50, 3});
    EXPECT_EQ(edge(), before - 60);
    EXPECT_EQ(view->WidgetOf(pane->list)->geometry().bottom() + 1, edge());

    // The operator's share outlives the window, and a double click gives the usual one.
    view = std::make_unique<WindowBinding>(*pane, factory);
    view->resize(300, 400);
    view->show();
    EXPECT_EQ(edge(), before - 60);
    view->resize(300, 760);
    EXPECT_EQ(edge(), before - 60);
    QTest::mouseDClick(handle(), Qt::LeftButton);
    EXPECT_EQ(edge(), pane->table.GetRect().top);
}

TEST_F(BindingTest, WidgetsMayGoBeforeTheirModels) {
    view.reset();
    pane->SetNight(true);
    pane->FillList();
    pane->FillTable(5);
    pane->files.ResetContent();
    pane->Resize({100, 100});
    pane->ShowPane(false);
}

TEST_F(BindingTest, ModelsMayGoBeforeTheirWidgets) {
    auto& list = Of<PropertyListBinding>(pane->list).View();
    auto& table = Of<TableBinding>(pane->table);
    auto& button = Of<ButtonBinding>(pane->add);
    pane->list.SetCurSel(&pane->Row(DEPTH_ROW));
    QTest::keyClick(&list, Qt::Key_F2);
    pane.reset();
    QCoreApplication::processEvents();
    view->resize(350, 500);
    view->grab();
    button.click();
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&table, Qt::Key_Down);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, {20, 20});
    EXPECT_EQ(view->Model(), nullptr);
}

// A host adds what it shows by itself, and what is derived from a known control gets its own.
TEST_F(BindingTest, TheBindingAddedLastIsAskedFirst) {
    factory.Add<SampleTable>([](SampleTable& table, QWidget* parent) {
        auto* const binding = new TableBinding(table, parent);
        binding->setObjectName("special");
        return binding;
    });
    SamplePane other(platform);
    const WindowBinding otherView(other, factory);
    EXPECT_EQ(otherView.WidgetOf(other.table)->objectName(), "special");
    EXPECT_TRUE(dynamic_cast<ComboBinding*>(otherView.WidgetOf(other.files)));
}

}  // namespace
}  // namespace quillon::test
