#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QStringList>

namespace brinmoor::testing {

/// A file manager on the private session bus of the test.
class FakeFileManager final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    FakeFileManager()
        : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName())) {
        bus_.registerObject(QStringLiteral("/org/freedesktop/FileManager1"), this,
                            QDBusConnection::ExportAllSlots);
        bus_.registerService(QStringLiteral("org.freedesktop.FileManager1"));
    }
    ~FakeFileManager() override {
        bus_.unregisterService(QStringLiteral("org.freedesktop.FileManager1"));
        QDBusConnection::disconnectFromBus(connectionName());
    }

    QStringList shown;
    bool refuses = false;

public Q_SLOTS:
    void ShowItems(const QStringList& addresses, const QString&) {
        if (refuses)
            sendErrorReply(QDBusError::Failed, QStringLiteral("not today"));
        else
            shown = addresses;
    }

private:
    static QString connectionName() { return QStringLiteral("fake-file-manager"); }

    QDBusConnection bus_;
};

} // namespace brinmoor::testing
