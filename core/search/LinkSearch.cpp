#include "core/search/LinkSearch.h"

#include "core/search/LinkQuery.h"

namespace brinmoor {

std::optional<int> LinkSearch::score(std::string_view query, std::string_view title,
                                     std::string_view url, std::string_view note,
                                     const std::vector<std::string>& tags, std::string_view extra) {
    return LinkQuery(query).score({title, url, note, tags, extra, {}});
}

bool SavedLink::matches(std::string_view query) const {
    return LinkQuery(query).matches(*this);
}

} // namespace brinmoor
