#pragma once

#include "core/text/Fold.h"

#include <string>
#include <string_view>

namespace brinmoor::LinkSearch {

/// The comparison form of a text. What counts as the same word in search, tag renaming and
/// deleting, domain filters and tag identity is equality of this form.
[[nodiscard]] inline std::string folded(std::string_view text) {
    return text::folded(text);
}

} // namespace brinmoor::LinkSearch
