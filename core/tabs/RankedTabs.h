#pragma once

#include "core/tabs/OpenBrowserTab.h"

#include <string_view>
#include <vector>

namespace brinmoor {

/// The tabs that match a query by title, address or browser, as the library's search scores them:
/// the best first, equals by title as a file manager lists names, then in their own order. Any
/// thread.
[[nodiscard]] std::vector<OpenBrowserTab> rankedTabs(const std::vector<OpenBrowserTab>& tabs,
                                                     std::string_view query);

} // namespace brinmoor
