#include "platform/linux/ProcessWorkspace.h"

#include "platform/linux/ApplicationIdentity.h"

namespace brinmoor {

ProcessWorkspace::ProcessWorkspace(DesktopEntries entries, FocusReports* reports)
    : entries_(std::move(entries)), reports_(reports) {
    if (reports_ != nullptr)
        focus_ = reports_->onFocus([this] { observers_.tell(frontmostApplication()); });
}

std::optional<RunningApplication> ProcessWorkspace::frontmostApplication() const {
    const auto focused = reports_ ? reports_->focusedBrowser() : std::nullopt;
    if (!focused)
        return std::nullopt;
    for (auto& application : runningApplications()) {
        if (application.bundleIdentifier == focused)
            return std::move(application);
    }
    return std::nullopt;
}

std::vector<RunningApplication> ProcessWorkspace::runningApplications() const {
    ApplicationIdentity identity(entries_);
    std::vector<RunningApplication> applications;
    for (const auto& process : identity.runningBrowsers())
        applications.push_back(identity.browser(process));
    return applications;
}

std::optional<std::vector<VisibleWindow>> ProcessWorkspace::visibleWindows() const {
    return std::nullopt;
}

Subscription
ProcessWorkspace::onActivation(std::function<void(const std::optional<RunningApplication>&)> told) {
    return observers_.add(std::move(told));
}

bool ProcessWorkspace::activate(const RunningApplication&) {
    return false;
}

std::string ProcessWorkspace::ownBundleIdentifier() const {
    return ownApplicationIdentifier;
}

} // namespace brinmoor
