#pragma once

#include "platform/HotKeys.h"
#include "platform/Workspace.h"
#include "platform/linux/FocusReports.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>

/// The answers that fit the session this process runs in.
namespace brinmoor {

/// Whether this session is one of Wayland's, in which no window system tells of the windows of
/// others.
[[nodiscard]] bool isWayland();

/// X11 where an X server with a window manager is the desktop; otherwise what the processes and the
/// connected browsers tell. `reports` may be absent and must otherwise outlive the workspace.
[[nodiscard]] std::unique_ptr<Workspace> makeWorkspace(FocusReports* reports = nullptr);

/// Grabs of the X server on X11, the desktop portal on Wayland, and where there is neither, hot
/// keys that are all refused. `descriptions` says by id what each is for, as a desktop may show it.
[[nodiscard]] std::unique_ptr<HotKeys>
makeHotKeys(const std::map<std::uint32_t, std::string>& descriptions = {});

/// When the last hot key was pressed, for activateWindow(); 0 where that isn't told.
[[nodiscard]] std::uint32_t lastPressTime(const HotKeys& hotKeys);

} // namespace brinmoor
