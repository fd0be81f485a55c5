#pragma once

#include "platform/linux/PortalShortcut.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QObject>
#include <QThread>

#include <mutex>
#include <set>
#include <vector>

namespace brinmoor::testing {

/// A desktop portal with global shortcuts, on the private session bus of the test. It works in a
/// thread of its own, as another process would.
class FakePortal final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.GlobalShortcuts")
    Q_PROPERTY(uint version READ version CONSTANT)

public:
    FakePortal();
    ~FakePortal() override;

    /// Shortcuts that the user turns down in the dialog.
    void refuse(const QString& id);
    /// The user closes the dialog.
    void refuseEverything();
    /// The user presses a shortcut of the last session.
    void press(const QString& id);
    /// The desktop ends the last session.
    void endSession();

    [[nodiscard]] std::vector<PortalShortcuts> bound() const;
    [[nodiscard]] int openSessions() const;
    [[nodiscard]] uint version() const { return 1; }

public Q_SLOTS:
    QDBusObjectPath CreateSession(const QVariantMap& options);
    QDBusObjectPath BindShortcuts(const QDBusObjectPath& session,
                                  const QList<brinmoor::PortalShortcut>& shortcuts,
                                  const QString& parent, const QVariantMap& options);

private:
    void answer(const QString& request, uint response, const QVariantMap& results);
    [[nodiscard]] QString requestPath(const QVariantMap& options) const;
    void sessionClosed();

    friend class FakeSession;

    mutable std::mutex mutex_;
    std::set<QString> refused_;
    bool refuseAll_ = false;
    std::vector<PortalShortcuts> bound_;
    QString session_;
    int openSessions_ = 0;
    QDBusConnection bus_;
    QThread thread_;
};

/// One session of it.
class FakeSession final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Session")

public:
    explicit FakeSession(FakePortal& portal) : QObject(&portal), portal_(portal) {}

public Q_SLOTS:
    void Close() {
        portal_.sessionClosed();
        deleteLater();
    }

private:
    FakePortal& portal_;
};

} // namespace brinmoor::testing
