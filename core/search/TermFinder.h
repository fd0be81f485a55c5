#pragma once

#include "core/text/Fold.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace brinmoor {

/// Looks for one folded term in many texts. Most of them need not be folded for that: while every
/// character is ASCII, folding is letter case alone. Any thread.
class TermFinder {
public:
    enum class Answer {
        found,
        absent,
        needsFold, ///< the text holds characters of which only the folded form can tell
    };

    /// `foldedTerm` isn't empty.
    TermFinder(std::string_view foldedTerm, text::FoldRule rule);

    [[nodiscard]] const std::string& term() const noexcept { return term_; }

    /// Whether the folded form of `text` contains the term.
    [[nodiscard]] Answer lookInto(std::string_view text) const noexcept;
    [[nodiscard]] bool isInFolded(std::string_view folded) const noexcept;

private:
    struct Text;

    /// One byte sixteen times, as it is compared with a block.
    struct alignas(16) Repeated {
        explicit Repeated(char byte) { bytes.fill(byte); }
        std::array<char, 16> bytes;
    };

    std::string term_;
    std::size_t step_;   ///< from the first byte of the term to the second, if there is one
    Repeated first_;     ///< the first byte of the term
    Repeated firstCase_; ///< the bit that its capital lacks
    Repeated second_;    ///< the second byte, or the only one again
    Repeated secondCase_;
    /// An ASCII character that folds into another than its small letter; none: it isn't ASCII.
    Repeated special_;
};

} // namespace brinmoor
