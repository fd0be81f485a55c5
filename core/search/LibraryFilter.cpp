#include "core/search/LibraryFilter.h"

#include "core/search/LinkQuery.h"
#include "core/search/LinkSearch.h"
#include "core/text/Characters.h"
#include "core/text/Wording.h"

#include <algorithm>

namespace brinmoor {

namespace {

constexpr std::size_t mostSuggestions = 8;

/// The tests of a list, with all that is the same for every link made once.
class VisibleTest {
public:
    explicit VisibleTest(const LibraryFilter& filter)
        : query_(filter.query), notesOnly_(filter.notesOnly) {
        if (filter.selectedDomain)
            domain_ = LinkSearch::folded(*filter.selectedDomain);
        if (filter.selectedTag)
            tag_ = LinkSearch::folded(*filter.selectedTag);
    }

    [[nodiscard]] bool passes(const SavedLink& link) {
        if (domain_ && LinkSearch::folded(link.domain()) != *domain_)
            return false;
        return query_.matches(link) && (!notesOnly_ || !text::trimmed(link.note).empty()) &&
               (!tag_ || hasTag(link));
    }

private:
    [[nodiscard]] bool hasTag(const SavedLink& link) const {
        return std::any_of(link.tags.begin(), link.tags.end(), [&](const std::string& tag) {
            return LinkSearch::folded(tag) == *tag_;
        });
    }

    LinkQuery query_;
    std::optional<std::string> domain_;
    std::optional<std::string> tag_;
    bool notesOnly_;
};

} // namespace

bool LibraryFilter::isSearching() const noexcept {
    return !text::trimmed(query).empty();
}

bool LibraryFilter::hasRefinements() const noexcept {
    return selectedTag || selectedDomain || notesOnly;
}

bool LibraryFilter::linkIsInCurrentSection(const SavedLink& link) const noexcept {
    if (filter == archive)
        return link.isArchived;
    if (link.isArchived)
        return false;
    if (filter == allLinks)
        return true;
    return filter == favorites ? link.isFavorite : link.collection == filter;
}

bool LibraryFilter::isInScope(const SavedLink& link) const noexcept {
    return (searchEverywhere && isSearching()) || linkIsInCurrentSection(link);
}

bool LibraryFilter::narrows(const LibraryFilter& other) const {
    LibraryFilter same = *this;
    same.query = other.query;
    return same == other && isSearching() && other.isSearching() &&
           LinkQuery(query).narrows(LinkQuery(other.query));
}

LinkPointers LibraryFilter::visibleLinks(const std::vector<SavedLink>& links) const {
    return visibleLinks(pointers(links));
}

LinkPointers LibraryFilter::visibleLinks(const LinkPointers& links) const {
    VisibleTest test(*this);
    LinkPointers visible;
    for (const SavedLink* link : links)
        if (isInScope(*link) && test.passes(*link))
            visible.push_back(link);
    return visible;
}

std::vector<LinkDay> LibraryFilter::grouped(const LinkPointers& visible, Instant now,
                                            std::string_view timeZone) const {
    if (!isSearching())
        return LinkDay::group(visible, now, timeZone);
    std::vector<LinkDay> result;
    result.push_back(LinkDay::bestMatches(visible, query));
    return result;
}

std::vector<LinkDay> LibraryFilter::days(const std::vector<SavedLink>& links, Instant now,
                                         std::string_view timeZone) const {
    return grouped(visibleLinks(links), now, timeZone);
}

std::vector<TagSummary> LibraryFilter::tagSummaries(const std::vector<SavedLink>& links) const {
    LinkPointers inScope;
    for (const SavedLink& link : links)
        if (isInScope(link))
            inScope.push_back(&link);
    return TagSummary::summarize(inScope);
}

std::vector<TagSummary>
LibraryFilter::tagSearchSuggestions(const std::vector<SavedLink>& links) const {
    const std::string_view typed = text::trimmed(query);
    if (!typed.starts_with('#'))
        return {};
    const std::string part = LinkSearch::folded(typed.substr(1));
    std::vector<TagSummary> suggestions;
    for (TagSummary& summary : TagSummary::summarize(links)) {
        if (suggestions.size() == mostSuggestions)
            break;
        if (summary.id().find(part) != std::string::npos)
            suggestions.push_back(std::move(summary));
    }
    return suggestions;
}

std::string LibraryFilter::searchScopeTitle() const {
    if (searchEverywhere)
        return text::worded("Everywhere");
    return filter == allLinks ? text::worded("Library") : filter;
}

} // namespace brinmoor
