#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brinmoor {

/// The letter-case habit of tags.
enum class TagCaseStyle { lowercase, leadingUppercase, preserve };

/// The habit of one text: its first character with two letter cases decides.
[[nodiscard]] TagCaseStyle tagCaseStyleMatching(std::string_view input);
/// The habit of most of `tags`; `preserve` when neither case has more.
[[nodiscard]] TagCaseStyle tagCaseStyleInferred(const std::vector<std::string>& tags);
/// `tag` written in that habit.
[[nodiscard]] std::string apply(TagCaseStyle style, std::string_view tag);

} // namespace brinmoor
