#include "core/search/FilteredLibrary.h"

#include <utility>

namespace brinmoor {

std::vector<LinkDay> FilteredLibrary::days(const LibraryFilter& filter,
                                           std::shared_ptr<const Library> library, Instant now,
                                           std::string_view timeZone) {
    if (library == library_ && filter.narrows(filter_))
        visible_ = filter.visibleLinks(visible_);
    else
        visible_ = filter.visibleLinks(library->links);
    library_ = std::move(library);
    filter_ = filter;
    return filter_.grouped(visible_, now, timeZone);
}

} // namespace brinmoor
