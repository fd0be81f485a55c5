#pragma once

#include "browser/Browser.h"

#include <vector>

namespace brinmoor {

class Workspace;

/// The rows of the catalogue whose browsers run now, in the catalogue's order.
[[nodiscard]] std::vector<Browser> runningBrowsers(const Workspace& workspace);

} // namespace brinmoor
