#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brinmoor {

struct FreeReply {
    void operator()(void* reply) const noexcept { std::free(reply); }
};

/// A reply, an error or an event of the X server, freed with its holder.
template <class T>
using XcbHeld = std::unique_ptr<T, FreeReply>;

/// The atoms that this program speaks of.
struct XcbAtoms {
    xcb_atom_t netActiveWindow = XCB_ATOM_NONE;
    xcb_atom_t netClientList = XCB_ATOM_NONE;
    xcb_atom_t netClientListStacking = XCB_ATOM_NONE;
    xcb_atom_t netCurrentDesktop = XCB_ATOM_NONE;
    xcb_atom_t netWmDesktop = XCB_ATOM_NONE;
    xcb_atom_t netWmPid = XCB_ATOM_NONE;
    xcb_atom_t netWmState = XCB_ATOM_NONE;
    xcb_atom_t netWmStateAbove = XCB_ATOM_NONE;
    xcb_atom_t netWmStateHidden = XCB_ATOM_NONE;
    xcb_atom_t netWmStateSkipPager = XCB_ATOM_NONE;
    xcb_atom_t netWmStateSkipTaskbar = XCB_ATOM_NONE;
    xcb_atom_t netWmStateSticky = XCB_ATOM_NONE;
    xcb_atom_t netWmUserTime = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowType = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeDesktop = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeDialog = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeDock = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeNormal = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeNotification = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeUtility = XCB_ATOM_NONE;
};

/// Asks for all of them in one round trip.
[[nodiscard]] XcbAtoms internAtoms(xcb_connection_t* connection);

/// The root window of a screen, counted from 0.
[[nodiscard]] xcb_window_t rootWindow(xcb_connection_t* connection, int screen);

/// A connection to the X server of the program's own. Main thread.
class XcbConnection {
public:
    /// Nothing when no X server answers.
    [[nodiscard]] static std::unique_ptr<XcbConnection> open();
    ~XcbConnection();
    XcbConnection(const XcbConnection&) = delete;
    XcbConnection& operator=(const XcbConnection&) = delete;

    [[nodiscard]] xcb_connection_t* get() const { return connection_; }
    [[nodiscard]] xcb_window_t root() const { return root_; }
    [[nodiscard]] const XcbAtoms& atoms() const { return atoms_; }

private:
    XcbConnection(xcb_connection_t* connection, int screen);

    xcb_connection_t* connection_;
    xcb_window_t root_;
    XcbAtoms atoms_;
};

/// A property that has been asked for; the answer is read later, so that many questions share one
/// round trip. Every question must be answered or the reply is kept by the connection.
class XcbProperty {
public:
    XcbProperty(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property);

    /// 32-bit items; empty when the window is gone or has no such property.
    [[nodiscard]] std::vector<std::uint32_t> numbers();
    /// The same; absent when there is no such property.
    [[nodiscard]] std::optional<std::vector<std::uint32_t>> numbersIfSet();
    /// Bytes of an 8-bit property; empty likewise.
    [[nodiscard]] std::string bytes();

private:
    [[nodiscard]] XcbHeld<xcb_get_property_reply_t> reply();

    xcb_connection_t* connection_;
    xcb_get_property_cookie_t cookie_;
};

/// Sends a message about `window` to the window manager.
void tellWindowManager(xcb_connection_t* connection, xcb_window_t root, xcb_window_t window,
                       xcb_atom_t type, const std::uint32_t (&data)[5]);

} // namespace brinmoor
