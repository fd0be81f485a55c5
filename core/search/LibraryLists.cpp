#include "core/search/LibraryLists.h"

#include "core/library/TagSummary.h"
#include "core/text/Characters.h"

#include <string_view>
#include <unordered_set>

namespace brinmoor::LibraryLists {

namespace {

UuidSet idsOf(const std::vector<SavedLink>& links, bool archived) {
    UuidSet ids;
    for (const SavedLink& link : links)
        if (link.isArchived == archived)
            ids.insert(link.id);
    return ids;
}

} // namespace

std::vector<std::string> allTags(const std::vector<SavedLink>& links) {
    std::vector<std::string> names;
    for (TagSummary& summary : TagSummary::summarize(links))
        names.push_back(std::move(summary.name));
    return names;
}

std::vector<std::string> domainOptions(const std::vector<SavedLink>& links) {
    std::unordered_set<std::string> known{""};
    std::vector<std::string_view> domains;
    for (const SavedLink& link : links)
        if (const auto [domain, isNew] = known.insert(link.domain()); isNew)
            domains.push_back(*domain);
    std::vector<std::string> sorted;
    sorted.reserve(domains.size());
    for (const std::size_t place : text::orderOfNames(domains))
        sorted.emplace_back(domains[place]);
    return sorted;
}

UuidSet activeIDs(const std::vector<SavedLink>& links) {
    return idsOf(links, false);
}

UuidSet archivedIDs(const std::vector<SavedLink>& links) {
    return idsOf(links, true);
}

} // namespace brinmoor::LibraryLists
