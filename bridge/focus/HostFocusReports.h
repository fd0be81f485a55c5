#pragma once

#include "bridge/frames/FileDescriptor.h"
#include "platform/Observers.h"
#include "platform/linux/FocusReports.h"

#include <QFileSystemWatcher>
#include <QObject>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace brinmoor {

/// The focus as the connected browsers' extensions report it, each through the socket of its host.
/// Follows the hosts that are there and those that come. Main thread; waits for nothing.
class HostFocusReports final : public QObject, public FocusReports {
    Q_OBJECT

public:
    /// `runtimeFolder` is the session's XDG_RUNTIME_DIR; without one nothing is ever reported.
    explicit HostFocusReports(const char* runtimeFolder);
    ~HostFocusReports() override;

    /// Of several that say so the one that said it last: a browser isn't always told that the focus
    /// has left it.
    [[nodiscard]] std::optional<std::string> focusedBrowser() const override;
    [[nodiscard]] Subscription onFocus(std::function<void()> changed) override;

private:
    struct Watch;

    void follow();
    void watch(const std::string& socket);
    void read(const std::string& socket);
    void settle();

    bridge::FileDescriptor folder_;
    QFileSystemWatcher watcher_;
    std::map<std::string, std::unique_ptr<Watch>> watches_; ///< by the names of their sockets
    std::uint64_t lastReport_ = 0;
    std::optional<std::string> focused_;
    Observers<> observers_;
};

} // namespace brinmoor
