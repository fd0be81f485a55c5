// In a desktop of its own: the window manager, too, reads the keyboard anew at each change, and is
// busy with that for a while.

#include "core/capture/CaptureShortcut.h"
#include "platform/linux/X11HotKeys.h"
#include "tests/platform/linux/EventLoop.h"
#include "tests/platform/linux/TestKeyboard.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include <X11/keysym.h>

namespace brinmoor::testing {
namespace {

TEST(KeyboardChange, losesNoPressOfAHotKeyThatStaysWhereItIs) {
    // As when the first key of another keyboard is pressed: the server tells of a change with it.
    constexpr int presses = 300;
    constexpr std::uint32_t keyK = 40;
    const auto keys = X11HotKeys::open();
    ASSERT_NE(keys, nullptr) << "this test needs an X server";
    int heard = 0;
    keys->pressed = [&](std::uint32_t) { ++heard; };
    ASSERT_TRUE(keys->registerHotKey(keyK, ShortcutModifier::shift | ShortcutModifier::command, 1));
    std::atomic<bool> over = false;
    std::thread user([&] {
        const TestKeyboard keyboard;
        for (int press = 0; press < presses; ++press) {
            constexpr xcb_keycode_t unused = 251;
            const xcb_keysym_t meaning = press % 2 == 0 ? XK_A : XK_B;
            xcb_change_keyboard_mapping(keyboard.connection().get(), 1, unused, 1, &meaning);
            keyboard.chord({XKey::shiftLeft, XKey::superLeft}, XKey::letterK);
            std::this_thread::sleep_for(std::chrono::microseconds(4000 + press % 7 * 300));
        }
        over = true;
    });
    EXPECT_TRUE(eventually([&] { return over && heard == presses; }));
    user.join();
    EXPECT_EQ(heard, presses);
}

} // namespace
} // namespace brinmoor::testing
