#pragma once

#include "platform/linux/XcbConnection.h"

#include <QObject>
#include <QSocketNotifier>

#include <functional>

namespace brinmoor {

/// Hands the events of a connection to `handle`, from the event loop of the main thread.
class XcbEvents : public QObject {
    Q_OBJECT

public:
    XcbEvents(xcb_connection_t* connection, std::function<void(const xcb_generic_event_t&)> handle);

private:
    void drain();

    xcb_connection_t* connection_;
    std::function<void(const xcb_generic_event_t&)> handle_;
    QSocketNotifier notifier_;
};

} // namespace brinmoor
