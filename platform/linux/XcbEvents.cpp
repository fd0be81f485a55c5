#include "platform/linux/XcbEvents.h"

#include <QAbstractEventDispatcher>

namespace brinmoor {

XcbEvents::XcbEvents(xcb_connection_t* connection,
                     std::function<void(const xcb_generic_event_t&)> handle)
    : connection_(connection), handle_(std::move(handle)),
      notifier_(xcb_get_file_descriptor(connection), QSocketNotifier::Read) {
    connect(&notifier_, &QSocketNotifier::activated, this, &XcbEvents::drain);
    // Waiting for a reply takes events off the socket too: they lie in the connection's queue and
    // the socket stays silent about them.
    if (auto* dispatcher = QAbstractEventDispatcher::instance())
        connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &XcbEvents::drain);
}

void XcbEvents::drain() {
    while (const XcbHeld<xcb_generic_event_t> event{xcb_poll_for_event(connection_)})
        handle_(*event);
    if (xcb_connection_has_error(connection_) != 0)
        notifier_.setEnabled(false);
}

} // namespace brinmoor
