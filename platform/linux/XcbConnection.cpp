#include "platform/linux/XcbConnection.h"

#include <array>
#include <utility>

namespace brinmoor {
namespace {

using AtomField = xcb_atom_t XcbAtoms::*;

constexpr std::array<std::pair<AtomField, std::string_view>, 20> atomNames{{
    {&XcbAtoms::netActiveWindow, "_NET_ACTIVE_WINDOW"},
    {&XcbAtoms::netClientList, "_NET_CLIENT_LIST"},
    {&XcbAtoms::netClientListStacking, "_NET_CLIENT_LIST_STACKING"},
    {&XcbAtoms::netCurrentDesktop, "_NET_CURRENT_DESKTOP"},
    {&XcbAtoms::netWmDesktop, "_NET_WM_DESKTOP"},
    {&XcbAtoms::netWmPid, "_NET_WM_PID"},
    {&XcbAtoms::netWmState, "_NET_WM_STATE"},
    {&XcbAtoms::netWmStateAbove, "_NET_WM_STATE_ABOVE"},
    {&XcbAtoms::netWmStateHidden, "_NET_WM_STATE_HIDDEN"},
    {&XcbAtoms::netWmStateSkipPager, "_NET_WM_STATE_SKIP_PAGER"},
    {&XcbAtoms::netWmStateSkipTaskbar, "_NET_WM_STATE_SKIP_TASKBAR"},
    {&XcbAtoms::netWmStateSticky, "_NET_WM_STATE_STICKY"},
    {&XcbAtoms::netWmUserTime, "_NET_WM_USER_TIME"},
    {&XcbAtoms::netWmWindowType, "_NET_WM_WINDOW_TYPE"},
    {&XcbAtoms::netWmWindowTypeDesktop, "_NET_WM_WINDOW_TYPE_DESKTOP"},
    {&XcbAtoms::netWmWindowTypeDialog, "_NET_WM_WINDOW_TYPE_DIALOG"},
    {&XcbAtoms::netWmWindowTypeDock, "_NET_WM_WINDOW_TYPE_DOCK"},
    {&XcbAtoms::netWmWindowTypeNormal, "_NET_WM_WINDOW_TYPE_NORMAL"},
    {&XcbAtoms::netWmWindowTypeNotification, "_NET_WM_WINDOW_TYPE_NOTIFICATION"},
    {&XcbAtoms::netWmWindowTypeUtility, "_NET_WM_WINDOW_TYPE_UTILITY"},
}};

/// The longest property that is read, in 32-bit units: a client list of 16,384 windows.
constexpr std::uint32_t longestProperty = 16384;

} // namespace

XcbAtoms internAtoms(xcb_connection_t* connection) {
    std::array<xcb_intern_atom_cookie_t, atomNames.size()> cookies{};
    for (std::size_t i = 0; i < atomNames.size(); ++i) {
        const auto name = atomNames[i].second;
        cookies[i] =
            xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    }
    XcbAtoms atoms;
    for (std::size_t i = 0; i < atomNames.size(); ++i) {
        const XcbHeld<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(connection, cookies[i], nullptr));
        if (reply)
            atoms.*(atomNames[i].first) = reply->atom;
    }
    return atoms;
}

xcb_window_t rootWindow(xcb_connection_t* connection, int screen) {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 1 && screen > 0; --screen)
        xcb_screen_next(&screens);
    return screens.rem > 0 ? screens.data->root : xcb_window_t{XCB_WINDOW_NONE};
}

std::unique_ptr<XcbConnection> XcbConnection::open() {
    int screen = 0;
    auto* connection = xcb_connect(nullptr, &screen);
    if (xcb_connection_has_error(connection) != 0) {
        xcb_disconnect(connection);
        return nullptr;
    }
    return std::unique_ptr<XcbConnection>(new XcbConnection(connection, screen));
}

XcbConnection::XcbConnection(xcb_connection_t* connection, int screen)
    : connection_(connection), root_(rootWindow(connection, screen)),
      atoms_(internAtoms(connection)) {}

XcbConnection::~XcbConnection() {
    xcb_disconnect(connection_);
}

XcbProperty::XcbProperty(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property)
    : connection_(connection),
      cookie_(xcb_get_property(connection, 0, window, property, XCB_ATOM_ANY, 0, longestProperty)) {
}

XcbHeld<xcb_get_property_reply_t> XcbProperty::reply() {
    xcb_generic_error_t* error = nullptr;
    XcbHeld<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection_, cookie_, &error));
    // A window that went away in between is an ordinary answer: it has no properties.
    const XcbHeld<xcb_generic_error_t> held(error);
    return reply;
}

std::optional<std::vector<std::uint32_t>> XcbProperty::numbersIfSet() {
    const auto held = reply();
    if (!held || held->format != 32)
        return std::nullopt;
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(held.get()));
    return std::vector<std::uint32_t>(first, first + held->value_len);
}

std::vector<std::uint32_t> XcbProperty::numbers() {
    return numbersIfSet().value_or(std::vector<std::uint32_t>());
}

std::string XcbProperty::bytes() {
    const auto held = reply();
    if (!held || held->format != 8)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(held.get())), held->value_len};
}

void tellWindowManager(xcb_connection_t* connection, xcb_window_t root, xcb_window_t window,
                       xcb_atom_t type, const std::uint32_t (&data)[5]) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = type;
    for (std::size_t i = 0; i < 5; ++i)
        message.data.data32[i] = data[i];
    xcb_send_event(connection, 0, root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(connection);
}

} // namespace brinmoor
