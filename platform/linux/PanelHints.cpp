#include "platform/linux/PanelHints.h"

#include "platform/linux/XcbConnection.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <vector>

namespace brinmoor {
namespace {

constexpr std::uint32_t onAllDesktops = 0xFFFFFFFF;
/// Requests marked as coming from a pager are the user's own and are not held back.
constexpr std::uint32_t sourcePager = 2;
constexpr std::uint32_t sourceApplication = 1;
constexpr std::uint32_t stateAdd = 1;

/// Qt's own connection: a window that Qt has just made is known there in the right order.
xcb_connection_t* qtConnection() {
    const auto* application = qGuiApp;
    const auto* native =
        application ? application->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return native ? native->connection() : nullptr;
}

xcb_window_t firstRoot(xcb_connection_t* connection) {
    return rootWindow(connection, 0);
}

bool isShown(xcb_connection_t* connection, xcb_window_t window) {
    xcb_generic_error_t* error = nullptr;
    const XcbHeld<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        connection, xcb_get_window_attributes(connection, window), &error));
    const XcbHeld<xcb_generic_error_t> held(error);
    return attributes && attributes->map_state != XCB_MAP_STATE_UNMAPPED;
}

void setNumbers(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property,
                xcb_atom_t type, const std::vector<std::uint32_t>& numbers) {
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, property, type, 32,
                        static_cast<std::uint32_t>(numbers.size()), numbers.data());
}

std::array<xcb_atom_t, 4> panelStates(const XcbAtoms& atoms) {
    return {atoms.netWmStateAbove, atoms.netWmStateSticky, atoms.netWmStateSkipTaskbar,
            atoms.netWmStateSkipPager};
}

void prepareStates(xcb_connection_t* connection, xcb_window_t window, const XcbAtoms& atoms) {
    auto states = XcbProperty(connection, window, atoms.netWmState).numbers();
    for (const auto state : panelStates(atoms)) {
        if (std::find(states.begin(), states.end(), state) == states.end())
            states.push_back(state);
    }
    setNumbers(connection, window, atoms.netWmState, XCB_ATOM_ATOM, states);
    setNumbers(connection, window, atoms.netWmDesktop, XCB_ATOM_CARDINAL, {onAllDesktops});
}

void askForStates(xcb_connection_t* connection, xcb_window_t window, const XcbAtoms& atoms) {
    const auto root = firstRoot(connection);
    const auto states = panelStates(atoms);
    tellWindowManager(connection, root, window, atoms.netWmState,
                      {stateAdd, states[0], states[1], sourceApplication, 0});
    tellWindowManager(connection, root, window, atoms.netWmState,
                      {stateAdd, states[2], states[3], sourceApplication, 0});
    tellWindowManager(connection, root, window, atoms.netWmDesktop,
                      {onAllDesktops, sourcePager, 0, 0, 0});
}

/// WM_HINTS: the first word says which of the others count, the second is the input hint.
void refuseFocus(xcb_connection_t* connection, xcb_window_t window) {
    constexpr std::uint32_t inputHint = 1;
    auto hints = XcbProperty(connection, window, XCB_ATOM_WM_HINTS).numbers();
    hints.resize(9, 0);
    hints[0] |= inputHint;
    hints[1] = 0;
    setNumbers(connection, window, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, hints);
}

std::vector<std::uint32_t> windowTypes(PanelRole role, const XcbAtoms& atoms) {
    if (role == PanelRole::notification)
        return {atoms.netWmWindowTypeNotification, atoms.netWmWindowTypeUtility};
    return {atoms.netWmWindowTypeUtility};
}

} // namespace

namespace onConnection {

void applyPanelHints(xcb_connection_t* connection, std::uint32_t window, PanelRole role,
                     PanelFocus focus) {
    const auto atoms = internAtoms(connection);
    setNumbers(connection, window, atoms.netWmWindowType, XCB_ATOM_ATOM, windowTypes(role, atoms));
    if (focus == PanelFocus::never) {
        refuseFocus(connection, window);
        setNumbers(connection, window, atoms.netWmUserTime, XCB_ATOM_CARDINAL, {0});
    }
    if (isShown(connection, window))
        askForStates(connection, window, atoms);
    else
        prepareStates(connection, window, atoms);
    xcb_flush(connection);
}

void setUserTime(xcb_connection_t* connection, std::uint32_t window, std::uint32_t timestamp) {
    const auto atoms = internAtoms(connection);
    setNumbers(connection, window, atoms.netWmUserTime, XCB_ATOM_CARDINAL, {timestamp});
    xcb_flush(connection);
}

void activateWindow(xcb_connection_t* connection, std::uint32_t window, std::uint32_t timestamp) {
    const auto atoms = internAtoms(connection);
    tellWindowManager(connection, firstRoot(connection), window, atoms.netActiveWindow,
                      {sourcePager, timestamp, 0, 0, 0});
}

} // namespace onConnection

void applyPanelHints(std::uint32_t window, PanelRole role, PanelFocus focus) {
    if (auto* connection = qtConnection())
        onConnection::applyPanelHints(connection, window, role, focus);
}

void setUserTime(std::uint32_t window, std::uint32_t timestamp) {
    if (auto* connection = qtConnection())
        onConnection::setUserTime(connection, window, timestamp);
}

void activateWindow(std::uint32_t window, std::uint32_t timestamp) {
    if (auto* connection = qtConnection())
        onConnection::activateWindow(connection, window, timestamp);
}

} // namespace brinmoor
