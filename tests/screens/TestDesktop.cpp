#include "tests/screens/TestDesktop.h"

#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace brinmoor::testing {

namespace {

struct Freed {
    void operator()(void* memory) const { std::free(memory); }
};
template <class Reply>
using Held = std::unique_ptr<Reply, Freed>;

constexpr std::uint32_t controlLeft = 0xffe3;
constexpr std::uint32_t shiftLeft = 0xffe1;
constexpr std::uint32_t superLeft = 0xffeb;

std::uint32_t modifierKey(std::string_view name) {
    if (name == "Super")
        return superLeft;
    return name == "Ctrl" ? controlLeft : shiftLeft;
}

} // namespace

TestDesktop::TestDesktop() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_))
        throw std::runtime_error("no display");
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
}

TestDesktop::~TestDesktop() {
    xcb_disconnect(connection_);
}

void TestDesktop::showOther(int x, int y, int width, int height) {
    other_ = xcb_generate_id(connection_);
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, other_, root_, std::int16_t(x),
                      std::int16_t(y), std::uint16_t(width), std::uint16_t(height), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    // A place that the user chose: flags, then the numbers that no program reads any more.
    const std::uint32_t hints[18] = {1};
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, other_, XCB_ATOM_WM_NORMAL_HINTS,
                        XCB_ATOM_WM_SIZE_HINTS, 32, 18, hints);
    xcb_map_window(connection_, other_);
    xcb_flush(connection_);
}

std::uint32_t TestDesktop::atom(std::string_view name) const {
    const auto request = xcb_intern_atom(connection_, 0, std::uint16_t(name.size()), name.data());
    const Held<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, request, nullptr));
    return reply->atom;
}

std::vector<std::uint32_t> TestDesktop::rootNumbers(std::string_view property) const {
    const auto request =
        xcb_get_property(connection_, 0, root_, atom(property), XCB_ATOM_ANY, 0, 1024);
    const Held<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection_, request, nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto* numbers = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {numbers, numbers + reply->value_len};
}

std::uint32_t TestDesktop::activeWindow() const {
    const auto numbers = rootNumbers("_NET_ACTIVE_WINDOW");
    return numbers.empty() ? 0 : numbers.front();
}

std::uint32_t TestDesktop::focusedWindow() const {
    const Held<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
    return reply->focus;
}

bool TestDesktop::isAbove(std::uint32_t upper, std::uint32_t lower) const {
    const auto order = rootNumbers("_NET_CLIENT_LIST_STACKING");
    const auto upperAt = std::ranges::find(order, upper);
    const auto lowerAt = std::ranges::find(order, lower);
    return upperAt != order.end() && lowerAt != order.end() && upperAt > lowerAt;
}

std::uint8_t TestDesktop::keycode(std::uint32_t keysym) const {
    const xcb_setup_t* setup = xcb_get_setup(connection_);
    const auto count = std::uint8_t(setup->max_keycode - setup->min_keycode + 1);
    const auto request = xcb_get_keyboard_mapping(connection_, setup->min_keycode, count);
    const Held<xcb_get_keyboard_mapping_reply_t> reply(
        xcb_get_keyboard_mapping_reply(connection_, request, nullptr));
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
    for (int at = 0; at < count; ++at)
        if (symbols[at * reply->keysyms_per_keycode] == keysym)
            return std::uint8_t(setup->min_keycode + at);
    throw std::runtime_error("no such key");
}

void TestDesktop::fake(std::uint8_t type, std::uint8_t detail, int x, int y) const {
    xcb_test_fake_input(connection_, type, detail, XCB_CURRENT_TIME, root_, std::int16_t(x),
                        std::int16_t(y), 0);
    static_cast<void>(focusedWindow()); // an answer says that the server is done with it
}

void TestDesktop::press(std::uint32_t keysym, const std::vector<std::string_view>& held) const {
    for (const std::string_view name : held)
        fake(XCB_KEY_PRESS, keycode(modifierKey(name)));
    fake(XCB_KEY_PRESS, keycode(keysym));
    fake(XCB_KEY_RELEASE, keycode(keysym));
    for (const std::string_view name : held)
        fake(XCB_KEY_RELEASE, keycode(modifierKey(name)));
}

void TestDesktop::type(std::string_view text) const {
    for (const char character : text)
        press(static_cast<unsigned char>(character));
}

void TestDesktop::movePointer(int x, int y) const {
    fake(XCB_MOTION_NOTIFY, 0, x, y);
}

void TestDesktop::click(int x, int y) const {
    clickButton(1, x, y);
}

void TestDesktop::clickButton(std::uint8_t button, int x, int y) const {
    movePointer(x, y);
    fake(XCB_BUTTON_PRESS, button);
    fake(XCB_BUTTON_RELEASE, button);
}

void TestDesktop::drag(int x, int y, int byX, int byY) const {
    constexpr int steps = 10;
    movePointer(x, y);
    fake(XCB_BUTTON_PRESS, 1);
    for (int step = 1; step <= steps; ++step)
        movePointer(x + byX * step / steps, y + byY * step / steps);
    fake(XCB_BUTTON_RELEASE, 1);
}

void TestDesktop::pretendCompositing() const {
    const std::uint32_t owner = xcb_generate_id(connection_);
    xcb_create_window(connection_, 0, owner, root_, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_set_selection_owner(connection_, owner, atom("_NET_WM_CM_S0"), XCB_CURRENT_TIME);
    static_cast<void>(focusedWindow());
}

} // namespace brinmoor::testing
