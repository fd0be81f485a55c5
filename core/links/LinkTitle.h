#pragma once

#include <map>
#include <string>
#include <string_view>

/// Turns what a page offers into one good title. Pure, any thread.
namespace brinmoor::LinkTitle {

/// What the page reader found, by its keys.
using Metadata = std::map<std::string, std::string, std::less<>>;

/// The best title for the page: its own metadata first (post, ogTitle, twitterTitle, pageTitle),
/// then the browser's title, a description (description, heading), and last the shape of `url`.
[[nodiscard]] std::string best(std::string_view url, std::string_view browserTitle,
                               const Metadata& metadata);

/// One line, trimmed, at most 180 grapheme clusters.
[[nodiscard]] std::string clean(std::string_view title);

/// Whether `title` is certainly what clean() would make of it; false says nothing. Much faster.
[[nodiscard]] bool isSurelyClean(std::string_view title) noexcept;

/// Whether a title says nothing of its page: a site's name, a login prompt, nothing at all.
[[nodiscard]] bool isGeneric(std::string_view title);

} // namespace brinmoor::LinkTitle
