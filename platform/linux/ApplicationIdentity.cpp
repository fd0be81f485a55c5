#include "platform/linux/ApplicationIdentity.h"

#include <algorithm>
#include <unistd.h>

namespace brinmoor {
namespace {

RunningApplication thisProgram() {
    return {.bundleIdentifier = ownApplicationIdentifier,
            .localizedName = ownApplicationName,
            .processIdentifier = static_cast<std::int32_t>(::getpid())};
}

std::string capitalised(std::string name) {
    if (!name.empty() && name[0] >= 'a' && name[0] <= 'z')
        name[0] = static_cast<char>(name[0] - 'a' + 'A');
    return name;
}

std::optional<std::string> ifNotEmpty(std::string text) {
    return text.empty() ? std::nullopt : std::optional(std::move(text));
}

std::optional<std::string> browserOfClass(const WindowOwner& window) {
    auto identifier = browserIdentifier(window.windowClass);
    return identifier ? identifier : browserIdentifier(window.instance);
}

} // namespace

RunningApplication ApplicationIdentity::ownerOf(const WindowOwner& window) {
    if (window.process == static_cast<std::int32_t>(::getpid()))
        return thisProgram();
    RunningApplication application;
    application.processIdentifier = window.process.value_or(0);
    if (window.process)
        application.bundleIdentifier = browserOf(*window.process);
    if (!application.bundleIdentifier) {
        application.bundleIdentifier = browserOfClass(window);
        if (application.bundleIdentifier)
            application.processIdentifier =
                processOfBrowser(*application.bundleIdentifier, application.processIdentifier);
        else
            application.bundleIdentifier = ifNotEmpty(window.instance);
    }
    application.localizedName = entries_.nameOf(window.instance, window.windowClass);
    if (!application.localizedName)
        application.localizedName = ifNotEmpty(capitalised(window.windowClass));
    return application;
}

RunningApplication ApplicationIdentity::browser(const BrowserProcess& process) {
    const auto& identifier = process.browserID;
    const auto last = identifier.substr(identifier.rfind('.') + 1);
    return {.bundleIdentifier = identifier,
            .localizedName = entries_.nameOf(identifier, last),
            .processIdentifier = process.processIdentifier};
}

const std::vector<BrowserProcess>& ApplicationIdentity::runningBrowsers() {
    if (!running_)
        running_ = runningBrowserProcesses();
    return *running_;
}

/// One browser often owns most of the windows.
const std::optional<std::string>& ApplicationIdentity::browserOf(std::int32_t process) {
    const auto found = browserOfProcess_.find(process);
    if (found != browserOfProcess_.end())
        return found->second;
    return browserOfProcess_.emplace(process, browserIdentifierOfProcess(process)).first->second;
}

std::int32_t ApplicationIdentity::processOfBrowser(const std::string& identifier,
                                                   std::int32_t otherwise) {
    const auto& running = runningBrowsers();
    const auto found = std::find_if(running.begin(), running.end(), [&](const auto& process) {
        return process.browserID == identifier;
    });
    return found == running.end() ? otherwise : found->processIdentifier;
}

} // namespace brinmoor
