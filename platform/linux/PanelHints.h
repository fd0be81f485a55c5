#pragma once

#include <cstdint>

struct xcb_connection_t;

/// What a window of this program asks of an X11 window manager beyond what Qt's flags say. Every
/// function does nothing off X11, where the window number means something else. Main thread.
namespace brinmoor {

enum class PanelRole {
    utility,      ///< a small tool window
    notification, ///< a passing message
};

enum class PanelFocus {
    takes, ///< the keyboard focus may go there
    never, ///< neither showing nor clicking it moves the focus
};

/// Makes the window a panel: above ordinary windows, on all virtual desktops, beside full-screen
/// windows, in no task bar and no pager. Call it after QWindow::create() and before the window is
/// shown; on a shown window the window manager is asked instead.
void applyPanelHints(std::uint32_t window, PanelRole role, PanelFocus focus);

/// Says when the user last acted on behalf of the window (the X server's time in milliseconds); 0
/// asks that showing it doesn't take the focus.
void setUserTime(std::uint32_t window, std::uint32_t timestamp);

/// Brings the window forward and gives it the focus, whichever program has it: what a pager does.
/// `timestamp` is that of the key press or click behind it, 0 when there was none.
void activateWindow(std::uint32_t window, std::uint32_t timestamp);

/// The same over a connection of the caller's choice.
namespace onConnection {
void applyPanelHints(xcb_connection_t* connection, std::uint32_t window, PanelRole role,
                     PanelFocus focus);
void setUserTime(xcb_connection_t* connection, std::uint32_t window, std::uint32_t timestamp);
void activateWindow(xcb_connection_t* connection, std::uint32_t window, std::uint32_t timestamp);
} // namespace onConnection

} // namespace brinmoor
