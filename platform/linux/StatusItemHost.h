#pragma once

#include "platform/Observers.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

namespace brinmoor {

/// Whether the desktop has a place for status icons (the StatusNotifierItem specification of
/// freedesktop.org). Asked at the start without waiting, and followed: the program is often there
/// before the panel with that place, and the panel may be started anew. Main thread.
class StatusItemHost final : public QObject {
    Q_OBJECT

public:
    explicit StatusItemHost(QDBusConnection bus);

    [[nodiscard]] bool isThere() const noexcept { return there_; }
    [[nodiscard]] Subscription onChange(std::function<void()> changed);

private Q_SLOTS:
    void ask();

private:
    void settle(bool there);

    QDBusConnection bus_;
    QDBusServiceWatcher watcher_;
    bool there_ = false;
    Observers<> observers_;
};

} // namespace brinmoor
