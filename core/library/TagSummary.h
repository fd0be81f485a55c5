#pragma once

#include "core/library/SavedLink.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brinmoor {

enum class TagSummarySortOrder { alphabetical, mostLinks };

/// "alphabetical" or "mostLinks".
[[nodiscard]] std::string_view storedValue(TagSummarySortOrder order) noexcept;
/// The case with this stored value; absent for any other text.
[[nodiscard]] std::optional<TagSummarySortOrder>
tagSummarySortOrder(std::string_view storedValue) noexcept;

/// One tag with its use.
struct TagSummary {
    std::string name; ///< in the first spelling met
    std::size_t count = 0;

    /// What makes two spellings one tag: the folded name.
    [[nodiscard]] std::string id() const;

    /// The tags of the links, by name under the user's locale. Two spellings of one tag in one link
    /// count twice.
    [[nodiscard]] static std::vector<TagSummary> summarize(const std::vector<SavedLink>& links);
    /// The same of some links of a library.
    [[nodiscard]] static std::vector<TagSummary> summarize(std::span<const SavedLink* const> links);

    /// Summaries that tie keep their order.
    [[nodiscard]] static std::vector<TagSummary> sorted(std::vector<TagSummary> list,
                                                        TagSummarySortOrder by);

    friend bool operator==(const TagSummary&, const TagSummary&) = default;
};

} // namespace brinmoor
