#include "platform/linux/PortalMotion.h"

#include "platform/linux/Portal.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace brinmoor {
namespace {

QString settingsInterface() {
    return QStringLiteral("org.freedesktop.portal.Settings");
}

QString gnomeGroup() {
    return QStringLiteral("org.gnome.desktop.interface");
}
QString gnomeKey() {
    return QStringLiteral("enable-animations");
}
QString kdeGroup() {
    return QStringLiteral("org.kde.kdeglobals.KDE");
}
QString kdeKey() {
    return QStringLiteral("AnimationDurationFactor");
}

/// "Read" wraps its answer in one variant more than the signal does.
QVariant unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>() &&
           value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

PortalMotion::PortalMotion(QDBusConnection bus) : bus_(std::move(bus)) {
    if (!bus_.isConnected())
        return;
    bus_.connect(portalService(), portalPath(), settingsInterface(),
                 QStringLiteral("SettingChanged"), this,
                 SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask(gnomeGroup(), gnomeKey());
    ask(kdeGroup(), kdeKey());
}

Subscription PortalMotion::onChange(std::function<void()> changed) {
    return observers_.add(std::move(changed));
}

void PortalMotion::ask(const QString& group, const QString& key) {
    auto call = QDBusMessage::createMethodCall(portalService(), portalPath(), settingsInterface(),
                                               QStringLiteral("Read"));
    call << group << key;
    auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, group] {
        watcher->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (reply.isValid())
            take(group, reply.value().variant());
    });
}

void PortalMotion::settingChanged(const QString& group, const QString& key,
                                  const QDBusVariant& value) {
    if ((group == gnomeGroup() && key == gnomeKey()) || (group == kdeGroup() && key == kdeKey()))
        take(group, value.variant());
}

void PortalMotion::take(const QString& group, QVariant value) {
    const bool before = isReduced();
    const QVariant said = unwrapped(std::move(value));
    bool isNumber = false;
    const double factor = said.toDouble(&isNumber);
    if (group == gnomeGroup())
        withoutAnimations_ = said.metaType().id() == QMetaType::Bool && !said.toBool();
    else
        atOnce_ = isNumber && factor <= 0;
    if (isReduced() != before)
        observers_.tell();
}

} // namespace brinmoor
