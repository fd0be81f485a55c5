#include "platform/linux/XdgOpener.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

namespace brinmoor {
namespace {

const auto fileManager = QStringLiteral("org.freedesktop.FileManager1");

bool openWithDesktop(const QString& target) {
    // What begins with a hyphen would be taken for an option.
    if (target.isEmpty() || target.startsWith(u'-'))
        return false;
    return QProcess::startDetached(QStringLiteral("xdg-open"), {target});
}

/// Asks the bus itself, which answers at once, and not the file manager, which may have to start.
bool hasFileManager(const QDBusConnection& bus) {
    if (!bus.isConnected())
        return false;
    auto* names = bus.interface();
    if (names->isServiceRegistered(fileManager).value())
        return true;
    const QDBusReply<QStringList> activatable = names->activatableServiceNames();
    return activatable.isValid() && activatable.value().contains(fileManager);
}

void showInFileManager(const QDBusConnection& bus, const QString& file) {
    auto message =
        QDBusMessage::createMethodCall(fileManager, QStringLiteral("/org/freedesktop/FileManager1"),
                                       fileManager, QStringLiteral("ShowItems"));
    message << QStringList{QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded)} << QString();
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(message));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, file] {
        if (watcher->isError())
            openWithDesktop(QFileInfo(file).absolutePath());
        watcher->deleteLater();
    });
}

/// Whether a program is set for e-mail addresses.
bool hasMailProgram() {
    constexpr int patience = 3000; // milliseconds
    QProcess question;
    question.start(QStringLiteral("xdg-mime"),
                   {QStringLiteral("query"), QStringLiteral("default"),
                    QStringLiteral("x-scheme-handler/mailto")},
                   QIODevice::ReadOnly);
    return question.waitForFinished(patience) &&
           !question.readAllStandardOutput().trimmed().isEmpty();
}

/// One field of an e-mail address's query. Its line ends are CR LF.
QString mailField(const std::string& text) {
    QString lines = QString::fromStdString(text);
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    lines.replace(u'\n', QStringLiteral("\r\n"));
    return QString::fromLatin1(QUrl::toPercentEncoding(lines));
}

} // namespace

bool XdgOpener::openAddress(const std::string& address) {
    return openWithDesktop(QString::fromStdString(address));
}

bool XdgOpener::revealFile(const std::string& path) {
    const auto file = QFileInfo(QString::fromStdString(path)).absoluteFilePath();
    const auto bus = QDBusConnection::sessionBus();
    if (hasFileManager(bus)) {
        showInFileManager(bus, file);
        return true;
    }
    return openWithDesktop(QFileInfo(file).absolutePath());
}

bool XdgOpener::composeMail(const std::string& subject, const std::string& body) {
    return hasMailProgram() && openWithDesktop(QStringLiteral("mailto:?subject=%1&body=%2")
                                                   .arg(mailField(subject), mailField(body)));
}

} // namespace brinmoor
