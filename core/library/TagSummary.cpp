#include "core/library/TagSummary.h"

#include "core/search/LinkSearch.h"
#include "core/text/Characters.h"

#include <algorithm>
#include <functional>
#include <unordered_map>

namespace brinmoor {

namespace {

/// The tags in the order in which they are met first.
class TagCounts {
public:
    void addTagsOf(const SavedLink& link) {
        tags_ = link.tags;
        tags_ = SavedLink::normalizedTags(std::move(tags_));
        for (const std::string& tag : tags_)
            add(tag);
    }

    std::vector<TagSummary> take() { return std::move(counts_); }

private:
    void add(const std::string& tag) {
        const auto [place, isNew] =
            places_.try_emplace(std::string(room_.folded(tag)), counts_.size());
        if (isNew)
            counts_.push_back({tag, 0});
        ++counts_[place->second].count;
    }

    std::unordered_map<std::string, std::size_t> places_; ///< of each folded tag
    text::FoldRoom room_;
    std::vector<std::string> tags_; ///< of one link at a time
    std::vector<TagSummary> counts_;
};

} // namespace

std::string_view storedValue(TagSummarySortOrder order) noexcept {
    return order == TagSummarySortOrder::alphabetical ? "alphabetical" : "mostLinks";
}

std::optional<TagSummarySortOrder> tagSummarySortOrder(std::string_view storedValue) noexcept {
    for (const auto order : {TagSummarySortOrder::alphabetical, TagSummarySortOrder::mostLinks})
        if (brinmoor::storedValue(order) == storedValue)
            return order;
    return std::nullopt;
}

std::string TagSummary::id() const {
    return LinkSearch::folded(name);
}

std::vector<TagSummary> TagSummary::summarize(const std::vector<SavedLink>& links) {
    TagCounts counts;
    for (const SavedLink& link : links)
        counts.addTagsOf(link);
    return sorted(counts.take(), TagSummarySortOrder::alphabetical);
}

std::vector<TagSummary> TagSummary::summarize(std::span<const SavedLink* const> links) {
    TagCounts counts;
    for (const SavedLink* link : links)
        counts.addTagsOf(*link);
    return sorted(counts.take(), TagSummarySortOrder::alphabetical);
}

std::vector<TagSummary> TagSummary::sorted(std::vector<TagSummary> list, TagSummarySortOrder by) {
    std::vector<std::string_view> names;
    names.reserve(list.size());
    for (const TagSummary& summary : list)
        names.push_back(summary.name);
    std::vector<TagSummary> result;
    result.reserve(list.size());
    for (const std::size_t place : text::orderOfNames(names))
        result.push_back(std::move(list[place]));
    if (by == TagSummarySortOrder::mostLinks)
        std::ranges::stable_sort(result, std::ranges::greater(), &TagSummary::count);
    return result;
}

} // namespace brinmoor
