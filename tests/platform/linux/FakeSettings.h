#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QMap>
#include <QObject>

namespace brinmoor::testing {

/// A desktop portal with settings, on the private session bus of the test.
class FakeSettings final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    FakeSettings()
        : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName())) {
        bus_.registerObject(path(), this, QDBusConnection::ExportAllSlots);
        bus_.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }
    ~FakeSettings() override {
        bus_.unregisterService(QStringLiteral("org.freedesktop.portal.Desktop"));
        QDBusConnection::disconnectFromBus(connectionName());
    }

    void set(const char* group, const char* key, const QVariant& value) {
        values_[QString::fromLatin1(group) + QString::fromLatin1(key)] = value;
        auto told =
            QDBusMessage::createSignal(path(), QStringLiteral("org.freedesktop.portal.Settings"),
                                       QStringLiteral("SettingChanged"));
        told << QString::fromLatin1(group) << QString::fromLatin1(key)
             << QVariant::fromValue(QDBusVariant(value));
        bus_.send(told);
    }
    [[nodiscard]] int reads() const { return reads_; }

public Q_SLOTS:
    /// Wraps its answer in one variant too many, as the real one does.
    QDBusVariant Read(const QString& group, const QString& key) {
        ++reads_;
        if (!values_.contains(group + key))
            sendErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"));
        return QDBusVariant(QVariant::fromValue(QDBusVariant(values_.value(group + key))));
    }

private:
    static QString connectionName() { return QStringLiteral("fake-settings"); }
    static QString path() { return QStringLiteral("/org/freedesktop/portal/desktop"); }

    QDBusConnection bus_;
    QMap<QString, QVariant> values_;
    int reads_ = 0;
};

} // namespace brinmoor::testing
