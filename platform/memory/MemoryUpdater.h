#pragma once

#include "platform/Observers.h"
#include "platform/Updater.h"

#include <optional>
#include <utility>

namespace brinmoor {

/// An updater whose every answer is a field; set() tells of a change.
class MemoryUpdater final : public Updater {
public:
    std::optional<std::string> startFailure;
    int starts = 0;
    int checks = 0;

    void set(bool canCheck, bool automatic) {
        canCheck_ = canCheck;
        automatic_ = automatic;
        observers_.tell();
    }

    [[nodiscard]] Result<Done, std::string> start() override {
        ++starts;
        if (startFailure)
            return failure(*startFailure);
        set(true, automatic_);
        return Done{};
    }
    void checkForUpdates() override { ++checks; }
    [[nodiscard]] bool canCheckForUpdates() const override { return canCheck_; }
    [[nodiscard]] bool automaticallyChecksForUpdates() const override { return automatic_; }
    void setAutomaticallyChecksForUpdates(bool on) override { set(canCheck_, on); }
    [[nodiscard]] Subscription onChange(std::function<void()> changed) override {
        return observers_.add(std::move(changed));
    }

private:
    bool canCheck_ = false;
    bool automatic_ = false;
    Observers<> observers_;
};

} // namespace brinmoor
