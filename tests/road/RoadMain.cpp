#include "app/wording/LinuxWording.h"
#include "tests/road/Road.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int count, char** arguments) {
    ::testing::InitGoogleTest(&count, arguments);
    const QGuiApplication application(count, arguments);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    brinmoor::installLinuxWording();
    const int status = RUN_ALL_TESTS();
    brinmoor::testing::endRoadBrowser();
    return status;
}
