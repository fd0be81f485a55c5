#pragma once

#include "core/library/SavedLink.h"
#include "core/search/TermFinder.h"
#include "core/text/Fold.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brinmoor {

/// The texts of a link or a tab in which a query looks.
struct SearchedTexts {
    std::string_view title;
    std::string_view url;
    std::string_view note;
    std::span<const std::string> tags;
    std::string_view extra;     ///< found, but weighs little
    std::string_view moreExtra; ///< the same: as if behind `extra` and a blank
};

/// A query made ready once, to be asked of many links: LinkSearch::score without its preparation.
/// Keeps nothing of a link but the room for its folded texts. One object a thread.
class LinkQuery {
public:
    explicit LinkQuery(std::string_view query);

    /// Whether everything that matches this query matches the other one too. May say no where it is
    /// so.
    [[nodiscard]] bool narrows(const LinkQuery& other) const;

    /// As LinkSearch::score.
    [[nodiscard]] std::optional<int> score(const SearchedTexts& texts);

    /// Whether a saved link matches; its collection and browser count as its extra text.
    [[nodiscard]] bool matches(const SavedLink& link);
    /// How well a saved link matches by its title, address, note and tags alone. Made for links
    /// that match: for others it takes longer than score.
    [[nodiscard]] std::optional<int> rank(const SavedLink& link);

private:
    enum class Kind { word, wholeTag };
    struct Term {
        Kind kind;
        TermFinder finder; ///< of a whole tag, what stands behind the "#"
    };

    void addTerm(std::string_view term);
    [[nodiscard]] bool isIn(std::string_view text, const TermFinder& finder);
    [[nodiscard]] bool isInTag(const SearchedTexts& texts, const TermFinder& finder);
    [[nodiscard]] bool isTag(const SearchedTexts& texts, const TermFinder& finder);
    [[nodiscard]] bool isAnywhere(const SearchedTexts& texts, const Term& term);
    [[nodiscard]] bool hasEveryTerm(const SearchedTexts& texts);
    [[nodiscard]] std::optional<int> fullScore(const SearchedTexts& texts);
    [[nodiscard]] int termScore(const SearchedTexts& texts, std::string_view foldedTitle,
                                const Term& term);

    text::FoldRule rule_;
    std::string query_; ///< folded
    /// The longest first: most links lack it, and are done with.
    std::vector<Term> terms_;
    bool isImpossible_ = false; ///< it asks for a tag without a name
    text::FoldRoom room_;
    text::FoldRoom titleRoom_; ///< a title stays folded while other texts are
};

} // namespace brinmoor
