#pragma once

#include "platform/Workspace.h"
#include "platform/linux/FocusReports.h"

#include <memory>

/// The answers that fit the session this process runs in.
namespace brinmoor {

/// X11 where an X server with a window manager is the desktop; otherwise what the processes and the
/// connected browsers tell. `reports` may be absent and must otherwise outlive the workspace.
[[nodiscard]] std::unique_ptr<Workspace> makeWorkspace(FocusReports* reports = nullptr);

} // namespace brinmoor
