#pragma once

#include "core/tags/TagCaseStyle.h"
#include "core/tags/TextNumbers.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brinmoor::LinkAutoTagging {

/// A number for each tag, where tags that fold alike are one tag; in the order of their first
/// appearance, from 0.
using TagNumber = std::uint32_t;

/// The tags of many links. What a spelling needs (normalising, folding, its letter case) is worked
/// out once, however many links have it. Keeps views of the texts that it is given.
class TagTable {
public:
    /// Reads the tags of one link as SavedLink::normalizedTags gives them and counts them. The
    /// result holds until the next call; two tags of one link may fold alike.
    [[nodiscard]] const std::vector<TagNumber>& add(const std::vector<std::string>& tags);

    [[nodiscard]] std::size_t size() const noexcept { return tags_.size(); }
    /// The spelling that was met first.
    [[nodiscard]] const std::string& name(TagNumber tag) const { return tags_[tag].name; }
    [[nodiscard]] std::string_view fold(TagNumber tag) const { return folds_.text(tag); }
    [[nodiscard]] std::int64_t count(TagNumber tag) const { return tags_[tag].count; }
    /// The letter case of most tags, each counted as often as it was met.
    [[nodiscard]] TagCaseStyle style() const noexcept;

private:
    struct Tag {
        std::string name;
        std::int64_t count = 0;
    };
    /// One spelling as it stands in the links.
    struct Spelling {
        std::string name;             ///< normalised; empty when nothing is left
        std::optional<TagNumber> tag; ///< absent until a link has the tag in this spelling: one
                                      ///< that only repeats another of its link names no tag
        std::uint32_t lowercase = 0;
        int styleVote = 0; ///< 1 for upper case, -1 for lower case
    };

    Spelling& spelling(const std::string& raw);
    Spelling newSpelling(const std::string& raw);
    TagNumber tagOf(const std::string& name);

    TextNumbers raw_;
    std::vector<Spelling> spellings_; ///< by number of raw_
    TextNumbers folds_;               ///< their numbers are the tags
    TextNumbers lowercases_;
    std::vector<std::uint64_t> lastLink_; ///< by lower case: the last link that had it
    std::vector<Tag> tags_;
    std::vector<TagNumber> current_;
    std::uint64_t linkNumber_ = 0;
    std::int64_t upperCaseLead_ = 0;
};

} // namespace brinmoor::LinkAutoTagging
