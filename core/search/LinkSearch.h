#pragma once

#include "core/text/Fold.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Whether a query matches a text of a link, and how well. Pure, any thread. Who asks one query of
/// many links makes a LinkQuery of it; one saved link is asked by SavedLink::matches.
namespace brinmoor::LinkSearch {

/// The comparison form of a text. What counts as the same word in search, tag renaming and
/// deleting, domain filters and tag identity is equality of this form.
[[nodiscard]] inline std::string folded(std::string_view text) {
    return text::folded(text);
}

/// Absent means no match: every word of the query has to be found somewhere, and one that begins
/// with "#" has to be a whole tag. Higher is better; a blank query scores 0.
[[nodiscard]] std::optional<int> score(std::string_view query, std::string_view title,
                                       std::string_view url, std::string_view note,
                                       const std::vector<std::string>& tags,
                                       std::string_view extra);

} // namespace brinmoor::LinkSearch
