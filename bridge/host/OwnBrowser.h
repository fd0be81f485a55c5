#pragma once

#include "platform/linux/BrowserProcesses.h"

#include <optional>

namespace brinmoor::bridge {

/// The browser that started this process: the nearest of its ancestors that is one, for some
/// browsers start their helpers through a shell or a launcher.
[[nodiscard]] std::optional<BrowserProcess> ownBrowser();

} // namespace brinmoor::bridge
