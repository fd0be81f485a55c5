#pragma once

#include "platform/Observers.h"
#include "platform/Workspace.h"

namespace brinmoor {

/// A desktop that a test makes up: every answer is a field.
class MemoryWorkspace final : public Workspace {
public:
    std::optional<RunningApplication> front;
    std::vector<RunningApplication> running;
    std::optional<std::vector<VisibleWindow>> windows = std::vector<VisibleWindow>{};
    std::string ownIdentifier = "app.brinmoor.mac";
    /// Processes that activate() refuses, as if they had no window.
    std::vector<std::int32_t> withoutWindow;

    /// The applications that activate() brought forward, in order.
    std::vector<RunningApplication> activated;
    /// How often the window list was asked for.
    mutable int windowQueries = 0;

    [[nodiscard]] std::optional<RunningApplication> frontmostApplication() const override;
    [[nodiscard]] std::vector<RunningApplication> runningApplications() const override;
    [[nodiscard]] std::optional<std::vector<VisibleWindow>> visibleWindows() const override;
    [[nodiscard]] Subscription
    onActivation(std::function<void(const std::optional<RunningApplication>&)> told) override;
    bool activate(const RunningApplication& application) override;
    [[nodiscard]] std::string ownBundleIdentifier() const override { return ownIdentifier; }

    /// The user goes to another application, or to none.
    void bringToFront(std::optional<RunningApplication> application);

private:
    Observers<const std::optional<RunningApplication>&> observers_;
};

} // namespace brinmoor
