#pragma once

#include "core/library/SavedLink.h"
#include "core/text/Fold.h"

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

    /// As LinkSearch::score.
    [[nodiscard]] std::optional<int> score(const SearchedTexts& texts);

    /// Whether a saved link matches; its collection and browser count as its extra text.
    [[nodiscard]] bool matches(const SavedLink& link);
    /// How well a saved link matches by its title, address, note and tags alone.
    [[nodiscard]] std::optional<int> rank(const SavedLink& link);

private:
    struct Span {
        std::size_t begin = 0;
        std::size_t end = 0;
    };
    /// Where the texts of the present link lie in `folded_`.
    struct FoldedSpans {
        Span title, url, note, extra;
        std::vector<Span> tags;
    };

    [[nodiscard]] std::string_view view(Span span) const {
        return std::string_view(folded_).substr(span.begin, span.end - span.begin);
    }
    [[nodiscard]] Span append(std::string_view text);
    void fold(const SearchedTexts& texts);
    [[nodiscard]] bool hasEveryTerm() const;
    [[nodiscard]] bool isTag(std::string_view name) const;
    [[nodiscard]] bool isInTag(std::string_view term) const;
    [[nodiscard]] int baseScore() const;
    /// 0: the term is nowhere.
    [[nodiscard]] int termScore(std::string_view term) const;

    text::FoldRule rule_;
    std::string query_; ///< folded
    std::vector<std::string> terms_;
    std::string folded_; ///< the texts of the present link, a line end behind each
    FoldedSpans spans_;
};

} // namespace brinmoor
