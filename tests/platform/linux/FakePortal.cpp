#include "tests/platform/linux/FakePortal.h"

#include <QDBusMetaType>
#include <QTimer>

namespace brinmoor::testing {
namespace {

const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const auto connectionName = QStringLiteral("fake-portal");

} // namespace

FakePortal::FakePortal()
    : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName)) {
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<PortalShortcuts>();
    moveToThread(&thread_);
    thread_.start();
    bus_.registerObject(portalPath, this,
                        QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties);
    bus_.registerService(portalService);
}

FakePortal::~FakePortal() {
    bus_.unregisterService(portalService);
    bus_.unregisterObject(portalPath, QDBusConnection::UnregisterTree);
    thread_.quit();
    thread_.wait();
    QDBusConnection::disconnectFromBus(connectionName);
}

void FakePortal::refuse(const QString& id) {
    const std::lock_guard lock(mutex_);
    refused_.insert(id);
}

void FakePortal::refuseEverything() {
    const std::lock_guard lock(mutex_);
    refuseAll_ = true;
}

void FakePortal::press(const QString& id) {
    const std::lock_guard lock(mutex_);
    auto signal = QDBusMessage::createSignal(
        portalPath, QStringLiteral("org.freedesktop.portal.GlobalShortcuts"),
        QStringLiteral("Activated"));
    signal << QVariant::fromValue(QDBusObjectPath(session_)) << id << qulonglong(1)
           << QVariantMap();
    bus_.send(signal);
}

void FakePortal::endSession() {
    const std::lock_guard lock(mutex_);
    --openSessions_;
    bus_.send(QDBusMessage::createSignal(session_, QStringLiteral("org.freedesktop.portal.Session"),
                                         QStringLiteral("Closed")));
}

std::vector<PortalShortcuts> FakePortal::bound() const {
    const std::lock_guard lock(mutex_);
    return bound_;
}

int FakePortal::openSessions() const {
    const std::lock_guard lock(mutex_);
    return openSessions_;
}

QDBusObjectPath FakePortal::CreateSession(const QVariantMap& options) {
    const std::lock_guard lock(mutex_);
    session_ = portalPath + QStringLiteral("/session/client/") +
               options.value(QStringLiteral("session_handle_token")).toString();
    ++openSessions_;
    bus_.registerObject(session_, new FakeSession(*this), QDBusConnection::ExportAllSlots);
    const auto request = requestPath(options);
    answer(request, 0, {{QStringLiteral("session_handle"), session_}});
    return QDBusObjectPath(request);
}

QDBusObjectPath FakePortal::BindShortcuts(const QDBusObjectPath&, const PortalShortcuts& shortcuts,
                                          const QString&, const QVariantMap& options) {
    const std::lock_guard lock(mutex_);
    bound_.push_back(shortcuts);
    PortalShortcuts granted;
    for (const auto& shortcut : shortcuts) {
        if (!refused_.contains(shortcut.id))
            granted.append(
                {shortcut.id, {{QStringLiteral("trigger_description"), QStringLiteral("keys")}}});
    }
    const auto request = requestPath(options);
    answer(request, refuseAll_ ? 1 : 0,
           {{QStringLiteral("shortcuts"), QVariant::fromValue(granted)}});
    return QDBusObjectPath(request);
}

/// After the reply to the call, as the portal does it.
void FakePortal::answer(const QString& request, uint response, const QVariantMap& results) {
    QTimer::singleShot(0, this, [this, request, response, results] {
        auto signal = QDBusMessage::createSignal(
            request, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
        signal << response << results;
        bus_.send(signal);
    });
}

QString FakePortal::requestPath(const QVariantMap& options) const {
    auto sender = message().service().mid(1);
    sender.replace(u'.', u'_');
    return portalPath + QStringLiteral("/request/%1/%2")
                            .arg(sender, options.value(QStringLiteral("handle_token")).toString());
}

void FakePortal::sessionClosed() {
    const std::lock_guard lock(mutex_);
    --openSessions_;
}

} // namespace brinmoor::testing
