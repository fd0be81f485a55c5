#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace brinmoor::testing {

/// Lets events run until the condition holds; false when it still doesn't after `patience`.
template <class Condition>
[[nodiscard]] bool eventually(Condition holds, int patience = 10000) {
    const QDeadlineTimer deadline(patience);
    QTimer tick;
    tick.start(5);
    while (!holds()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return true;
}

/// Lets events run for a while: to see that nothing happens.
inline void letEventsRun(int milliseconds) {
    const QDeadlineTimer deadline(milliseconds);
    (void)eventually([&] { return deadline.hasExpired(); }, milliseconds + 1000);
}

} // namespace brinmoor::testing
