#include "core/library/TagSummary.h"

#include "core/search/LinkSearch.h"
#include "core/text/Characters.h"

#include <algorithm>
#include <unordered_map>

namespace brinmoor {

namespace {

/// The tags in the order in which they are met first.
class TagCounts {
public:
    void add(const std::string& tag) {
        const auto [place, isNew] = places_.try_emplace(LinkSearch::folded(tag), counts_.size());
        if (isNew)
            counts_.push_back({tag, 0});
        ++counts_[place->second].count;
    }

    std::vector<TagSummary> take() { return std::move(counts_); }

private:
    std::unordered_map<std::string, std::size_t> places_;
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
        for (const std::string& tag : SavedLink::normalizedTags(link.tags))
            counts.add(tag);
    return sorted(counts.take(), TagSummarySortOrder::alphabetical);
}

std::vector<TagSummary> TagSummary::sorted(std::vector<TagSummary> list, TagSummarySortOrder by) {
    std::stable_sort(list.begin(), list.end(), [by](const TagSummary& a, const TagSummary& b) {
        if (by == TagSummarySortOrder::mostLinks && a.count != b.count)
            return a.count > b.count;
        return text::compareNames(a.name, b.name) < 0;
    });
    return list;
}

} // namespace brinmoor
