#pragma once

#include "core/library/Library.h"
#include "core/search/LibraryFilter.h"

#include <memory>
#include <string_view>
#include <vector>

namespace brinmoor {

/// What the library screen shows for one filter after the other. While a query is typed, only what
/// its beginning found is searched. One thread.
class FilteredLibrary {
public:
    /// As LibraryFilter::days. The links are those of `library`, which is kept until the next call.
    [[nodiscard]] std::vector<LinkDay> days(const LibraryFilter& filter,
                                            std::shared_ptr<const Library> library, Instant now,
                                            std::string_view timeZone);

private:
    std::shared_ptr<const Library> library_;
    LibraryFilter filter_;
    LinkPointers visible_; ///< of this library by this filter
};

} // namespace brinmoor
