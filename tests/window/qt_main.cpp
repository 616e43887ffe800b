// Window tests run on the real controls; no screen is needed.
#include <gtest/gtest.h>

#include <QApplication>

#include "platform/qt/qt_platform.h"

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    varno::PrepareApplication();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
