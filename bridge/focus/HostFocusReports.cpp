#include "bridge/focus/HostFocusReports.h"

#include "bridge/frames/Frames.h"
#include "bridge/frames/HostSocket.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSocketNotifier>

#include <sys/socket.h>

#include <utility>

namespace brinmoor {

namespace {

constexpr std::string_view request = R"({"id":1,"protocol":1,"request":"watchFocus"})";
/// A report has fewer than a hundred bytes.
constexpr std::size_t reportCap = 4096;

std::optional<bool> focusIn(std::string_view report) {
    const QJsonValue focused =
        QJsonDocument::fromJson(QByteArray(report.data(), qsizetype(report.size())))
            .object()[u"result"]
            .toObject()[u"focused"];
    return focused.isBool() ? std::optional(focused.toBool()) : std::nullopt;
}

/// A connection that nobody has written to takes so few bytes at once.
bool ask(const bridge::FileDescriptor& connection) {
    const std::string frame = bridge::frameHeader(request.size()).append(request);
    return ::send(connection.number(), frame.data(), frame.size(), MSG_NOSIGNAL) ==
           ssize_t(frame.size());
}

} // namespace

struct HostFocusReports::Watch {
    std::string browserID;
    bridge::FileDescriptor connection;
    bridge::FrameDecoder decoder{reportCap};
    std::unique_ptr<QSocketNotifier> notifier;
    std::uint64_t focusedSince = 0; ///< the number of the report that said so; 0 without the focus
};

HostFocusReports::HostFocusReports(const char* runtimeFolder) {
    auto opened = bridge::openBridgeFolder(runtimeFolder, bridge::MissingFolder::make);
    if (!opened)
        return;
    folder_ = std::move(opened).value();
    watcher_.addPath(QDir(QString::fromUtf8(runtimeFolder)).filePath(QStringLiteral("brinmoor")));
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, [this] { follow(); });
    follow();
}

HostFocusReports::~HostFocusReports() = default;

std::optional<std::string> HostFocusReports::focusedBrowser() const {
    return focused_;
}

Subscription HostFocusReports::onFocus(std::function<void()> changed) {
    return observers_.add(std::move(changed));
}

void HostFocusReports::follow() {
    for (const bridge::HostName& host : bridge::hostsIn(folder_.number()))
        watch(bridge::socketName(host));
}

void HostFocusReports::watch(const std::string& socket) {
    const auto host = bridge::hostOfSocket(socket);
    if (!host || watches_.contains(socket))
        return;
    auto made = std::make_unique<Watch>();
    made->browserID = host->browserID;
    made->connection = bridge::connectedTo(folder_.number(), *host);
    if (!made->connection || !ask(made->connection))
        return;
    made->notifier =
        std::make_unique<QSocketNotifier>(made->connection.number(), QSocketNotifier::Read);
    connect(made->notifier.get(), &QSocketNotifier::activated, this,
            [this, socket] { read(socket); });
    watches_[socket] = std::move(made);
}

void HostFocusReports::read(const std::string& socket) {
    Watch& watch = *watches_.at(socket);
    const bridge::Arrival arrival = bridge::readAvailable(watch.connection.number(), watch.decoder);
    while (const auto report = watch.decoder.next())
        if (const auto focused = focusIn(*report))
            watch.focusedSince = *focused ? ++lastReport_ : 0;
    const bool over = arrival == bridge::Arrival::end || arrival == bridge::Arrival::broken ||
                      watch.decoder.refused();
    if (over) {
        // It is the notifier that tells of this: it goes when it has returned.
        watch.notifier->setEnabled(false);
        watch.notifier.release()->deleteLater();
        watches_.erase(socket);
        // A host that took the name over meanwhile was passed by.
        follow();
    }
    settle();
}

void HostFocusReports::settle() {
    const Watch* last = nullptr;
    for (const auto& [socket, watch] : watches_)
        if (watch->focusedSince > (last ? last->focusedSince : 0))
            last = watch.get();
    auto now = last ? std::optional(last->browserID) : std::nullopt;
    if (std::exchange(focused_, std::move(now)) != focused_)
        observers_.tell();
}

} // namespace brinmoor
