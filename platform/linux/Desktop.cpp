#include "platform/linux/Desktop.h"

#include "platform/linux/ProcessWorkspace.h"
#include "platform/linux/X11Workspace.h"

#include <cstdlib>
#include <string_view>

namespace brinmoor {
namespace {

std::optional<std::string> processEnvironment(const char* name) {
    const char* value = std::getenv(name);
    return value ? std::optional<std::string>(value) : std::nullopt;
}

/// A Wayland desktop runs an X server too, which knows only the programs that still use it.
bool isWayland() {
    const auto display = processEnvironment("WAYLAND_DISPLAY");
    return (display && !display->empty()) || processEnvironment("XDG_SESSION_TYPE") == "wayland";
}

} // namespace

std::unique_ptr<Workspace> makeWorkspace(FocusReports* reports) {
    DesktopEntries entries(desktopEntryFolders(processEnvironment));
    if (!isWayland()) {
        if (auto workspace = X11Workspace::open(entries))
            return workspace;
    }
    return std::make_unique<ProcessWorkspace>(std::move(entries), reports);
}

} // namespace brinmoor
