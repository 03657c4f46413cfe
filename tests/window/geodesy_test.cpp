#include "window/geodesy_dialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest/QTest>

#include "host/startup.h"
#include "window/main_window.h"

namespace quillon {
namespace {

class GeodesyTest : public ::testing::Test {
protected:
    ScratchJob sample{QUILLON_SAMPLE_JOB};
    QTemporaryDir folder;
    QtPlatform platform{sample.Drives(), folder.filePath("profile.ini").toStdString()};
};

TEST_F(GeodesyTest, OffersWhatCanBeWorkedOnAndSaysWhyElse) {
    GeodesyDialog dialog(nullptr, platform.Files(), {});
    const struct {
        const char* words;
        const char* told;
    } rows[] = {{"utm 32", "Grid Zone 32"}, {"no such grid", "No grid has these words."}, {"5010", "on Clarke 1866"}};
    for (const auto& row : rows) {
        dialog.Search().setText(row.words);
        EXPECT_TRUE(dialog.Told().text().contains(row.told)) << dialog.Told().text().toStdString();
        EXPECT_EQ(dialog.Take().isEnabled(), dialog.Grids().topLevelItemCount() > 0);
    }
    dialog.Tabs().setCurrentIndex(1);
    EXPECT_TRUE(dialog.Take().isEnabled()) << dialog.Told().text().toStdString();
    QLineEdit* const scale = dialog.Tabs().widget(1)->findChildren<QLineEdit*>()[5];
    for (const char* const wrong : {"0,9996", "", "7"}) {
        scale->setText(wrong);
        EXPECT_FALSE(dialog.Take().isEnabled()) << wrong;
    }
    scale->setText("0.9996");
    dialog.Take().click();
    EXPECT_EQ(dialog.Choice().zone, GeodesyChoice::kOwn);
    EXPECT_EQ(dialog.Choice().scale, 0.9996);
}

TEST_F(GeodesyTest, AnotherGridIsKeptAndShownAndNoPositionChanges) {
    Theme theme(*qApp);
    Job job(platform);
    job.Open();
    const tagXY before = job.Record().boundaries[0][0];
    MainWindow window(job, platform, theme);
    window.show();
    window.Settle();
    QTest::keySequence(&window, QKeySequence("Ctrl+L"));
    window.Settle();
    ASSERT_NE(window.Chart().Scene().graticule, nullptr);
    const auto lines = window.Chart().Scene().graticule->lines;
    ASSERT_GE(lines.size(), 2u);
    QTimer operatorActs;
    QObject::connect(&operatorActs, &QTimer::timeout, qApp, [&operatorActs] {
        auto* const dialog = dynamic_cast<GeodesyDialog*>(QApplication::activeModalWidget());
        if (!dialog) return;
        operatorActs.stop();
        dialog->Search().setText("utm 32");
        dialog->Take().click();
    });
    operatorActs.start(10);
    QTest::keySequence(&window, QKeySequence("Ctrl+G"));
    window.Settle();
    EXPECT_NE(window.Chart().Scene().graticule->lines.back().label, lines.back().label);
    EXPECT_EQ(job.Record().boundaries[0][0], before);
    JobRecord next(platform.Files());
    next.Load();
    EXPECT_EQ(next.geodesy.Choice().zone, 32);
    window.close();
}

}  // namespace
}  // namespace quillon
