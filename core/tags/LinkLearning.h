#pragma once

#include "core/library/SavedLink.h"

#include <optional>
#include <string>
#include <vector>

namespace brinmoor {

/// Whether a link is worth keeping, and why.
struct ImportanceSuggestion {
    std::optional<LinkImportance> importance; ///< absent: no suggestion, `reason` says why
    std::string reason;                       ///< one sentence for the user

    friend bool operator==(const ImportanceSuggestion&, const ImportanceSuggestion&) = default;
};

/// Learns from what the user has done to a link and to comparable ones. Pure, any thread.
namespace LinkLearning {

/// A label of the link's own comes first, then its favourite mark, then its note; then the labels
/// of `examples` of the same site or with a common tag, one an identity, if there are at least 3
/// and four in five agree.
[[nodiscard]] ImportanceSuggestion suggest(const SavedLink& link,
                                           const std::vector<SavedLink>& examples);

} // namespace LinkLearning

} // namespace brinmoor
