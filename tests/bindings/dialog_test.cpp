// Dialogs over the toolkit: shown in their size and colours, ended by the keyboard, and gone when they say so.

#include "bindings/dialog_binding.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QProgressBar>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "bindings/tab_binding.h"
#include "frame/base_edit_ctrl.h"
#include "frame/colour_button.h"
#include "frame/colour_dialog.h"
#include "frame/colour_picker_combo.h"
#include "platform/dialog_controls.h"
#include "platform/property_grid.h"
#include "toolkit/qt_platform.h"

namespace quillon::test {
namespace {

class AskDialog : public CColourDialogEx {
public:
    explicit AskDialog(Platform& owner)
        : CColourDialogEx(owner, "Delete?", {240, 120}),
          update(*this, IDOK, "Update", GetNightMode()),
          remove(*this, 12077, "Delete", GetNightMode()) {
        AddControl(update);
        AddControl(remove);
        update.MoveWindow({10, 80, 110, 110});
        remove.MoveWindow({120, 80, 220, 110});
    }
    void OnCommand(UINT control) override {
        if (control == 12077) EndDialog(7);
        CColourDialogEx::OnCommand(control);
    }
    CColourButton update, remove;
};

class DialogTest : public testing::Test {
protected:
    DialogTest() { ShowDialogsBy(platform, factory); }

    /// What the operator does in the modal dialog that opens next.
    void WhenOpen(std::function<void(DialogBinding&)> act) {
        QTimer::singleShot(0, qApp, [this, act] {
            if (auto* const open = dynamic_cast<DialogBinding*>(QApplication::activeModalWidget())) {
                act(*open);
            } else {
                WhenOpen(act);
            }
        });
    }

    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "quillon-dialogs";
    QtPlatform platform{folder, folder / "profile.ini"};
    BindingFactory factory;
};

TEST_F(DialogTest, EndsAsTheOperatorSays) {
    const struct {
        const char* name;
        std::function<void(DialogBinding&, AskDialog&)> act;
        int result;
    } cases[] = {
        {"Return", [](DialogBinding& w, AskDialog&) { QTest::keyClick(&w, Qt::Key_Return); }, IDOK},
        {"Esc", [](DialogBinding& w, AskDialog&) { QTest::keyClick(&w, Qt::Key_Escape); }, IDCANCEL},
        {"close box", [](DialogBinding& w, AskDialog&) { w.close(); }, IDCANCEL},
        {"a button",
         [](DialogBinding& w, AskDialog& d) { QTest::mouseClick(w.Client().WidgetOf(d.remove), Qt::LeftButton); }, 7},
        {"Return on a button",
         [](DialogBinding& w, AskDialog& d) { QTest::keyClick(w.Client().WidgetOf(d.remove), Qt::Key_Return); }, 7},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        AskDialog dialog(platform);
        QPointer<DialogBinding> shown;
        WhenOpen([&](DialogBinding& window) {
            shown = &window;
            EXPECT_EQ(window.windowTitle(), "Delete?");
            EXPECT_EQ(window.size(), QSize(240, 120));
            EXPECT_TRUE(window.isModal());
            c.act(window, dialog);
        });
        EXPECT_EQ(dialog.DoModal(), c.result);
        EXPECT_TRUE(!shown || !shown->isVisible());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(shown);
    }
}

TEST_F(DialogTest, WearsTheColoursOfDayOrNight) {
    for (const bool night : {false, true}) {
        platform.SetNight(night);
        AskDialog dialog(platform);
        WhenOpen([&](DialogBinding& window) {
            const QImage picture = window.grab().toImage();
            EXPECT_EQ(picture.pixelColor(3, 3), night ? QColor(0, 0, 0) : QColor(0x55, 0x55, 0x55));
            EXPECT_EQ(picture.pixelColor(126, 84), night ? QColor(0, 0x3D, 0x66) : QColor(0, 0x7B, 0xCC));
            dialog.SetNightMode(!night);
            EXPECT_EQ(window.grab().toImage().pixelColor(3, 3), night ? QColor(0x55, 0x55, 0x55) : QColor(0, 0, 0));
            dialog.EndDialog(IDOK);
        });
        dialog.DoModal();
    }
}

TEST_F(DialogTest, AModelessDialogGoesInItsOwnEvent) {
    AskDialog dialog(platform);
    ASSERT_TRUE(dialog.Create());
    DialogBinding* window = nullptr;
    for (QWidget* const open : QApplication::topLevelWidgets()) {
        if (open->isVisible() && dynamic_cast<DialogBinding*>(open)) window = static_cast<DialogBinding*>(open);
    }
    ASSERT_TRUE(window);
    EXPECT_FALSE(window->isModal());
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_FALSE(window->isVisible());
    QTest::keyClick(window, Qt::Key_Escape);  // still an object, without a dialog
}

/// Every control that a dialog may have.
class FullDialog : public CColourDialogEx {
public:
    explicit FullDialog(Platform& owner) : CColourDialogEx(owner, "All", {400, 400}) {
        int top = 0;
        for (CControl* const control :
             std::initializer_list<CControl*>{&label, &bar, &name, &depth, &box, &farms, &side, &colour, &tabs}) {
            AddControl(*control);
            control->MoveWindow({0, top, 200, top + 40});
            top += 40;
        }
        for (const char* farm : {"North", "South"}) farms.AddString(farm);
        for (const char* way : {"Port", "Starboard"}) side.AddString(way);
        tabs.AddTab(list, "Target");
        tabs.AddTab(more, "Shadow");
        depth.SetDouble(12.5);
    }
    void OnCommand(UINT control) override { done.push_back(control); }
    void OnDoubleClick(UINT control) override { done.push_back(1000 + control); }
    LRESULT OnMessage(const MSG& message) override {
        if (message.message == AFX_WM_CHANGE_ACTIVE_TAB) done.push_back(2000 + static_cast<UINT>(message.wParam));
        return 0;
    }
    CStatic label{*this, 10, "0 Bytes of 0 Bytes"};
    CProgressCtrl bar{*this, 11};
    CEdit name{*this, 12};
    CEditDoubleCtrl depth{*this, 13};
    CCheckBox box{*this, 14, "Show && Dots"};
    CListBox farms{*this, 15};
    CRadioGroup side{*this, 16};
    CColourPickerComboBoxEx colour{*this, 17};
    CMFCTabCtrl tabs{*this, 18};
    CMyMFCPropertyGridCtrl list{tabs, 2}, more{tabs, 3};
    std::vector<UINT> done;
};

// The operator's acts reach the model once; what the program sets shows and tells nobody.
TEST_F(DialogTest, EveryControlWorksBothWays) {
    FullDialog dialog(platform);
    WindowBinding view(dialog, factory);
    view.resize(400, 400);
    view.show();
    const auto of = [&]<class Widget>(const CControl& control, Widget*) {
        return dynamic_cast<Widget*>(view.WidgetOf(control));
    };
#define OF(Type, control) (*of(dialog.control, static_cast<Type*>(nullptr)))
    QTest::keyClicks(&OF(QLineEdit, name), "B1");
    EXPECT_EQ(dialog.name.GetWindowText(), "B1");
    OF(QCheckBox, box).click();
    EXPECT_TRUE(dialog.box.IsChecked());
    auto& farms = OF(QListWidget, farms);
    QTest::keyClick(&farms, Qt::Key_Down);
    emit farms.itemDoubleClicked(farms.item(1));
    EXPECT_EQ(dialog.farms.GetCurSel(), 1);
    view.WidgetOf(dialog.side)->findChildren<QRadioButton*>()[1]->click();
    EXPECT_EQ(dialog.side.GetCurSel(), 1);
    QTest::keyClick(&OF(QComboBox, colour), Qt::Key_Down);
    EXPECT_EQ(dialog.colour.GetColour(), RGB(0, 0, 0));
    QTest::keyClick(&OF(TabBinding, tabs).Bar(), Qt::Key_Right);
    EXPECT_TRUE(dialog.more.IsWindowVisible() && !dialog.list.IsWindowVisible());
    EXPECT_EQ(dialog.done, (std::vector<UINT>{12, 12, 14, 15, 15, 1015, 16, 17, 2001}));

    auto& depth = OF(QLineEdit, depth);
    EXPECT_EQ(depth.text(), "12.500");
    depth.selectAll();
    QTest::keyClicks(&depth, "7.x25");
    EXPECT_EQ(depth.text(), "7.25");
    QTest::keyClick(&depth, Qt::Key_Backspace);
    EXPECT_DOUBLE_EQ(dialog.depth.GetDouble(), 7.2);

    dialog.done.clear();
    dialog.label.SetWindowText("5 Bytes of 9 Bytes");
    EXPECT_EQ(OF(QLabel, label).text(), "5 Bytes of 9 Bytes");
    dialog.bar.SetRange(0, 1000);
    dialog.bar.SetPos(1500);
    EXPECT_EQ(OF(QProgressBar, bar).value(), 1000);
    dialog.name.SetWindowText("C2");
    EXPECT_EQ(OF(QLineEdit, name).text(), "C2");
    dialog.box.SetCheck(false);
    EXPECT_FALSE(OF(QCheckBox, box).isChecked());
    dialog.farms.ResetContent();
    EXPECT_EQ(farms.count(), 0);
    dialog.side.SetCurSel(-1);
    EXPECT_FALSE(view.WidgetOf(dialog.side)->findChildren<QRadioButton*>()[1]->isChecked());
    dialog.colour.SetColour(RGB(255, 0, 128));
    EXPECT_EQ(OF(QComboBox, colour).currentText(), "Crimson");
    const QImage swatch = OF(QComboBox, colour).itemIcon(1).pixmap(16).toImage();
    EXPECT_EQ(swatch.pixelColor(0, 8), QColor(0, 0, 0));
    EXPECT_EQ(swatch.pixelColor(8, 8), QColor(255, 0, 0));
    dialog.tabs.SetActiveTab(0);
    EXPECT_EQ(OF(TabBinding, tabs).Bar().currentIndex(), 0);
    EXPECT_EQ(dialog.done, std::vector<UINT>{2000}) << "the tab control tells its owner in either case";
#undef OF
}

}  // namespace
}  // namespace quillon::test
