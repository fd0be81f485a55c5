#include "main/DesktopApplication.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace brinmoor {
namespace {

const QString busName = QStringLiteral("app.brinmoor.mac");
const QString objectPath = QStringLiteral("/app/brinmoor/mac");

void bringForward(const QDBusConnection& bus) {
    auto message = QDBusMessage::createMethodCall(busName, objectPath,
                                                  QStringLiteral("org.freedesktop.Application"),
                                                  QStringLiteral("Activate"));
    message << QVariantMap();
    bus.call(message, QDBus::Block, 3000);
}

} // namespace

DesktopApplication::Start DesktopApplication::start() {
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return Start::first;
    // Before the name: whoever finds it finds the object too.
    bus.registerObject(objectPath, this, QDBusConnection::ExportScriptableSlots);
    if (bus.registerService(busName))
        return Start::first;
    bus.unregisterObject(objectPath);
    bringForward(bus);
    return Start::second;
}

void DesktopApplication::takeWhatWaits() {
    QCoreApplication::sendPostedEvents(this);
}

void DesktopApplication::Activate(const QVariantMap&) {
    if (activate)
        activate();
}

void DesktopApplication::Open(const QStringList& addresses, const QVariantMap&) {
    std::vector<std::string> given;
    for (const QString& each : addresses)
        given.push_back(each.toStdString());
    if (open)
        open(given);
}

void DesktopApplication::ActivateAction(const QString& name, const QVariantList&,
                                        const QVariantMap&) {
    const auto action = captureAction(name.toStdString());
    if (action && perform)
        perform(*action);
}

} // namespace brinmoor
