#pragma once

#include "core/library/SavedLink.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// The words of titles and tags, and when two of them count as the same. Used by tag suggestion
/// only. All texts here are in their comparison form (LinkSearch::folded).
namespace brinmoor::LinkAutoTagging {

/// The next run of letters and numbers from `at` on, and `at` behind it; empty at the end.
[[nodiscard]] std::string_view nextToken(std::string_view folded, std::size_t& at) noexcept;
[[nodiscard]] std::vector<std::string> tokens(std::string_view folded);
/// Where the tokens begin, into `starts`.
void findTokens(std::string_view folded, std::vector<std::size_t>& starts);

/// The word without a common English ending; other words as they stand.
[[nodiscard]] std::string stem(std::string_view word);

/// A word with what comparing it takes.
struct Word {
    explicit Word(std::string_view word);

    std::string text;
    std::string stem;
    std::size_t length = 0; ///< in grapheme clusters
};

/// Whether two words of up to three characters may match at all.
enum class ShortWords { matchWhenEqual, neverMatch };

/// Whether exactly one inserted, deleted or replaced character or one swap of neighbours makes
/// one word of the other.
[[nodiscard]] bool oneEditApart(std::string_view a, std::string_view b);
[[nodiscard]] bool fuzzyMatch(const Word& a, const Word& b, ShortWords shortWords);
/// Whether the words of `phrase` stand side by side among `words`.
[[nodiscard]] bool containsPhrase(const std::vector<Word>& words, const std::vector<Word>& phrase);

/// Whether a stem says something of its own: at least 4 characters, not only numbers, and none of
/// the words that every text has.
[[nodiscard]] bool isLearnable(std::string_view stem);

/// Whether a title says more than its site does. `foldedTitle` is the fold of the clean title and
/// `foldedDomain` that of the link's domain.
[[nodiscard]] bool isTitleOfItsOwn(std::string_view title, std::string_view foldedTitle,
                                   std::string_view foldedDomain);

/// The words of a title worth reading; none for a title that says nothing of its own.
[[nodiscard]] std::vector<std::string> usableTitleTokens(const SavedLink& link);

} // namespace brinmoor::LinkAutoTagging
