// No bright area stands anywhere at night.

#include "toolkit/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>

#include "bindings/property_list_binding.h"
#include "bindings/sample_pane.h"
#include "bindings/window_binding.h"
#include "platform/headless.h"
#include "toolkit/colours.h"

namespace quillon::test {
namespace {

constexpr int kBright = 200;
/// Text and swatches are small; a ground that was left bright is not.
constexpr double kMostBright = 0.01;

double BrightShare(QWidget& widget) {
    const QImage picture = widget.grab().toImage();
    int bright = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) bright += Luminance(picture.pixelColor(x, y)) > kBright;
    }
    return double(bright) / std::max(1, picture.width() * picture.height());
}

class NightTest : public testing::Test {
protected:
    NightTest() { theme.SetNight(true); }
    ~NightTest() override { theme.SetNight(false); }

    Theme theme{*qApp};
    HeadlessPlatform platform{std::filesystem::temp_directory_path() / "quillon-night"};
    BindingFactory factory;
};

TEST_F(NightTest, APaneIsDarkInEveryState) {
    SamplePane pane(platform, true);
    WindowBinding view(pane, factory);
    view.resize(300, 760);
    view.show();
    view.activateWindow();
    auto& list = dynamic_cast<PropertyListBinding&>(*view.WidgetOf(pane.list)).View();
    list.setFocus();
    pane.table.SetSelection(1);
    EXPECT_LT(BrightShare(view), kMostBright);
    pane.list.SetCurSel(&pane.Row(DEPTH_ROW));
    QTest::keyClick(&list, Qt::Key_F2);
    EXPECT_LT(BrightShare(view), kMostBright);
    pane.add.EnableWindow(false);
    pane.files.EnableWindow(false);
    EXPECT_LT(BrightShare(view), kMostBright);
    for (const SAMPLE_ROW row : {OPTION_ROW, FILL_ROW, THICKNESS_ROW, SIZE_ROW, LABEL_ROW, POSITION_ROW}) {
        pane.list.SetCurSel(&pane.Row(row));
        QTest::keyClick(&list, Qt::Key_F4);
        ASSERT_TRUE(list.Popup());
        EXPECT_LT(BrightShare(*list.Popup()), kMostBright) << row;
        list.Popup()->close();
    }
}

// Colours that a control was given by day must not hold fast what isn't its own, such as its scroll bars.
TEST_F(NightTest, APaneThatWasMadeByDayTurnsDarkWhole) {
    theme.SetNight(false);
    SamplePane pane(platform);
    WindowBinding view(pane, factory);
    view.resize(300, 640);
    view.show();
    EXPECT_GT(BrightShare(view), 0.2);
    pane.SetNight(true);
    theme.SetNight(true);
    EXPECT_LT(BrightShare(view), kMostBright);
}

TEST_F(NightTest, TheFrameOfTheProgramIsDark) {
    QMainWindow window;
    QMenu* const menu = window.menuBar()->addMenu("File");
    menu->addAction("Open");
    window.addToolBar("Tools")->addAction("Zoom");
    window.statusBar()->showMessage("E 512300.25");
    window.setCentralWidget(new QListWidget(&window));
    window.resize(500, 300);
    window.show();
    EXPECT_LT(BrightShare(window), kMostBright);
    menu->popup({10, 10});
    EXPECT_LT(BrightShare(*menu), kMostBright);
    menu->close();
    QMessageBox box(QMessageBox::Information, "Quillon", "Done");
    EXPECT_LT(BrightShare(box), 0.03);  // the picture of the box
    QFileDialog files(nullptr, "Files", QString::fromStdString(std::filesystem::temp_directory_path().string()));
    files.setOption(QFileDialog::DontUseNativeDialog);
    EXPECT_LT(BrightShare(files), 0.03);
}

}  // namespace
}  // namespace quillon::test
