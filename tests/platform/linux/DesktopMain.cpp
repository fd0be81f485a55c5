#include "platform/linux/X11Windows.h"
#include "tests/platform/linux/EventLoop.h"

#include <QGuiApplication>
#include <QWindow>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

/// A window manager announces itself before it looks after windows; one that is shown in between
/// may be overlooked for good.
bool windowsAreLookedAfter() {
    const auto connection = brinmoor::XcbConnection::open();
    for (int attempt = 0; connection && attempt < 20; ++attempt) {
        QWindow probe;
        probe.resize(100, 50);
        probe.show();
        const auto id = static_cast<xcb_window_t>(probe.winId());
        const bool listed = brinmoor::testing::eventually(
            [&] {
                const auto windows = brinmoor::clientWindows(*connection);
                return std::find(windows.begin(), windows.end(), id) != windows.end();
            },
            500);
        if (listed)
            return true;
    }
    return false;
}

} // namespace

int main(int count, char** arguments) {
    ::testing::InitGoogleTest(&count, arguments);
    const QGuiApplication application(count, arguments);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    if (!windowsAreLookedAfter())
        return EXIT_FAILURE;
    return RUN_ALL_TESTS();
}
