#pragma once

#include "core/library/SavedLink.h"
#include "core/text/WebAddress.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace brinmoor {

using UuidSet = std::unordered_set<Uuid, UuidHash>;

/// The whole document: what the file holds and the model adopts. A plain value; every operation
/// changes it in place and fails only through its result. Any thread.
struct Library {
    int version = 1;
    std::vector<SavedLink> links; ///< active and archived, newest first, never re-sorted
    std::vector<std::string> collections{"Inbox", "Inspiration", "Read later"};

    /// The gate for every address that is saved: trimmed of white space and line ends, http or
    /// https, a host, neither user nor password. Absent for anything else.
    [[nodiscard]] static std::optional<WebAddress> validatedURL(std::string_view text);

    /// The text that makes two addresses one link: scheme and host in lower case, a bare "/" path
    /// dropped, all else kept. The input itself when it is no URL.
    [[nodiscard]] static std::string identity(std::string_view text);

    /// Puts the valid and unknown ones of `incoming` to the front, in their order, and gives their
    /// number. What is there already is never changed.
    std::size_t insert(std::vector<SavedLink> incoming);

    /// Updates icon, title, note and tags of the link with this identity, or inserts the link.
    /// False, with nothing changed, when its address is invalid.
    bool saveAnnotated(const SavedLink& link);

    /// Renames every tag that folds like `old`; gives the number of links changed.
    std::size_t renameTag(std::string_view old, std::string_view to);
    /// Removes every tag that folds like `tag` (untrimmed); gives the number of links changed.
    std::size_t deleteTag(std::string_view tag);
    /// Gives the ids of the links whose state really changed.
    UuidSet setArchived(bool archived, const UuidSet& ids);
    /// Removes the archived ones of `ids`; gives their number. Active links stay.
    std::size_t deleteArchived(const UuidSet& ids);

    friend bool operator==(const Library&, const Library&) = default;
};

} // namespace brinmoor
