#pragma once

#include "core/library/SavedLink.h"

#include <string>
#include <string_view>

namespace brinmoor::LinkAutoTagging {

/// One site, asked about every link of a library. Most links are told apart from it by a look at
/// the letters of their host; only the others are parsed.
class Site {
public:
    explicit Site(const SavedLink& link);

    /// Whether the folded domain of `link` is that of the site.
    [[nodiscard]] bool holds(const SavedLink& link) const;

private:
    std::string foldedDomain_;
    bool isHost_; ///< not the text of something that is no address
};

/// Whether `foldedTitle` can begin with the folded domain of `link`; false is certain. `host` is
/// room to work in.
[[nodiscard]] bool mayBeginWithDomain(std::string_view foldedTitle, const SavedLink& link,
                                      std::string& host);

} // namespace brinmoor::LinkAutoTagging
