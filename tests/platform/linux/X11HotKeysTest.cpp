#include "platform/linux/X11HotKeys.h"

#include "core/capture/CaptureShortcut.h"
#include "platform/linux/HardwareKeys.h"
#include "tests/platform/linux/EventLoop.h"
#include "tests/platform/linux/TestKeyboard.h"

#include <gmock/gmock.h>

#include <vector>

using namespace brinmoor;
using namespace brinmoor::testing;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr std::uint32_t command = ShortcutModifier::command;
constexpr std::uint32_t shift = ShortcutModifier::shift;
constexpr std::uint32_t option = ShortcutModifier::option;
constexpr std::uint32_t control = ShortcutModifier::control;
constexpr std::uint32_t keyK = 40;
constexpr std::uint32_t keyO = 31;

class X11HotKeysTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(keys, nullptr) << "these tests need an X server";
        keys->pressed = [this](std::uint32_t id) { heard.push_back(id); };
        keys->lost = [this](std::uint32_t id) { gone.push_back(id); };
    }

    /// Presses a combination that is always free, so that everything before it has been heard.
    [[nodiscard]] bool allHeard() {
        constexpr std::uint32_t last = 999;
        if (!keys->registerHotKey(49, control | option | command, last))
            return false;
        keyboard.chord({XKey::controlLeft, XKey::altLeft, XKey::superLeft}, XKey::space);
        const bool arrived = eventually([&] { return !heard.empty() && heard.back() == last; });
        keys->unregisterHotKey(last);
        if (arrived)
            heard.pop_back();
        return arrived;
    }

    TestKeyboard keyboard;
    std::unique_ptr<X11HotKeys> keys = X11HotKeys::open();
    std::vector<std::uint32_t> heard;
    std::vector<std::uint32_t> gone;
};

} // namespace

TEST(HardwareKeys, theStoredKeysStandWhereTheKernelHasThem) {
    struct Row {
        std::uint32_t stored;
        std::uint32_t position;
        std::string_view name;
    };
    for (const auto& row : {Row{40, 37, "k"}, Row{31, 24, "o"}, Row{2, 32, "d"}, Row{45, 49, "n"},
                            Row{49, 57, "space"}, Row{0, 30, "a"}, Row{22, 7, "6"}, Row{23, 6, "5"},
                            Row{122, 59, "F1"}, Row{126, 103, "Up"}}) {
        const auto key = hardwareKey(row.stored);
        ASSERT_TRUE(key.has_value());
        EXPECT_EQ(key->position, row.position);
        EXPECT_EQ(key->name, row.name);
    }
    EXPECT_EQ(hardwareKey(52), std::nullopt);
    EXPECT_EQ(hardwareKey(4000), std::nullopt);
}

TEST(HardwareKeys, everyKeyHasOnePlaceAndBothWaysAgree) {
    int found = 0;
    for (std::uint32_t stored = 0; stored < 128; ++stored) {
        const auto key = hardwareKey(stored);
        if (!key)
            continue;
        ++found;
        const auto back = hardwareKeyAtXKey(key->position + xKeyOffset);
        ASSERT_TRUE(back.has_value());
        EXPECT_EQ(back->virtualKeyCode, stored);
    }
    EXPECT_GE(found, 100);
}

TEST_F(X11HotKeysTest, aPressIsToldUnderItsNumber) {
    ASSERT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    ASSERT_TRUE(keys->registerHotKey(keyK, option | command, 2));
    ASSERT_TRUE(keys->registerHotKey(keyK, control | shift | command, 3));
    ASSERT_TRUE(keys->registerHotKey(keyK, option | shift | command, 4));
    ASSERT_TRUE(keys->registerHotKey(keyO, shift | command, 5));
    keyboard.chord({XKey::shiftLeft, XKey::superLeft}, XKey::letterO);
    keyboard.chord({XKey::altLeft, XKey::shiftLeft, XKey::superLeft}, XKey::letterK);
    keyboard.chord({XKey::controlLeft, XKey::shiftLeft, XKey::superLeft}, XKey::letterK);
    keyboard.chord({XKey::altLeft, XKey::superLeft}, XKey::letterK);
    keyboard.chord({XKey::shiftLeft, XKey::superLeft}, XKey::letterK);
    ASSERT_TRUE(allHeard());
    EXPECT_THAT(heard, ElementsAre(5, 4, 3, 2, 1));
    EXPECT_NE(keys->lastPressTime(), 0U);
}

TEST_F(X11HotKeysTest, otherModifiersAreNotHeard) {
    ASSERT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    keyboard.chord({XKey::superLeft}, XKey::letterK);
    keyboard.chord({XKey::shiftLeft}, XKey::letterK);
    keyboard.chord({XKey::controlLeft, XKey::shiftLeft, XKey::superLeft}, XKey::letterK);
    keyboard.tap(XKey::letterK);
    ASSERT_TRUE(allHeard());
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(X11HotKeysTest, locksChangeNothing) {
    ASSERT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    for (const auto lock : {XKey::capsLock, XKey::numLock}) {
        keyboard.tap(lock);
        keyboard.chord({XKey::shiftLeft, XKey::superLeft}, XKey::letterK);
    }
    keyboard.tap(XKey::capsLock);
    keyboard.chord({XKey::shiftLeft, XKey::superLeft}, XKey::letterK);
    keyboard.tap(XKey::numLock);
    ASSERT_TRUE(allHeard());
    EXPECT_THAT(heard, ElementsAre(1, 1, 1));
}

TEST_F(X11HotKeysTest, aHeldKeyIsOnePress) {
    ASSERT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    keyboard.down(XKey::shiftLeft);
    keyboard.down(XKey::superLeft);
    keyboard.down(XKey::letterK);
    // Longer than the server waits before it repeats a key, so that there are repetitions to leave
    // out.
    letEventsRun(1500);
    EXPECT_THAT(heard, ElementsAre(1));
    keyboard.up(XKey::letterK);
    keyboard.tap(XKey::letterK);
    keyboard.tap(XKey::letterK);
    keyboard.up(XKey::superLeft);
    keyboard.up(XKey::shiftLeft);
    ASSERT_TRUE(allHeard());
    EXPECT_THAT(heard, ElementsAre(1, 1, 1));
}

TEST_F(X11HotKeysTest, aHeldKeyLeavesTheKeyboardToOthers) {
    ASSERT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    keyboard.down(XKey::shiftLeft);
    keyboard.down(XKey::superLeft);
    keyboard.down(XKey::letterK);
    ASSERT_TRUE(eventually([&] { return !heard.empty(); }));
    const auto other = XcbConnection::open();
    const XcbHeld<xcb_grab_keyboard_reply_t> grabbed(
        xcb_grab_keyboard_reply(other->get(),
                                xcb_grab_keyboard(other->get(), 0, other->root(), XCB_CURRENT_TIME,
                                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                nullptr));
    EXPECT_EQ(grabbed->status, XCB_GRAB_STATUS_SUCCESS);
    keyboard.up(XKey::letterK);
    keyboard.up(XKey::superLeft);
    keyboard.up(XKey::shiftLeft);
}

TEST_F(X11HotKeysTest, aCombinationThatAnotherClientHoldsIsRefusedWhole) {
    const auto other = XcbConnection::open();
    // Only with Caps Lock: refused all the same, since half a hot key is none.
    const auto mask = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_4 | XCB_MOD_MASK_LOCK;
    const XcbHeld<xcb_generic_error_t> error(xcb_request_check(
        other->get(),
        xcb_grab_key_checked(other->get(), 0, other->root(), static_cast<std::uint16_t>(mask),
                             XKey::letterK, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
    ASSERT_EQ(error, nullptr);
    EXPECT_FALSE(keys->registerHotKey(keyK, shift | command, 1));
    EXPECT_TRUE(keys->registerHotKey(keyO, shift | command, 5));

    const auto rest = X11HotKeys::open();
    EXPECT_FALSE(rest->registerHotKey(keyK, shift | command, 1));
    keyboard.chord({XKey::shiftLeft, XKey::superLeft}, XKey::letterK);
    ASSERT_TRUE(allHeard());
    EXPECT_THAT(heard, IsEmpty()) << "what could be grabbed was let go again";
}

TEST_F(X11HotKeysTest, twoCopiesOfTheProgramDoNotShareAHotKey) {
    ASSERT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    auto copy = X11HotKeys::open();
    EXPECT_FALSE(copy->registerHotKey(keyK, shift | command, 1));
    keys->unregisterHotKey(1);
    EXPECT_TRUE(eventually([&] { return copy->registerHotKey(keyK, shift | command, 1); }));
    copy.reset();
    EXPECT_TRUE(eventually([&] { return keys->registerHotKey(keyK, shift | command, 1); }));
}

TEST_F(X11HotKeysTest, oneCombinationHasOneNumber) {
    ASSERT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    EXPECT_FALSE(keys->registerHotKey(keyK, shift | command, 2));
    EXPECT_TRUE(keys->registerHotKey(keyK, shift | command, 1)) << "the same number again";
}

TEST_F(X11HotKeysTest, anUnregisteredKeyIsNotHeard) {
    ASSERT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    keys->unregisterHotKey(1);
    keys->unregisterHotKey(1);
    keyboard.chord({XKey::shiftLeft, XKey::superLeft}, XKey::letterK);
    ASSERT_TRUE(allHeard());
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(X11HotKeysTest, keysThatTheKeyboardLacksAreRefused) {
    EXPECT_FALSE(keys->registerHotKey(52, command, 1));
    EXPECT_FALSE(keys->registerHotKey(4000, command, 1));
}

TEST_F(X11HotKeysTest, aKeyKeepsItsPlaceWhenTheLayoutChanges) {
    ASSERT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    const TestLayout layout({QStringLiteral("-layout"), QStringLiteral("ru")});
    letEventsRun(100);
    keyboard.chord({XKey::shiftLeft, XKey::superLeft}, XKey::letterK);
    ASSERT_TRUE(allHeard());
    EXPECT_THAT(heard, ElementsAre(1));
    EXPECT_THAT(gone, IsEmpty());
}

TEST_F(X11HotKeysTest, aSecondLayoutInUseChangesNothing) {
    const TestLayout layout({QStringLiteral("-layout"), QStringLiteral("us,ru"),
                             QStringLiteral("-option"), QStringLiteral("grp:menu_toggle")});
    letEventsRun(100);
    ASSERT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    constexpr xcb_keycode_t menuKey = 135;
    keyboard.tap(menuKey);
    keyboard.chord({XKey::shiftLeft, XKey::superLeft}, XKey::letterK);
    ASSERT_TRUE(allHeard());
    EXPECT_THAT(heard, ElementsAre(1));
    keyboard.tap(menuKey);
}

TEST_F(X11HotKeysTest, modifiersAreFoundWhereTheLayoutPutsThem) {
    ASSERT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    // Alt and Super change places: the key that was Super is Alt now.
    const TestLayout layout({QStringLiteral("-layout"), QStringLiteral("us"),
                             QStringLiteral("-option"), QStringLiteral("altwin:swap_alt_win")});
    letEventsRun(100);
    keyboard.chord({XKey::shiftLeft, XKey::superLeft}, XKey::letterK);
    keyboard.chord({XKey::shiftLeft, XKey::altLeft}, XKey::letterK);
    letEventsRun(100);
    EXPECT_THAT(heard, ElementsAre(1));
}
