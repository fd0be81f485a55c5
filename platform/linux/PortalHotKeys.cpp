#include "platform/linux/PortalHotKeys.h"

#include "platform/linux/Portal.h"

#include "core/capture/CaptureShortcut.h"
#include "platform/linux/HardwareKeys.h"
#include "platform/linux/PortalShortcut.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QMetaObject>
#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace brinmoor {
namespace {

QString shortcutsInterface() {
    return QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
}
QString requestInterface() {
    return QStringLiteral("org.freedesktop.portal.Request");
}
QString sessionInterface() {
    return QStringLiteral("org.freedesktop.portal.Session");
}

QDBusMessage shortcutsCall(const char* method) {
    return QDBusMessage::createMethodCall(portalService(), portalPath(), shortcutsInterface(),
                                          QString::fromLatin1(method));
}

/// A desktop that has no such portal answers at once; one that has may have to start it.
bool hasShortcutsPortal(const QDBusConnection& bus) {
    constexpr int patience = 3000;
    auto call = QDBusMessage::createMethodCall(portalService(), portalPath(),
                                               QStringLiteral("org.freedesktop.DBus.Properties"),
                                               QStringLiteral("Get"));
    call << shortcutsInterface() << QStringLiteral("version");
    return bus.isConnected() &&
           bus.call(call, QDBus::Block, patience).type() == QDBusMessage::ReplyMessage;
}

QString shortcutName(std::uint32_t id) {
    return QStringLiteral("hotkey-%1").arg(id);
}

std::optional<std::uint32_t> idOf(const QString& shortcut) {
    bool valid = false;
    const auto id = QStringView(shortcut).mid(shortcutName(0).size() - 1).toUInt(&valid);
    return valid && shortcut == shortcutName(id) ? std::optional(id) : std::nullopt;
}

/// Calls `failed` on the main thread when the call itself is answered by an error.
template <class Failed>
void callPortal(const QDBusConnection& bus, const QDBusMessage& message, QObject* context,
                Failed failed) {
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [watcher, failed = std::move(failed)] {
                         watcher->deleteLater();
                         if (watcher->isError())
                             failed();
                     });
}

} // namespace

QString portalTrigger(std::uint32_t keyCode, std::uint32_t modifiers) {
    const auto key = hardwareKey(keyCode);
    if (!key)
        return {};
    const std::array<std::pair<std::uint32_t, const char*>, 4> names{{
        {ShortcutModifier::control, "CTRL+"},
        {ShortcutModifier::option, "ALT+"},
        {ShortcutModifier::shift, "SHIFT+"},
        {ShortcutModifier::command, "LOGO+"},
    }};
    QString trigger;
    for (const auto& [bit, name] : names) {
        if ((modifiers & bit) != 0)
            trigger += QString::fromLatin1(name);
    }
    return trigger + QString::fromLatin1(key->name.data(), static_cast<int>(key->name.size()));
}

std::unique_ptr<PortalHotKeys> PortalHotKeys::open(QDBusConnection bus,
                                                   HotKeyDescriptions descriptions) {
    if (!hasShortcutsPortal(bus))
        return nullptr;
    return std::unique_ptr<PortalHotKeys>(
        new PortalHotKeys(std::move(bus), std::move(descriptions)));
}

PortalHotKeys::PortalHotKeys(QDBusConnection bus, HotKeyDescriptions descriptions)
    : bus_(std::move(bus)), descriptions_(std::move(descriptions)) {
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<PortalShortcuts>();
    bus_.connect(portalService(), portalPath(), shortcutsInterface(), QStringLiteral("Activated"),
                 this, SLOT(activated(QDBusObjectPath, QString, qulonglong, QVariantMap)));
}

PortalHotKeys::~PortalHotKeys() {
    closeSession();
}

bool PortalHotKeys::registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                   std::uint32_t id) {
    const auto trigger = portalTrigger(keyCode, modifiers);
    const bool taken = std::any_of(wanted_.begin(), wanted_.end(), [&](const auto& entry) {
        return entry.first != id && entry.second == trigger;
    });
    if (trigger.isEmpty() || taken)
        return false;
    wanted_[id] = trigger;
    bindSoon();
    return true;
}

void PortalHotKeys::unregisterHotKey(std::uint32_t id) {
    if (wanted_.erase(id) > 0)
        bindSoon();
}

void PortalHotKeys::bindSoon() {
    if (std::exchange(bindingSoon_, true))
        return;
    QMetaObject::invokeMethod(
        this, [this] { bindNow(); }, Qt::QueuedConnection);
}

/// A session binds once: another set needs another session.
void PortalHotKeys::bindNow() {
    bindingSoon_ = false;
    // An answer that is on its way comes first: a session can be closed only when it is known.
    if (wanted_ == asked_ || !request_.isEmpty())
        return;
    closeSession();
    asked_ = wanted_;
    if (!asked_.empty())
        createSession();
}

void PortalHotKeys::createSession() {
    const auto token = listenForAnswer(SLOT(sessionAnswered(uint, QVariantMap)));
    auto call = shortcutsCall("CreateSession");
    const auto session = QStringLiteral("brinmoor%1").arg(QRandomGenerator::global()->generate());
    call << QVariantMap{{QStringLiteral("handle_token"), token},
                        {QStringLiteral("session_handle_token"), session}};
    callPortal(bus_, call, this, [this] { loseAll(); });
}

void PortalHotKeys::sessionAnswered(uint response, const QVariantMap& results) {
    stopListening();
    session_ = results.value(QStringLiteral("session_handle")).toString();
    if (response != 0 || session_.isEmpty()) {
        loseAll();
        return;
    }
    bus_.connect(portalService(), session_, sessionInterface(), QStringLiteral("Closed"), this,
                 SLOT(sessionClosed()));
    if (wanted_ == asked_)
        bind();
    else
        bindSoon();
}

void PortalHotKeys::bind() {
    PortalShortcuts shortcuts;
    for (const auto& [id, trigger] : asked_) {
        const QVariantMap properties{{QStringLiteral("description"), descriptionOf(id)},
                                     {QStringLiteral("preferred_trigger"), trigger}};
        shortcuts.append({shortcutName(id), properties});
    }
    const auto token = listenForAnswer(SLOT(bindAnswered(QDBusMessage)));
    auto call = shortcutsCall("BindShortcuts");
    call << QVariant::fromValue(QDBusObjectPath(session_)) << QVariant::fromValue(shortcuts)
         << QString() << QVariantMap{{QStringLiteral("handle_token"), token}};
    callPortal(bus_, call, this, [this] { loseAll(); });
}

void PortalHotKeys::bindAnswered(const QDBusMessage& message) {
    stopListening();
    const auto arguments = message.arguments();
    if (arguments.size() < 2 || arguments[0].toUInt() != 0) {
        loseAll();
        return;
    }
    const auto results = qdbus_cast<QVariantMap>(arguments[1]);
    const auto bound = qdbus_cast<PortalShortcuts>(results.value(QStringLiteral("shortcuts")));
    std::vector<std::uint32_t> refused;
    for (const auto& [id, trigger] : asked_) {
        const auto name = shortcutName(id);
        const bool granted = std::any_of(bound.begin(), bound.end(),
                                         [&](const auto& shortcut) { return shortcut.id == name; });
        const auto still = wanted_.find(id);
        if (!granted && still != wanted_.end() && still->second == trigger)
            refused.push_back(id);
    }
    for (const auto id : refused) {
        wanted_.erase(id);
        asked_.erase(id);
    }
    bindSoon();
    for (const auto id : refused) {
        if (lost)
            lost(id);
    }
}

void PortalHotKeys::activated(const QDBusObjectPath& session, const QString& shortcut, qulonglong,
                              const QVariantMap&) {
    const auto id = idOf(shortcut);
    if (session.path() != session_ || !id || !wanted_.contains(*id))
        return;
    if (pressed)
        pressed(*id);
}

void PortalHotKeys::sessionClosed() {
    session_.clear();
    loseAll();
}

void PortalHotKeys::closeSession() {
    stopListening();
    asked_.clear();
    if (session_.isEmpty())
        return;
    bus_.disconnect(portalService(), session_, sessionInterface(), QStringLiteral("Closed"), this,
                    SLOT(sessionClosed()));
    bus_.send(QDBusMessage::createMethodCall(portalService(), session_, sessionInterface(),
                                             QStringLiteral("Close")));
    session_.clear();
}

/// What has been registered since is still to be asked for and is not lost.
void PortalHotKeys::loseAll() {
    const auto gone = asked_;
    closeSession();
    std::vector<std::uint32_t> ids;
    for (const auto& [id, trigger] : gone) {
        const auto still = wanted_.find(id);
        if (still == wanted_.end() || still->second != trigger)
            continue;
        wanted_.erase(still);
        ids.push_back(id);
    }
    bindSoon();
    for (const auto id : ids) {
        if (lost)
            lost(id);
    }
}

/// The path of the answer is known from the token, so that none can be missed.
QString PortalHotKeys::listenForAnswer(const char* slot) {
    stopListening();
    auto token =
        QStringLiteral("brinmoor%1_%2").arg(QRandomGenerator::global()->generate()).arg(++tokens_);
    auto sender = bus_.baseService().mid(1);
    sender.replace(u'.', u'_');
    request_ = QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
    requestSlot_ = slot;
    bus_.connect(portalService(), request_, requestInterface(), QStringLiteral("Response"), this,
                 slot);
    return token;
}

void PortalHotKeys::stopListening() {
    if (request_.isEmpty())
        return;
    bus_.disconnect(portalService(), request_, requestInterface(), QStringLiteral("Response"), this,
                    requestSlot_);
    request_.clear();
}

QString PortalHotKeys::descriptionOf(std::uint32_t id) const {
    const auto found = descriptions_.find(id);
    return found == descriptions_.end() ? QStringLiteral("Brinmoor %1").arg(id)
                                        : QString::fromStdString(found->second);
}

} // namespace brinmoor
