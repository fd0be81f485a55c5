#include "core/tags/LinkLearning.h"

#include "core/library/Library.h"
#include "core/search/LinkSearch.h"
#include "core/text/Characters.h"
#include "core/text/Wording.h"

#include <algorithm>
#include <unordered_set>

namespace brinmoor::LinkLearning {

namespace {

constexpr std::size_t fewestExamples = 3;
constexpr double smallestShare = 0.8;

using TextSet = std::unordered_set<std::string>;

/// Which examples may vote on a link.
class Comparison {
public:
    explicit Comparison(const SavedLink& link)
        : link_(link), identity_(Library::identity(link.url)),
          site_(text::lowercased(link.domain())) {
        for (const std::string& tag : link.tags)
            tags_.insert(LinkSearch::folded(tag));
    }

    /// `identity` is the example's.
    [[nodiscard]] bool isComparable(const SavedLink& example, const std::string& identity) const {
        return identity != identity_ &&
               (hasCommonTag(example) || text::lowercased(example.domain()) == site_);
    }

    [[nodiscard]] bool mayVote(const SavedLink& example) const {
        return example.importance && example.id != link_.id;
    }

private:
    [[nodiscard]] bool hasCommonTag(const SavedLink& example) const {
        return std::any_of(example.tags.begin(), example.tags.end(), [&](const std::string& tag) {
            return tags_.contains(LinkSearch::folded(tag));
        });
    }

    const SavedLink& link_;
    std::string identity_;
    std::string site_;
    TextSet tags_;
};

struct Votes {
    std::size_t all = 0;
    std::size_t important = 0;
};

/// One vote an identity: that of its first comparable example.
Votes votesOf(const SavedLink& link, const std::vector<SavedLink>& examples) {
    const Comparison comparison(link);
    TextSet counted;
    Votes votes;
    for (const SavedLink& example : examples) {
        if (!comparison.mayVote(example))
            continue;
        std::string identity = Library::identity(example.url);
        if (!comparison.isComparable(example, identity) ||
            !counted.insert(std::move(identity)).second)
            continue;
        ++votes.all;
        if (example.importance == LinkImportance::important)
            ++votes.important;
    }
    return votes;
}

ImportanceSuggestion judged(const Votes& votes) {
    if (votes.all < fewestExamples)
        return {std::nullopt,
                text::worded(
                    "Is this worth keeping? Label a few links to teach Brinmoor what matters.")};
    const auto majority =
        static_cast<double>(std::max(votes.important, votes.all - votes.important));
    if (majority / static_cast<double>(votes.all) < smallestShare)
        return {std::nullopt, text::worded("Your choices on similar links are mixed. You decide.")};
    return {votes.important <= votes.all / 2 ? LinkImportance::notNeeded
                                             : LinkImportance::important,
            text::worded("Based on ") + std::to_string(votes.all) +
                text::worded(" links you labeled with the same website or tags.")};
}

} // namespace

ImportanceSuggestion suggest(const SavedLink& link, const std::vector<SavedLink>& examples) {
    if (link.importance)
        return {link.importance, text::worded("You marked this link ") +
                                     text::lowercased(title(*link.importance)) + "."};
    if (link.isFavorite)
        return {LinkImportance::important, text::worded("You favorited this link.")};
    if (!text::trimmed(link.note).empty())
        return {LinkImportance::important, text::worded("You saved a note with this link.")};
    return judged(votesOf(link, examples));
}

} // namespace brinmoor::LinkLearning
