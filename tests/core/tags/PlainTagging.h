#pragma once

#include "core/library/SavedLink.h"

#include <string>
#include <vector>

/// Tag suggestion written for reading, step by step and with nothing kept between the steps: what
/// the fast one is compared with.
namespace brinmoor::tests::PlainTagging {

using Texts = std::vector<std::string>;

[[nodiscard]] Texts tokens(const std::string& text);
[[nodiscard]] Texts usableTitleTokens(const SavedLink& link);
[[nodiscard]] Texts learnableTokens(const SavedLink& link);
[[nodiscard]] std::string stem(const std::string& word);
[[nodiscard]] std::string dropRepeatedEnding(const std::string& word);
[[nodiscard]] bool oneEditApart(const std::string& a, const std::string& b);
[[nodiscard]] bool fuzzyMatch(const std::string& a, const std::string& b, bool allowShortExact);
[[nodiscard]] bool containsPhrase(const Texts& tokens, const Texts& phrase);
[[nodiscard]] Texts suggestions(const SavedLink& link, const std::vector<SavedLink>& examples,
                                int limit);

} // namespace brinmoor::tests::PlainTagging
