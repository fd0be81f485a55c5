#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int count, char** arguments) {
    ::testing::InitGoogleTest(&count, arguments);
    const QGuiApplication application(count, arguments);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
