#pragma once

#include "core/library/Library.h"

#include <string>
#include <vector>

/// Lists over the whole library, archived links included. Pure, any thread.
namespace brinmoor::LibraryLists {

/// The names of TagSummary::summarize.
[[nodiscard]] std::vector<std::string> allTags(const std::vector<SavedLink>& links);

/// The different domains that aren't empty, by name under the user's locale.
[[nodiscard]] std::vector<std::string> domainOptions(const std::vector<SavedLink>& links);

/// The ids of the links that are not archived, and of those that are.
[[nodiscard]] UuidSet activeIDs(const std::vector<SavedLink>& links);
[[nodiscard]] UuidSet archivedIDs(const std::vector<SavedLink>& links);

} // namespace brinmoor::LibraryLists
