#pragma once

#include "core/library/SavedLink.h"

#include <string>
#include <string_view>
#include <vector>

namespace brinmoor {

/// Some links of a list that somebody else owns, in an order of their own. Good as long as that
/// list stays as it is.
using LinkPointers = std::vector<const SavedLink*>;

/// All of them, in their order.
[[nodiscard]] LinkPointers pointers(const std::vector<SavedLink>& links);

/// One group of the library list: the links of one calendar day.
struct LinkDay {
    Instant id; ///< the start of the day
    std::string label;
    LinkPointers links; ///< newest first

    /// Groups `links` by the day of their creation in the time zone with this IANA name
    /// ("" is UTC), newest day first. Labels follow the user's locale.
    [[nodiscard]] static std::vector<LinkDay> group(const LinkPointers& links, Instant now,
                                                    std::string_view timeZone);

    /// One group, "Best matches" of the distant past: by LinkSearch::score without extra text,
    /// higher first, then newest first. Links that tie keep their order.
    [[nodiscard]] static LinkDay bestMatches(const LinkPointers& links, std::string_view query);
};

} // namespace brinmoor
