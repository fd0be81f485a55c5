#pragma once

#include "platform/Observers.h"
#include "platform/Workspace.h"
#include "platform/linux/DesktopEntries.h"
#include "platform/linux/FocusReports.h"

namespace brinmoor {

/// What can be known where no window system tells of other programs' windows: which browsers run,
/// and from the connected ones which has the focus.
class ProcessWorkspace final : public Workspace {
public:
    /// `reports` may be absent and must otherwise outlive this object.
    explicit ProcessWorkspace(DesktopEntries entries, FocusReports* reports = nullptr);

    /// The focused browser that a connected extension reports; absent for every other application.
    [[nodiscard]] std::optional<RunningApplication> frontmostApplication() const override;
    /// Browsers only.
    [[nodiscard]] std::vector<RunningApplication> runningApplications() const override;
    /// Always absent.
    [[nodiscard]] std::optional<std::vector<VisibleWindow>> visibleWindows() const override;
    [[nodiscard]] Subscription
    onActivation(std::function<void(const std::optional<RunningApplication>&)> told) override;
    /// Always false.
    bool activate(const RunningApplication& application) override;
    [[nodiscard]] std::string ownBundleIdentifier() const override;

private:
    mutable DesktopEntries entries_;
    FocusReports* reports_;
    Observers<const std::optional<RunningApplication>&> observers_;
    Subscription focus_;
};

} // namespace brinmoor
