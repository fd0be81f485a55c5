#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Characters as a reader sees them, and their classes. All texts are UTF-8.
namespace brinmoor::text {

/// The text without white space and line ends at both ends (Unicode White_Space).
[[nodiscard]] std::string_view trimmed(std::string_view text) noexcept;
/// The text without blanks and tabs at both ends; line ends stay (general category Zs and U+0009).
[[nodiscard]] std::string_view trimmedOfBlanks(std::string_view text) noexcept;

/// Extended grapheme clusters (UAX 29): what a user perceives as one character.
[[nodiscard]] std::size_t graphemeCount(std::string_view text);
/// The first `count` clusters; the whole text when it has no more.
[[nodiscard]] std::string_view firstGraphemes(std::string_view text, std::size_t count);
/// Every cluster, in order.
[[nodiscard]] std::vector<std::string_view> graphemes(std::string_view text);

/// Case mappings of the full Unicode character set, independent of locale.
[[nodiscard]] std::string lowercased(std::string_view text);
[[nodiscard]] std::string uppercased(std::string_view text);

/// General category L* or M*: the letters character set.
[[nodiscard]] bool isLetter(char32_t character) noexcept;
/// General category N*.
[[nodiscard]] bool isNumber(char32_t character) noexcept;
[[nodiscard]] bool isWhiteSpace(char32_t character) noexcept;

/// Reads one code point at `at` and moves `at` behind it; a bad byte gives U+FFFD and one step.
[[nodiscard]] char32_t nextCharacter(std::string_view text, std::size_t& at) noexcept;

/// Every run of white space becomes one blank. Does not trim.
[[nodiscard]] std::string withSingleBlanks(std::string_view text);

/// Percent decoding; false, with `decoded` unspecified, when a "%" lacks its two digits or the
/// result is not UTF-8.
[[nodiscard]] bool percentDecoded(std::string_view text, std::string& decoded);

/// The order in which a file manager lists names, under the user's locale, numbers by value:
/// negative, zero or positive.
[[nodiscard]] int compareNames(std::string_view a, std::string_view b);

/// The places of the names in that order; names that tie stay in theirs. For many names this is
/// several times as fast as a sort by compareNames.
[[nodiscard]] std::vector<std::size_t> orderOfNames(std::span<const std::string_view> names);

/// Whether `text` contains `part` anywhere under the user's locale, letter case ignored and
/// diacritics not.
[[nodiscard]] bool containsIgnoringCase(std::string_view text, std::string_view part);

} // namespace brinmoor::text
