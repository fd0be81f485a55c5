#pragma once

#include "platform/HotKeys.h"

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include <map>
#include <memory>
#include <string>

class QDBusMessage;
class QDBusObjectPath;

namespace brinmoor {

/// What the desktop's dialog calls each hot key, by id.
using HotKeyDescriptions = std::map<std::uint32_t, std::string>;

/// Hot keys by the desktop portal, where programs may not grab keys themselves.
///
/// Registrations are collected and asked for together when the event loop comes round, since the
/// desktop may show the user a dialog for them. They are accepted at first; what the desktop then
/// turns down is told by `lost`. The same set asked for again costs nothing. The user may give a
/// command other keys than those asked for: the desktop decides, the number counts.
class PortalHotKeys final : public QObject, public HotKeys {
    Q_OBJECT

public:
    /// Nothing where the session bus has no portal with global shortcuts.
    [[nodiscard]] static std::unique_ptr<PortalHotKeys> open(QDBusConnection bus,
                                                             HotKeyDescriptions descriptions);
    ~PortalHotKeys() override;

    [[nodiscard]] bool registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                      std::uint32_t id) override;
    void unregisterHotKey(std::uint32_t id) override;

private Q_SLOTS:
    void sessionAnswered(uint response, const QVariantMap& results);
    void bindAnswered(const QDBusMessage& message);
    void activated(const QDBusObjectPath& session, const QString& shortcut, qulonglong timestamp,
                   const QVariantMap& options);
    void sessionClosed();

private:
    using Triggers = std::map<std::uint32_t, QString>; ///< by id

    PortalHotKeys(QDBusConnection bus, HotKeyDescriptions descriptions);
    void bindSoon();
    void bindNow();
    void createSession();
    void bind();
    void closeSession();
    void loseAll();
    [[nodiscard]] QString listenForAnswer(const char* slot);
    void stopListening();
    [[nodiscard]] QString descriptionOf(std::uint32_t id) const;

    QDBusConnection bus_;
    HotKeyDescriptions descriptions_;
    Triggers wanted_; ///< what has been registered
    Triggers asked_;  ///< what the present session was made for
    QString session_;
    QString request_; ///< the answer being waited for
    const char* requestSlot_ = nullptr;
    int tokens_ = 0;
    bool bindingSoon_ = false;
};

/// The portal's spelling of a combination, such as "SHIFT+LOGO+k"; empty for a key that no keyboard
/// has.
[[nodiscard]] QString portalTrigger(std::uint32_t keyCode, std::uint32_t modifiers);

} // namespace brinmoor
