#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>

#include <chrono>

namespace brinmoor::testing {

/// Runs the event loop until `condition` holds; false when it didn't within `limit`.
template <class Condition>
[[nodiscard]] bool waitUntil(Condition condition,
                             std::chrono::milliseconds limit = std::chrono::seconds(10)) {
    const QDeadlineTimer deadline(limit);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 5);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

/// Runs what is already waiting in the event loop, until nothing more comes.
inline void settle() {
    for (int turn = 0; turn < 20; ++turn) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    }
}

} // namespace brinmoor::testing
