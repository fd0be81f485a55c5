#include "platform/linux/HeldKeys.h"

#include <xcb/xinput.h>

namespace brinmoor {
namespace {

/// Repetitions of a held key come closer than this. A later press is a new one even if the release
/// was never told, as may happen when the screen is switched away in between.
constexpr xcb_timestamp_t longestPause = 3000;

std::uint8_t inputExtension(xcb_connection_t* connection) {
    const auto* extension = xcb_get_extension_data(connection, &xcb_input_id);
    if (extension == nullptr || extension->present == 0)
        return 0;
    // From version 2.1 on, releases are told even while another client has grabbed the keyboard.
    constexpr std::uint16_t major = 2;
    constexpr std::uint16_t minor = 2;
    const XcbHeld<xcb_input_xi_query_version_reply_t> version(xcb_input_xi_query_version_reply(
        connection, xcb_input_xi_query_version(connection, major, minor), nullptr));
    return version && version->major_version >= major ? extension->major_opcode : std::uint8_t{0};
}

} // namespace

HeldKeys::HeldKeys(xcb_connection_t* connection, xcb_window_t root)
    : connection_(connection), root_(root), extension_(inputExtension(connection)) {}

bool HeldKeys::begins(xcb_keycode_t key, xcb_timestamp_t time) {
    const auto found = held_.find(key);
    if (found != held_.end()) {
        const bool repeated = time - found->second < longestPause;
        found->second = time;
        return !repeated;
    }
    if (extension_ == 0)
        return true;
    if (held_.empty())
        listen(XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE);
    // The key may have gone up before the server heard that we listen.
    if (isDown(key))
        held_.emplace(key, time);
    else if (held_.empty())
        listen(0);
    return true;
}

void HeldKeys::see(const xcb_generic_event_t& event) {
    if (held_.empty() || (event.response_type & 0x7f) != XCB_GE_GENERIC)
        return;
    const auto& release = reinterpret_cast<const xcb_input_raw_key_release_event_t&>(event);
    if (release.extension != extension_ || release.event_type != XCB_INPUT_RAW_KEY_RELEASE)
        return;
    held_.erase(static_cast<xcb_keycode_t>(release.detail));
    if (held_.empty())
        listen(0);
}

void HeldKeys::listen(std::uint32_t events) {
    struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } const selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, events};
    xcb_input_xi_select_events(connection_, root_, 1, &selection.head);
    xcb_flush(connection_);
}

bool HeldKeys::isDown(xcb_keycode_t key) const {
    const XcbHeld<xcb_query_keymap_reply_t> map(
        xcb_query_keymap_reply(connection_, xcb_query_keymap(connection_), nullptr));
    return map && (map->keys[key / 8] & (1U << (key % 8))) != 0;
}

} // namespace brinmoor
