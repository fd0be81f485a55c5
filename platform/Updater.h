#pragma once

#include "core/Result.h"
#include "platform/Subscription.h"

#include <functional>
#include <string>

namespace brinmoor {

/// What finds, downloads and installs new versions of the program, with windows of its own. A
/// system that leaves this to its package manager has none. Main thread.
class Updater {
public:
    virtual ~Updater() = default;

    /// Called once before anything else; the failure is a description for a log.
    [[nodiscard]] virtual Result<Done, std::string> start() = 0;
    /// The check that the user asks for: the updater shows what it finds.
    virtual void checkForUpdates() = 0;
    /// False before start() and while a check is in progress.
    [[nodiscard]] virtual bool canCheckForUpdates() const = 0;

    /// Whether new versions are looked for by themselves; the updater remembers it.
    [[nodiscard]] virtual bool automaticallyChecksForUpdates() const = 0;
    virtual void setAutomaticallyChecksForUpdates(bool on) = 0;

    /// Told after a change of any answer above.
    [[nodiscard]] virtual Subscription onChange(std::function<void()> changed) = 0;
};

} // namespace brinmoor
