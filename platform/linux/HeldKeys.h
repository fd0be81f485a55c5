#pragma once

#include "platform/linux/XcbConnection.h"

#include <cstdint>
#include <map>

namespace brinmoor {

/// Tells a key's press from its repetitions while it is held down. The server is asked for releases
/// only while a key is held, so that nothing wakes the program while the user types.
///
/// A server without the X Input Extension tells no releases: every repetition counts there.
class HeldKeys {
public:
    HeldKeys(xcb_connection_t* connection, xcb_window_t root);

    /// Whether a press at `time` (the server's milliseconds) begins a new hold of the key.
    [[nodiscard]] bool begins(xcb_keycode_t key, xcb_timestamp_t time);

    /// To be shown every event of the connection.
    void see(const xcb_generic_event_t& event);

private:
    void listen(std::uint32_t events);
    [[nodiscard]] bool isDown(xcb_keycode_t key) const;

    xcb_connection_t* connection_;
    xcb_window_t root_;
    std::uint8_t extension_ = 0; ///< 0 without the extension
    std::map<xcb_keycode_t, xcb_timestamp_t> held_;
};

} // namespace brinmoor
