#pragma once

#include "platform/Subscription.h"

#include <QObject>

#include <functional>
#include <optional>
#include <string>

namespace brinmoor {

class Updater;
struct AppBuild;

/// What the program shows and asks of its updater. Everything after a successful start the updater
/// shows itself. Main thread.
class AppUpdater final : public QObject {
    Q_OBJECT

public:
    /// `updater` is absent where this system has none; otherwise it outlives the object.
    AppUpdater(const AppBuild& build, Updater* updater);

    /// Brings the program to the front, since the updater's window must be seen. The shell's.
    std::function<void()> activateApplication;

    /// Does nothing in a build without updates. A failure stands until the next launch.
    void start();
    /// Does nothing unless validateMenuItem().
    void checkForUpdates();
    /// Whether "Check for Updates…" can be chosen.
    [[nodiscard]] bool validateMenuItem() const;

    [[nodiscard]] bool canCheckForUpdates() const noexcept { return canCheck_; }
    [[nodiscard]] bool automaticallyChecksForUpdates() const noexcept { return automatic_; }
    /// Goes to the updater, whose answer comes back with changed().
    void setAutomaticallyChecksForUpdates(bool on);
    /// If present, updates are off and this says why.
    [[nodiscard]] const std::optional<std::string>& unavailableReason() const noexcept {
        return unavailableReason_;
    }

Q_SIGNALS:
    void changed();

private:
    void mirror();

    Updater* updater_ = nullptr;
    bool canCheck_ = false;
    bool automatic_ = false;
    std::optional<std::string> unavailableReason_;
    Subscription changes_;
};

} // namespace brinmoor
