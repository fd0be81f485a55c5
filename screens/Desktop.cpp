#include "screens/Desktop.h"

#include <QGuiApplication>

#include <xcb/shape.h>
#include <xcb/xcb.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

namespace brinmoor::Desktop {

namespace {

struct Freed {
    void operator()(void* memory) const { std::free(memory); }
};
template <class Reply>
using Held = std::unique_ptr<Reply, Freed>;

/// Qt's own connection, where requests for Qt's windows keep their order; nullptr off X11.
xcb_connection_t* connection() {
    const auto* native =
        qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return native ? native->connection() : nullptr;
}

xcb_atom_t atom(xcb_connection_t* server, const std::string& name) {
    const auto request = xcb_intern_atom(server, 0, std::uint16_t(name.size()), name.c_str());
    const Held<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(server, request, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

std::int16_t scaled(int length, qreal density) {
    return std::int16_t(std::lround(length * density));
}

} // namespace

bool showsThroughWindows() {
    xcb_connection_t* server = connection();
    if (!server)
        return true;
    const auto request = xcb_get_selection_owner(server, atom(server, "_NET_WM_CM_S0"));
    const Held<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(server, request, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

void limitInput(const QWindow& window, const QRect& area) {
    xcb_connection_t* server = connection();
    if (!server)
        return;
    const qreal density = window.devicePixelRatio();
    const xcb_rectangle_t rectangle{scaled(area.x(), density), scaled(area.y(), density),
                                    std::uint16_t(scaled(area.width(), density)),
                                    std::uint16_t(scaled(area.height(), density))};
    xcb_shape_rectangles(server, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED,
                         xcb_window_t(window.winId()), 0, 0, 1, &rectangle);
    xcb_flush(server);
}

bool keepsKeyboard(const QWindow& window) {
    xcb_connection_t* server = connection();
    if (!server)
        return false;
    const Held<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr));
    return reply && reply->focus == xcb_window_t(window.winId());
}

} // namespace brinmoor::Desktop
