#include "core/tags/TagCompletion.h"

#include "core/search/LinkSearch.h"
#include "core/tags/TagCaseStyle.h"
#include "core/text/Characters.h"

#include <algorithm>
#include <unordered_set>

namespace brinmoor::TagCompletion {
namespace {

std::unordered_set<std::string> foldedSet(const std::vector<std::string>& tags) {
    std::unordered_set<std::string> folds;
    for (const std::string& tag : tags)
        folds.insert(LinkSearch::folded(tag));
    return folds;
}

} // namespace

std::vector<std::string> matches(std::string_view input, const std::vector<std::string>& selected,
                                 const std::vector<std::string>& suggestions, int limit) {
    if (limit < 1)
        return {};
    const std::string_view query = text::trimmedOfBlanks(input);
    const TagCaseStyle style = tagCaseStyleMatching(query);
    const std::unordered_set<std::string> taken = foldedSet(selected);
    std::vector<std::string> kept;
    for (const std::string& suggestion : suggestions) {
        if (!text::containsIgnoringCase(suggestion, query) ||
            taken.contains(LinkSearch::folded(suggestion)))
            continue;
        kept.push_back(brinmoor::apply(style, suggestion));
        if (std::ssize(kept) == limit)
            break;
    }
    return kept;
}

std::optional<std::string> firstMatch(std::string_view input,
                                      const std::vector<std::string>& selected,
                                      const std::vector<std::string>& suggestions) {
    if (text::trimmedOfBlanks(input).empty())
        return std::nullopt;
    std::vector<std::string> first = matches(input, selected, suggestions, 1);
    if (first.empty())
        return std::nullopt;
    return std::move(first.front());
}

} // namespace brinmoor::TagCompletion
