#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct xcb_connection_t;

namespace brinmoor::testing {

/// Another program on the desktop with one window of its own, and the user's hands: what the
/// screens are tested against is what the X server and the window manager say.
class TestDesktop {
public:
    TestDesktop();
    ~TestDesktop();
    TestDesktop(const TestDesktop&) = delete;
    TestDesktop& operator=(const TestDesktop&) = delete;

    /// Shows the other program's window there, in front and with the keyboard.
    void showOther(int x, int y, int width, int height);
    [[nodiscard]] std::uint32_t otherWindow() const noexcept { return other_; }

    /// The window that the window manager calls active; 0 when there is none.
    [[nodiscard]] std::uint32_t activeWindow() const;
    /// The window that the server sends keys to, or one inside it.
    [[nodiscard]] std::uint32_t focusedWindow() const;
    /// Whether `upper` stands in front of `lower`; both are managed windows.
    [[nodiscard]] bool isAbove(std::uint32_t upper, std::uint32_t lower) const;

    /// Presses and lets go the key with this keysym, with the named modifiers ("Ctrl", "Shift",
    /// "Super").
    void press(std::uint32_t keysym, const std::vector<std::string_view>& held = {}) const;
    /// Types lower-case letters, digits, blanks and commas.
    void type(std::string_view text) const;
    void click(int x, int y) const;
    /// Presses and lets go another button: 3 is the right one, 4 to 7 are a wheel's notches up,
    /// down, to the left and to the right.
    void clickButton(std::uint8_t button, int x, int y) const;
    /// Presses at a place and moves on sideways or up and down before letting go.
    void drag(int x, int y, int byX, int byY) const;
    void movePointer(int x, int y) const;

    /// Says to every program that windows are composited, until the desktop goes.
    void pretendCompositing() const;

private:
    [[nodiscard]] std::uint32_t atom(std::string_view name) const;
    [[nodiscard]] std::vector<std::uint32_t> rootNumbers(std::string_view property) const;
    [[nodiscard]] std::uint8_t keycode(std::uint32_t keysym) const;
    void fake(std::uint8_t type, std::uint8_t detail, int x = 0, int y = 0) const;

    xcb_connection_t* connection_;
    std::uint32_t root_ = 0;
    std::uint32_t other_ = 0;
};

namespace Key {
inline constexpr std::uint32_t escape = 0xff1b;
inline constexpr std::uint32_t enter = 0xff0d;
inline constexpr std::uint32_t tab = 0xff09;
inline constexpr std::uint32_t space = 0x20;
inline constexpr std::uint32_t up = 0xff52;
inline constexpr std::uint32_t down = 0xff54;
inline constexpr std::uint32_t menu = 0xff67;
inline constexpr std::uint32_t f10 = 0xffc7;
inline constexpr std::uint32_t del = 0xffff;
inline constexpr std::uint32_t letterA = 0x61;
} // namespace Key

} // namespace brinmoor::testing
