// The property list as the operator meets it: by keyboard and mouse, row kind by row kind.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QListWidget>
#include <QTest>

#include "bindings/property_list_binding.h"
#include "bindings/sample_pane.h"
#include "bindings/window_binding.h"
#include "platform/headless.h"

namespace quillon::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PropertyListTest : public testing::Test {
protected:
    PropertyListTest()
        : factory([this](QPainter& painter, const QRect& place, int symbol, COLORREF colour) {
              symbolsDrawn.insert(symbol);
              painter.fillRect(place, QColor(static_cast<int>(GetRValue(colour)), 0, 0));
          }),
          pane(platform),
          view(pane, factory) {
        view.resize(300, 760);
        view.show();
        view.activateWindow();
        QCoreApplication::processEvents();
        List().setFocus();
    }

    PropertyListView& List() { return dynamic_cast<PropertyListBinding&>(*view.WidgetOf(pane.list)).View(); }
    void GoTo(SAMPLE_ROW row) { pane.list.SetCurSel(&pane.Row(row)); }
    void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* const target = List().Editor()  ? static_cast<QWidget*>(List().Editor())
                                : List().Popup() ? static_cast<QWidget*>(&List().Popup()->List())
                                                 : &List();
        QTest::keyClick(target, static_cast<Qt::Key>(key), modifiers);
    }
    void Write(const char* text) {
        for (const char* c = text; *c; ++c) {
            QTest::keyClick(List().Editor() ? static_cast<QWidget*>(List().Editor()) : &List(), *c);
        }
    }
    void Click(SAMPLE_ROW row, int fromLeft) {
        const QRect value = List().ValueRect(pane.Row(row));
        QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, QPoint(value.left() + fromLeft, value.center().y()));
    }
    std::string Shown(SAMPLE_ROW row) { return std::string(Trim(pane.Row(row).FormatProperty())); }

    std::set<int> symbolsDrawn;
    HeadlessPlatform platform{std::filesystem::temp_directory_path() / "quillon-rows"};
    BindingFactory factory;
    SamplePane pane;
    WindowBinding view;
};

TEST_F(PropertyListTest, ArrowsMoveAndFold) {
    GoTo(DISPLAY_ROW);
    Key(Qt::Key_Up);
    EXPECT_EQ(pane.list.GetCurSel()->GetName(), "Properties");
    Key(Qt::Key_Left);
    Key(Qt::Key_Down);
    EXPECT_EQ(pane.list.GetCurSel()->GetName(), "Appearance");
    Key(Qt::Key_Up);
    Key(Qt::Key_Right);
    Key(Qt::Key_Down);
    EXPECT_EQ(pane.list.GetCurSel(), &pane.Row(DISPLAY_ROW));
    Key(Qt::Key_End);
    EXPECT_EQ(pane.list.GetCurSel()->GetName(), "Disabled");
    EXPECT_THAT(pane.changedRows, IsEmpty());
}

TEST_F(PropertyListTest, ACheckBoxTogglesBySpaceAndByAClickOnTheBox) {
    GoTo(DISPLAY_ROW);
    Key(Qt::Key_Space);
    EXPECT_FALSE(pane.Row(DISPLAY_ROW).Get<bool>());
    Click(DISPLAY_ROW, 10);
    EXPECT_TRUE(pane.Row(DISPLAY_ROW).Get<bool>());
    // Beside the box: the row is only selected.
    Click(DISPLAY_ROW, 80);
    EXPECT_THAT(pane.changedRows, ElementsAre(DISPLAY_ROW, DISPLAY_ROW));
}

TEST_F(PropertyListTest, TypingEntersANumber) {
    struct Case {
        SAMPLE_ROW row;
        const char* typed;
        int end;
        const char* shown;
        bool told;
    };
    const Case cases[] = {
        {DEPTH_ROW, "88.26", Qt::Key_Return, "88.3m", true},
        {DEPTH_ROW, "7.5m", Qt::Key_Tab, "7.5m", true},
        {DEPTH_ROW, "55", Qt::Key_Escape, "7.5m", false},
        {COUNT_ROW, "15", Qt::Key_Return, "15", true},
        // Beyond the bounds of the spin control: refused, and the edit stays open.
        {COUNT_ROW, "99", Qt::Key_Return, "15", false},
        {HEADING_ROW, "90", Qt::Key_Return, "090\xB0 00'.00", true},
        {COMMENT_ROW, "x y", Qt::Key_Return, "x y", true},
    };
    for (const Case& c : cases) {
        pane.changedRows.clear();
        GoTo(c.row);
        Write(c.typed);
        Key(c.end);
        EXPECT_EQ(Shown(c.row), c.shown) << c.typed;
        EXPECT_EQ(pane.changedRows.size(), c.told ? 1u : 0u) << c.typed;
        if (List().Editor()) Key(Qt::Key_Escape);
        EXPECT_FALSE(List().Editor());
    }
    EXPECT_THAT(platform.Calls(), ElementsAre("beep"));
}

// The text shows fewer digits than the value has; looking at it must not round the value.
TEST_F(PropertyListTest, AnEditThatChangesNothingTellsNothing) {
    GoTo(DEPTH_ROW);
    Key(Qt::Key_F2);
    Key(Qt::Key_Return);
    EXPECT_THAT(pane.changedRows, IsEmpty());
    EXPECT_EQ(pane.Row(DEPTH_ROW).Get<double>(), 102.53);
}

TEST_F(PropertyListTest, LosingTheKeyboardEndsTheEditAsReturnDoes) {
    GoTo(DEPTH_ROW);
    Write("12.5");
    view.WidgetOf(pane.add)->setFocus();
    EXPECT_EQ(Shown(DEPTH_ROW), "12.5m");
    EXPECT_THAT(pane.changedRows, ElementsAre(DEPTH_ROW));
}

TEST_F(PropertyListTest, ASpinRowStepsWithinItsBounds) {
    GoTo(COUNT_ROW);
    Key(Qt::Key_F2);
    for (int i = 0; i < 10; ++i) Key(Qt::Key_Up);
    Key(Qt::Key_Down);
    Key(Qt::Key_Return);
    EXPECT_EQ(Shown(COUNT_ROW), "19");
    const QRect value = List().ValueRect(pane.Row(COUNT_ROW));
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, QPoint(value.right() - 8, value.bottom() - 4));
    EXPECT_EQ(Shown(COUNT_ROW), "18");
    EXPECT_THAT(pane.changedRows, ElementsAre(COUNT_ROW, COUNT_ROW));
}

TEST_F(PropertyListTest, PickersOfferTheirChoicesByKeyboardAndMouse) {
    const SAMPLE_ROW pickers[] = {OPTION_ROW, COLOUR_ROW, FILL_ROW,  THICKNESS_ROW,
                                  SYMBOL_ROW, SIZE_ROW,   LABEL_ROW, POSITION_ROW};
    for (const SAMPLE_ROW row : pickers) {
        pane.changedRows.clear();
        const std::vector<RowChoice> choices = pane.Row(row).GetChoices();
        GoTo(row);
        Key(Qt::Key_F4);
        ASSERT_TRUE(List().Popup()) << row;
        ASSERT_EQ(List().Popup()->List().count(), static_cast<int>(choices.size())) << row;
        List().Popup()->grab();
        Key(Qt::Key_End);
        Key(Qt::Key_Return);
        EXPECT_EQ(pane.Row(row).GetValue(), choices.back().value) << row;

        Click(row, 60);
        ASSERT_TRUE(List().Popup()) << row;
        QListWidget& list = List().Popup()->List();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(0)).center());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Click(row, 60);
        ASSERT_TRUE(List().Popup()) << row;
        Key(Qt::Key_Escape);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_THAT(pane.changedRows, ElementsAre(row, row));
    }
    EXPECT_THAT(symbolsDrawn, testing::Contains(12));
}

TEST_F(PropertyListTest, LockedAndDisabledRowsDontOpen) {
    for (const SAMPLE_ROW row : {DEPTH_ROW, COLOUR_ROW, DISPLAY_ROW, BUTTONS_ROW}) {
        GoTo(row);
        pane.Row(row).SetLock(true);
        for (const int key : {Qt::Key_F2, Qt::Key_F4, Qt::Key_Space, Qt::Key_Return, Qt::Key_5}) Key(key);
        Click(row, 10);
        EXPECT_FALSE(List().Editor()) << row;
        EXPECT_FALSE(List().Popup()) << row;
    }
    EXPECT_THAT(pane.changedRows, IsEmpty());
}

TEST_F(PropertyListTest, TheTwoButtonsArePressedByKeyboardAndMouse) {
    GoTo(BUTTONS_ROW);
    Key(Qt::Key_Space);
    EXPECT_EQ(pane.Row(BUTTONS_ROW).Get<std::int32_t>(), 0);
    Key(Qt::Key_Right);
    Key(Qt::Key_Return);
    EXPECT_EQ(pane.Row(BUTTONS_ROW).Get<std::int32_t>(), 1);
    const QRect value = List().ValueRect(pane.Row(BUTTONS_ROW));
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, QPoint(40, value.center().y()));
    EXPECT_EQ(pane.Row(BUTTONS_ROW).Get<std::int32_t>(), 0);
    EXPECT_EQ(pane.changedRows.size(), 3u);
}

TEST_F(PropertyListTest, APasswordIsHiddenWhileTypedAndNeverKept) {
    GoTo(PASSWORD_ROW);
    Write("secret");
    EXPECT_EQ(List().Editor()->echoMode(), QLineEdit::Password);
    Key(Qt::Key_Return);
    EXPECT_THAT(pane.changedRows, ElementsAre(PASSWORD_ROW));
    EXPECT_EQ(pane.Row(PASSWORD_ROW).Get<std::string>(), "");
    Key(Qt::Key_F2);
    EXPECT_EQ(List().Editor()->text(), "");
    Key(Qt::Key_Escape);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(platform.ClipboardText(), "");
}

// A pane answers a change by making all its rows anew: nothing of the old ones may be touched, and the operator stays
// where they were.
TEST_F(PropertyListTest, TheListMayBeMadeAnewInAnswerToEachAct) {
    pane.rebuildOnChange = true;
    GoTo(DISPLAY_ROW);
    Key(Qt::Key_Space);
    QCoreApplication::processEvents();
    EXPECT_EQ(pane.list.GetCurSel(), &pane.Row(DISPLAY_ROW));
    GoTo(DEPTH_ROW);
    Write("1.5");
    Key(Qt::Key_Tab);
    QCoreApplication::processEvents();
    GoTo(COLOUR_ROW);
    Key(Qt::Key_F4);
    Key(Qt::Key_Home);
    Key(Qt::Key_Return);
    QCoreApplication::processEvents();
    GoTo(BUTTONS_ROW);
    Click(BUTTONS_ROW, 60);
    view.grab();
    EXPECT_THAT(pane.changedRows, ElementsAre(DISPLAY_ROW, DEPTH_ROW, COLOUR_ROW, BUTTONS_ROW));
}

TEST_F(PropertyListTest, AListMadeAnewKeepsFoldsAndTheOpenEdit) {
    GoTo(COLOUR_ROW);
    Key(Qt::Key_Up);
    Key(Qt::Key_Left);
    GoTo(DEPTH_ROW);
    Write("77");
    pane.FillList();
    QCoreApplication::processEvents();
    EXPECT_TRUE(List().ValueRect(pane.Row(COLOUR_ROW)).isEmpty());
    ASSERT_TRUE(List().Editor());
    EXPECT_EQ(List().Editor()->text(), "77");
    // The row is gone from the list: so is the edit.
    pane.list.RemoveAll();
    QCoreApplication::processEvents();
    EXPECT_FALSE(List().Editor());
    EXPECT_THAT(pane.changedRows, IsEmpty());
}

}  // namespace
}  // namespace quillon::test
