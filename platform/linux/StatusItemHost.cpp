#include "platform/linux/StatusItemHost.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <utility>

namespace brinmoor {
namespace {

QString watcherService() {
    return QStringLiteral("org.kde.StatusNotifierWatcher");
}
QString watcherPath() {
    return QStringLiteral("/StatusNotifierWatcher");
}

} // namespace

StatusItemHost::StatusItemHost(QDBusConnection bus)
    : bus_(std::move(bus)), watcher_(watcherService(), bus_) {
    if (!bus_.isConnected())
        return;
    connect(&watcher_, &QDBusServiceWatcher::serviceRegistered, this, [this] { ask(); });
    connect(&watcher_, &QDBusServiceWatcher::serviceUnregistered, this, [this] { settle(false); });
    for (const QString& told : {QStringLiteral("StatusNotifierHostRegistered"),
                                QStringLiteral("StatusNotifierHostUnregistered")})
        bus_.connect(watcherService(), watcherPath(), watcherService(), told, this, SLOT(ask()));
    ask();
}

Subscription StatusItemHost::onChange(std::function<void()> changed) {
    return observers_.add(std::move(changed));
}

void StatusItemHost::ask() {
    auto call = QDBusMessage::createMethodCall(watcherService(), watcherPath(),
                                               QStringLiteral("org.freedesktop.DBus.Properties"),
                                               QStringLiteral("Get"));
    call << watcherService() << QStringLiteral("IsStatusNotifierHostRegistered");
    call.setAutoStartService(false);
    auto* answer = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        settle(reply.isValid() && reply.value().variant().toBool());
    });
}

void StatusItemHost::settle(bool there) {
    if (std::exchange(there_, there) != there)
        observers_.tell();
}

} // namespace brinmoor
