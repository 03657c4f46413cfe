#include <gtest/gtest.h>

#include <QApplication>
#include <QLocale>
#include <clocale>

#include "toolkit/theme.h"

/// The tests run on the toolkit's offscreen platform: no display is needed and none is touched.
int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&count, arguments);
    QApplication application(count, arguments);
    std::setlocale(LC_ALL, "C");
    QLocale::setDefault(QLocale::c());
    const quillon::Theme theme(application);
    return RUN_ALL_TESTS();
}
