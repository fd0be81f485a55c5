#pragma once

#include "platform/linux/XcbConnection.h"

#include <QProcess>

#include <vector>
#include <xcb/xtest.h>

namespace brinmoor::testing {

/// X key codes of the keys that tests press.
namespace XKey {
inline constexpr xcb_keycode_t comma = 59;
inline constexpr xcb_keycode_t escape = 9;
inline constexpr xcb_keycode_t letterK = 45;
inline constexpr xcb_keycode_t letterN = 57;
inline constexpr xcb_keycode_t letterO = 32;
inline constexpr xcb_keycode_t letterW = 25;
inline constexpr xcb_keycode_t space = 65;
inline constexpr xcb_keycode_t controlLeft = 37;
inline constexpr xcb_keycode_t shiftLeft = 50;
inline constexpr xcb_keycode_t altLeft = 64;
inline constexpr xcb_keycode_t superLeft = 133;
inline constexpr xcb_keycode_t capsLock = 66;
inline constexpr xcb_keycode_t numLock = 77;
} // namespace XKey

/// A user at the keyboard: real key presses, made by the server's test extension.
class TestKeyboard {
public:
    TestKeyboard() : connection_(XcbConnection::open()) {}

    void down(xcb_keycode_t key) const { event(XCB_KEY_PRESS, key); }
    void up(xcb_keycode_t key) const { event(XCB_KEY_RELEASE, key); }
    void tap(xcb_keycode_t key) const {
        down(key);
        up(key);
    }
    /// Presses `key` while the others are held.
    void chord(const std::vector<xcb_keycode_t>& held, xcb_keycode_t key) const {
        for (const auto modifier : held)
            down(modifier);
        tap(key);
        for (const auto modifier : held)
            up(modifier);
    }

    [[nodiscard]] XcbConnection& connection() const { return *connection_; }

private:
    void event(std::uint8_t type, xcb_keycode_t key) const {
        auto* connection = connection_->get();
        xcb_test_fake_input(connection, type, key, XCB_CURRENT_TIME, connection_->root(), 0, 0, 0);
        // The server has taken it when it has answered what was asked after it.
        const XcbHeld<xcb_get_input_focus_reply_t> answered(
            xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    }

    std::unique_ptr<XcbConnection> connection_;
};

/// The user's keyboard layout, put back at the end.
class TestLayout {
public:
    explicit TestLayout(const QStringList& arguments) { set(arguments); }
    ~TestLayout() { set({QStringLiteral("-layout"), QStringLiteral("us")}); }
    TestLayout(const TestLayout&) = delete;
    TestLayout& operator=(const TestLayout&) = delete;

private:
    static void set(QStringList arguments) {
        // Options add up unless they are cleared first.
        arguments.prepend(QString());
        arguments.prepend(QStringLiteral("-option"));
        QProcess::execute(QStringLiteral("setxkbmap"), arguments);
    }
};

} // namespace brinmoor::testing
