#pragma once

#include "core/library/Instant.h"
#include "core/library/Uuid.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brinmoor {

/// The user's label on a link.
enum class LinkImportance { important, notNeeded };

inline constexpr std::array allLinkImportances{LinkImportance::important,
                                               LinkImportance::notNeeded};

/// "important" or "notNeeded": the text in the file.
[[nodiscard]] std::string_view storedValue(LinkImportance importance) noexcept;
/// "Important" or "Not needed".
[[nodiscard]] std::string_view title(LinkImportance importance) noexcept;
/// The case with this stored value; absent for any other text.
[[nodiscard]] std::optional<LinkImportance> linkImportance(std::string_view storedValue) noexcept;

/// One saved web address with what the user and the program know about it. A plain value.
struct SavedLink {
    Uuid id;
    std::string url;   ///< the canonical string of a valid address, once stored
    std::string title; ///< never empty once stored
    std::optional<std::string> iconURL;
    std::string browser; ///< display name of the source
    Instant createdAt;
    std::string collection;
    std::string note;              ///< empty when there is none
    std::vector<std::string> tags; ///< always as normalizedTags gives them
    bool isFavorite = false;
    bool isArchived = false;
    std::optional<LinkImportance> importance;

    SavedLink() = default;
    /// A new link without icon, note, tags or label; `id` is random and `createdAt` the present
    /// moment, both given by the caller.
    SavedLink(std::string url, std::string title, std::string browser, std::string collection,
              Uuid id, Instant createdAt);

    /// The one rule for tag lists: trimmed, "#" stripped from both ends, at most 50 grapheme
    /// clusters, empty ones and repeats (by plain lower case) dropped, first spelling and order
    /// kept.
    [[nodiscard]] static std::vector<std::string>
    normalizedTags(const std::vector<std::string>& tags);
    /// The same for a list that is needed no more; tags in this form already stay where they are.
    [[nodiscard]] static std::vector<std::string> normalizedTags(std::vector<std::string>&& tags);

    /// normalizedTags of the pieces between commas; nothing else separates tags.
    [[nodiscard]] static std::vector<std::string> parseTags(std::string_view text);

    /// The host with every "www." removed; the whole `url` when it is no address with a host.
    [[nodiscard]] std::string domain() const;

    /// Whether a search finds the link: see LinkSearch. The collection and the browser count too.
    [[nodiscard]] bool matches(std::string_view query) const;

    friend bool operator==(const SavedLink&, const SavedLink&) = default;
};

} // namespace brinmoor
