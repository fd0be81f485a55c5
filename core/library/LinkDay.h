#pragma once

#include "core/library/SavedLink.h"

#include <string>
#include <string_view>
#include <vector>

namespace brinmoor {

/// One group of the library list: the links of one calendar day.
struct LinkDay {
    Instant id; ///< the start of the day
    std::string label;
    std::vector<SavedLink> links; ///< newest first

    /// Groups `links` by the day of their creation in the time zone with this IANA name
    /// ("" is UTC), newest day first. Labels follow the user's locale.
    [[nodiscard]] static std::vector<LinkDay> group(std::vector<SavedLink> links, Instant now,
                                                    std::string_view timeZone);

    /// One group, "Best matches" of the distant past: by LinkSearch::score without extra text,
    /// higher first, then newest first. Links that tie keep their order.
    [[nodiscard]] static LinkDay bestMatches(std::vector<SavedLink> links, std::string_view query);

    friend bool operator==(const LinkDay&, const LinkDay&) = default;
};

} // namespace brinmoor
