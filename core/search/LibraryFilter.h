#pragma once

#include "core/library/LinkDay.h"
#include "core/library/SavedLink.h"
#include "core/library/TagSummary.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brinmoor {

/// What the library screen is set to show, and what it shows then. A plain value. The links are
/// always those of the library, in its order; every list is made anew and points to them.
struct LibraryFilter {
    static constexpr std::string_view allLinks = "All links";
    static constexpr std::string_view favorites = "Favorites";
    static constexpr std::string_view archive = "Archive";

    std::string filter{allLinks}; ///< one of the three above, or a collection
    std::string query;
    bool searchEverywhere = true;
    std::optional<std::string> selectedTag;
    std::optional<std::string> selectedDomain;
    bool notesOnly = false;

    /// Whether there is a query; white space is none.
    [[nodiscard]] bool isSearching() const noexcept;
    /// Whether a tag, a site or the note refines the list.
    [[nodiscard]] bool hasRefinements() const noexcept;
    [[nodiscard]] bool linkIsInCurrentSection(const SavedLink& link) const noexcept;

    /// Whether every link that this filter shows is shown by the other one too, both being
    /// searches. May say no where it is so.
    [[nodiscard]] bool narrows(const LibraryFilter& other) const;

    /// The links that pass, in the order of the library.
    [[nodiscard]] LinkPointers visibleLinks(const std::vector<SavedLink>& links) const;
    /// The same among some of them.
    [[nodiscard]] LinkPointers visibleLinks(const LinkPointers& links) const;

    /// The visible links in the groups of the library list: by day, or those of a search in one
    /// group, the best first.
    [[nodiscard]] std::vector<LinkDay> grouped(const LinkPointers& visible, Instant now,
                                               std::string_view timeZone) const;
    /// The same of all links, of which the visible ones are found first.
    [[nodiscard]] std::vector<LinkDay> days(const std::vector<SavedLink>& links, Instant now,
                                            std::string_view timeZone) const;

    /// The tags of the links in scope, whatever else refines the list.
    [[nodiscard]] std::vector<TagSummary> tagSummaries(const std::vector<SavedLink>& links) const;

    /// The first 8 tags that contain what follows the "#" with which the query begins.
    [[nodiscard]] std::vector<TagSummary>
    tagSearchSuggestions(const std::vector<SavedLink>& links) const;

    /// "Everywhere", "Library", or the filter's name.
    [[nodiscard]] std::string searchScopeTitle() const;

    friend bool operator==(const LibraryFilter&, const LibraryFilter&) = default;

private:
    [[nodiscard]] bool isInScope(const SavedLink& link) const noexcept;
};

} // namespace brinmoor
