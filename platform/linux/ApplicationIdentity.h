#pragma once

#include "platform/Workspace.h"
#include "platform/linux/BrowserProcesses.h"
#include "platform/linux/DesktopEntries.h"
#include "platform/linux/X11Windows.h"

#include <map>
#include <optional>
#include <vector>

namespace brinmoor {

/// The identifier and the name under which this program itself appears.
inline constexpr const char* ownApplicationIdentifier = "app.brinmoor.mac";
inline constexpr const char* ownApplicationName = "Brinmoor";

/// Finds out which application a window or a process belongs to, for the length of one question:
/// the processes that run are looked through at most once.
class ApplicationIdentity {
public:
    explicit ApplicationIdentity(DesktopEntries& entries) : entries_(entries) {}

    /// A browser is known by its process. A window in a sandbox gives a number that means nothing
    /// outside; its class tells the browser then, and the browser's process is looked for. What is
    /// no browser is known by its window's instance name.
    [[nodiscard]] RunningApplication ownerOf(const WindowOwner& window);

    [[nodiscard]] RunningApplication browser(const BrowserProcess& process);

    [[nodiscard]] const std::vector<BrowserProcess>& runningBrowsers();

private:
    [[nodiscard]] const std::optional<std::string>& browserOf(std::int32_t process);
    [[nodiscard]] std::int32_t processOfBrowser(const std::string& identifier,
                                                std::int32_t otherwise);

    DesktopEntries& entries_;
    std::map<std::int32_t, std::optional<std::string>> browserOfProcess_;
    std::optional<std::vector<BrowserProcess>> running_;
};

} // namespace brinmoor
