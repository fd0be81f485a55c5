#include "platform/memory/MemoryWorkspace.h"

#include <algorithm>

namespace brinmoor {

std::optional<RunningApplication> MemoryWorkspace::frontmostApplication() const {
    return front;
}

std::vector<RunningApplication> MemoryWorkspace::runningApplications() const {
    return running;
}

std::optional<std::vector<VisibleWindow>> MemoryWorkspace::visibleWindows() const {
    ++windowQueries;
    return windows;
}

Subscription
MemoryWorkspace::onActivation(std::function<void(const std::optional<RunningApplication>&)> told) {
    return observers_.add(std::move(told));
}

bool MemoryWorkspace::activate(const RunningApplication& application) {
    if (std::find(withoutWindow.begin(), withoutWindow.end(), application.processIdentifier) !=
        withoutWindow.end())
        return false;
    activated.push_back(application);
    bringToFront(application);
    return true;
}

void MemoryWorkspace::bringToFront(std::optional<RunningApplication> application) {
    if (front == application)
        return;
    front = std::move(application);
    const auto told = front;
    observers_.tell(told);
}

} // namespace brinmoor
