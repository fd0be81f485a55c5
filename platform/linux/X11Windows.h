#pragma once

#include "platform/linux/XcbConnection.h"

#include <optional>
#include <string>
#include <vector>

/// What the window manager and the windows themselves say, asked in as few round trips as there
/// can be: all questions about all windows are sent before the first answer is read.
namespace brinmoor {

struct WindowOwner {
    xcb_window_t window = XCB_WINDOW_NONE;
    std::optional<std::int32_t> process; ///< as the window says, in its own sandbox's count
    std::string instance;                ///< the two halves of its class
    std::string windowClass;
};

struct WindowPlace {
    int layer = 0;                             ///< 0 for ordinary windows and dialogs
    bool onScreen = true;                      ///< not minimised and on the present virtual desktop
    std::optional<std::uint32_t> otherDesktop; ///< the desktop that it is on instead
};

/// The window with the focus; absent when none has it or no window manager tells.
[[nodiscard]] std::optional<xcb_window_t> activeWindow(const XcbConnection& connection);

/// All windows that the window manager looks after, oldest first.
[[nodiscard]] std::vector<xcb_window_t> clientWindows(const XcbConnection& connection);

/// The same, bottom to top; absent when no window manager tells.
[[nodiscard]] std::optional<std::vector<xcb_window_t>>
stackedWindows(const XcbConnection& connection);

/// In the order of `windows`.
[[nodiscard]] std::vector<WindowOwner> ownersOf(const XcbConnection& connection,
                                                const std::vector<xcb_window_t>& windows);
[[nodiscard]] std::vector<WindowPlace> placesOf(const XcbConnection& connection,
                                                const std::vector<xcb_window_t>& windows);

} // namespace brinmoor
