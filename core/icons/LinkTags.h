#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Finds the link tags of a page and their attributes, as two regular expressions would: a page
/// that is cut off anywhere still gives what stands before the cut. Each byte is looked at a
/// bounded number of times, whatever the page holds.
namespace brinmoor::SiteIcon {

/// The next match of  <link\b[^>]*>  without regard to letter case; `html` becomes what stands
/// behind it. Absent when there is none.
[[nodiscard]] std::optional<std::string_view> nextLinkTag(std::string_view& html);

/// The two attributes that matter; "&amp;" is decoded and nothing else.
struct LinkAttributes {
    std::optional<std::string> rel;
    std::optional<std::string> href;

    friend bool operator==(const LinkAttributes&, const LinkAttributes&) = default;
};

/// Reads the matches of  ([\w-]+)\s*=\s*(?:"([^"]*)"|'([^']*)'|([^\s>]+))  in a tag; a later
/// attribute of the same name, whatever its letter case, replaces the earlier one.
[[nodiscard]] LinkAttributes linkAttributes(std::string_view tag);

/// The pieces between white space.
[[nodiscard]] std::vector<std::string_view> wordsOf(std::string_view text);

} // namespace brinmoor::SiteIcon
