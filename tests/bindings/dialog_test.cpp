// Dialogs over the toolkit: shown in their size and colours, ended by the keyboard, and gone when they say so.

#include "bindings/dialog_binding.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "bindings/button_binding.h"
#include "frame/colour_button.h"
#include "frame/colour_dialog.h"
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

}  // namespace
}  // namespace quillon::test
