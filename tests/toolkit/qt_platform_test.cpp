#include "toolkit/qt_platform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <fstream>

#include "toolkit/text_edge.h"

namespace quillon {
namespace {

TEST(QtFilter, TurnsTheFilterOfAQuestionIntoTheToolkits) {
    struct Case {
        const char* filter;
        const char* expected;
    };
    const Case cases[] = {
        {"CSV Files (*.csv)|*.csv|All Files (*.*)|*.*||", "CSV Files (*.csv);;All Files (*)"},
        {"Drawings|*.dxf; *.dig||", "Drawings (*.dxf *.dig)"},
        // Cut short: a label without a pattern offers nothing.
        {"CSV Files (*.csv)|*.csv|Text", "CSV Files (*.csv)"},
        {"", ""},
    };
    for (const Case& c : cases) EXPECT_EQ(ToQtFilter(c.filter).toStdString(), c.expected) << c.filter;
}

TEST(TextEdge, KeepsEveryCharacter) {
    EXPECT_EQ(ToQString("Caf\xE9 \x80"), QString::fromUtf8("Caf\u00E9 \u20AC"));
    const QString ship = QString::fromUtf8("\U0001F6A2 \u0416");
    EXPECT_EQ(ToQString(FromQString(ship)), ship);
}

class QtPlatformTest : public testing::Test {
protected:
    QtPlatformTest() {
        std::string name = (std::filesystem::temp_directory_path() / "quillon-XXXXXX").string();
        folder = mkdtemp(name.data());
        std::filesystem::create_directories(folder / "c" / "Job");
        for (const char* file : {"a.csv", "b.csv", "notes.txt"}) std::ofstream(folder / "c" / "Job" / file) << "1,2\n";
        platform = std::make_unique<QtPlatform>(folder, folder / "profile.ini");
    }
    ~QtPlatformTest() override { std::filesystem::remove_all(folder); }

    /// Does something with the dialog that the next call opens.
    template <class Dialog>
    void WhenOpen(std::function<void(Dialog&)> act) {
        QTimer::singleShot(0, qApp, [this, act] {
            auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (dialog) {
                act(*dialog);
            } else {
                WhenOpen<Dialog>(act);
            }
        });
    }

    std::filesystem::path folder;
    std::unique_ptr<QtPlatform> platform;
    const FileQuestion question{"Boundary Files ....", "CSV Files (*.csv)|*.csv|All Files (*.*)|*.*||", true};
};

TEST_F(QtPlatformTest, ChosenFilesComeBackAsDrivePathsAndTheFolderIsRemembered) {
    platform->GetProfile().SetText("Files", "LastFolder", "C:\\Job");
    std::vector<std::string> paths;
    WhenOpen<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Boundary Files ....");
        EXPECT_EQ(dialog.nameFilters(), (QStringList{"CSV Files (*.csv)", "All Files (*)"}));
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText("\"a.csv\" \"b.csv\"");
        static_cast<QDialog&>(dialog).accept();
        if (dialog.isVisible()) dialog.reject();
    });
    EXPECT_TRUE(platform->ChooseFiles(question, paths));
    EXPECT_THAT(paths, testing::UnorderedElementsAre("C:\\Job\\a.csv", "C:\\Job\\b.csv"));
    EXPECT_EQ(platform->GetProfile().GetText("Files", "LastFolder", ""), "C:\\Job");
}

TEST_F(QtPlatformTest, BoxesShowTheTextAsItIs) {
    WhenOpen<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), "Requires a <b>file</b> name");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        box.accept();
    });
    platform->WarningMessage("Requires a <b>file</b> name");
}

TEST_F(QtPlatformTest, TheProfileOutlivesTheRunAndIsTheUsersAlone) {
    using std::filesystem::perms;
    const auto others = [this] {
        return std::filesystem::status(folder / "profile.ini").permissions() & (perms::group_all | perms::others_all);
    };
    EXPECT_EQ(others(), perms::none);
    platform->GetProfile().SetInt("Workspace\\BasePane-7", "IsVisible", 1);
    platform.reset();
    EXPECT_EQ(others(), perms::none);
    QtPlatform next(folder, folder / "profile.ini");
    EXPECT_EQ(next.GetProfile().GetInt("Workspace\\BasePane-7", "IsVisible", -1), 1);
}

TEST_F(QtPlatformTest, TheLocalClockGivesTheStandardBiasWestPositive) {
    const QByteArray before = qgetenv("TZ");
    qputenv("TZ", "America/New_York");
    const LocalClock reading = platform->GetLocalClock();
    EXPECT_EQ(reading.biasMinutes, 300);
    EXPECT_GE(reading.year, 2024);
    if (before.isNull()) {
        qunsetenv("TZ");
    } else {
        qputenv("TZ", before);
    }
}

}  // namespace
}  // namespace quillon
