#pragma once

#include "core/library/Library.h"

#include <string>
#include <vector>

namespace brinmoor {

/// Every tag of the library, archived links included, once by its folded form and in the first
/// spelling met, in the order of names.
[[nodiscard]] std::vector<std::string> libraryTags(const Library& library);

} // namespace brinmoor
