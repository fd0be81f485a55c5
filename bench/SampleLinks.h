#pragma once

#include "core/library/SavedLink.h"

#include <cstddef>
#include <vector>

namespace brinmoor {

/// Links as a library holds them after years, newest first: hosts that come back, titles of seven
/// words of which 42 in 100 are not ASCII, up to three tags. Equal for equal sizes.
[[nodiscard]] std::vector<SavedLink> sampleLinks(std::size_t size);

} // namespace brinmoor
