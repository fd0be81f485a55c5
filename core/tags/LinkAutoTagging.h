#pragma once

#include "core/library/SavedLink.h"

#include <string>
#include <vector>

/// Proposes tags for a link from the user's own tagged links. Pure, stateless, any thread.
namespace brinmoor::LinkAutoTagging {

/// At most `limit` tags, best first, in the letter case that the user's tags follow.
[[nodiscard]] std::vector<std::string>
suggestions(const SavedLink& link, const std::vector<SavedLink>& examples, int limit);

/// A copy of `link` whose tags are its own followed by the suggestions, normalised.
[[nodiscard]] SavedLink applyingSuggestions(const SavedLink& link,
                                            const std::vector<SavedLink>& examples, int limit);

} // namespace brinmoor::LinkAutoTagging
