#include "screens/LibraryTags.h"

#include "core/search/LinkSearch.h"
#include "core/text/Characters.h"

#include <algorithm>
#include <unordered_set>

namespace brinmoor {

std::vector<std::string> libraryTags(const Library& library) {
    std::vector<std::string> names;
    std::unordered_set<std::string> known;
    for (const SavedLink& link : library.links)
        for (const std::string& tag : link.tags)
            if (known.insert(LinkSearch::folded(tag)).second)
                names.push_back(tag);
    std::ranges::stable_sort(names, [](const std::string& a, const std::string& b) {
        return text::compareNames(a, b) < 0;
    });
    return names;
}

} // namespace brinmoor
