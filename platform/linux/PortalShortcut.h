#pragma once

#include <QDBusArgument>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QVariantMap>

namespace brinmoor {

/// One shortcut as the desktop portal speaks of it.
struct PortalShortcut {
    QString id;
    QVariantMap properties;
};

using PortalShortcuts = QList<PortalShortcut>;

inline QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut) {
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

inline const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut) {
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}

} // namespace brinmoor

Q_DECLARE_METATYPE(brinmoor::PortalShortcut)
