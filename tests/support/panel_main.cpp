// The start of every test program that has windows.
#include "app/program.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int count, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // Wine keeps the toolkit's own variables from a program.
    if (const QByteArray fonts = qgetenv("ZPS_TEST_FONTS"); !fonts.isEmpty())
        qputenv("QT_QPA_FONTDIR", fonts);
    QApplication application(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    zps::DressApplication();
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
