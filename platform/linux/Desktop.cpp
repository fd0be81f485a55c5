#include "platform/linux/Desktop.h"

#include "platform/linux/PortalHotKeys.h"
#include "platform/linux/ProcessWorkspace.h"
#include "platform/linux/X11HotKeys.h"
#include "platform/linux/X11Workspace.h"

#include <cstdlib>
#include <string_view>

namespace brinmoor {
namespace {

std::optional<std::string> processEnvironment(const char* name) {
    const char* value = std::getenv(name);
    return value ? std::optional<std::string>(value) : std::nullopt;
}

/// A desktop without any: every registration is refused.
class NoHotKeys final : public HotKeys {
public:
    bool registerHotKey(std::uint32_t, std::uint32_t, std::uint32_t) override { return false; }
    void unregisterHotKey(std::uint32_t) override {}
};

} // namespace

bool isWayland() {
    const auto display = processEnvironment("WAYLAND_DISPLAY");
    return (display && !display->empty()) || processEnvironment("XDG_SESSION_TYPE") == "wayland";
}

std::unique_ptr<Workspace> makeWorkspace(FocusReports* reports) {
    DesktopEntries entries(desktopEntryFolders(processEnvironment));
    // A Wayland desktop runs an X server too, which knows only the programs that still use it.
    if (!isWayland()) {
        if (auto workspace = X11Workspace::open(entries))
            return workspace;
    }
    return std::make_unique<ProcessWorkspace>(std::move(entries), reports);
}

std::unique_ptr<HotKeys> makeHotKeys(const std::map<std::uint32_t, std::string>& descriptions) {
    std::unique_ptr<HotKeys> hotKeys;
    if (isWayland())
        hotKeys = PortalHotKeys::open(QDBusConnection::sessionBus(), descriptions);
    else
        hotKeys = X11HotKeys::open();
    return hotKeys ? std::move(hotKeys) : std::make_unique<NoHotKeys>();
}

std::uint32_t lastPressTime(const HotKeys& hotKeys) {
    const auto* x11 = dynamic_cast<const X11HotKeys*>(&hotKeys);
    return x11 ? x11->lastPressTime() : 0;
}

} // namespace brinmoor
