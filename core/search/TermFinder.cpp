#include "core/search/TermFinder.h"

#include "core/text/Blocks.h"

#include <algorithm>
#include <bit>

namespace brinmoor {

namespace {

enum class Form { stored, folded };

constexpr char caseBitOf(char byte) {
    return byte >= 'a' && byte <= 'z' ? char{'a' - 'A'} : char{0};
}

constexpr char lowered(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

} // namespace

struct TermFinder::Loops {
    const TermFinder& finder;
    std::string_view text;

    template <Form form>
    [[nodiscard]] bool isAt(std::size_t place) const {
        const std::string_view term = finder.term_;
        if (place + term.size() > text.size())
            return false;
        if constexpr (form == Form::folded)
            return text.compare(place, term.size(), term) == 0;
        const char special = finder.special_.bytes[0];
        return std::equal(term.begin(), term.end(), text.data() + place,
                          [special](char wanted, char stored) {
                              return stored != special && wanted == lowered(stored);
                          });
    }

#if BRINMOOR_BLOCKS
    static __m128i block(const Repeated& repeated) {
        return _mm_load_si128(reinterpret_cast<const __m128i*>(repeated.bytes.data()));
    }

    [[nodiscard]] unsigned special(__m128i bytes) const {
        return text::maskOf(_mm_or_si128(bytes, _mm_cmpeq_epi8(bytes, block(finder.special_))));
    }

    /// The places of `bytes` where the term may begin; `next` has the bytes behind them.
    template <Form form>
    [[nodiscard]] unsigned places(__m128i bytes, __m128i next) const {
        if constexpr (form == Form::stored) {
            bytes = _mm_or_si128(bytes, block(finder.firstCase_));
            next = _mm_or_si128(next, block(finder.secondCase_));
        }
        return text::maskOf(_mm_and_si128(_mm_cmpeq_epi8(bytes, block(finder.first_)),
                                          _mm_cmpeq_epi8(next, block(finder.second_))));
    }

    template <Form form>
    [[nodiscard]] bool isAtOneOf(unsigned marked, std::size_t begin) const {
        for (; marked != 0; marked &= marked - 1)
            if (isAt<form>(begin + static_cast<std::size_t>(std::countr_zero(marked))))
                return true;
        return false;
    }

    /// For a text of which a block and the byte behind it would pass the end.
    template <Form form>
    [[nodiscard]] Answer lookShort(std::size_t step) const {
        const __m128i bytes = text.size() == text::blockSize
                                  ? text::loadBlock(text.data())
                                  : text::loadPartialBlock(text.data(), text.size());
        if (isAtOneOf<form>(places<form>(bytes, step == 0 ? bytes : _mm_srli_si128(bytes, 1)), 0))
            return Answer::found;
        return form == Form::stored && special(bytes) != 0 ? Answer::needsFold : Answer::absent;
    }

    template <Form form>
    [[nodiscard]] Answer look() const {
        const std::size_t step = finder.term_.size() > 1 ? 1 : 0;
        if (text.size() < text::blockSize + step)
            return lookShort<form>(step);
        const std::size_t last = text.size() - text::blockSize - step;
        for (std::size_t at = 0;; at = std::min(at + text::blockSize, last)) {
            const __m128i bytes = text::loadBlock(text.data() + at);
            const __m128i next = text::loadBlock(text.data() + at + step);
            const unsigned marked = places<form>(bytes, next);
            if (marked != 0 && isAtOneOf<form>(marked, at))
                return Answer::found;
            if (form == Form::stored && (special(bytes) != 0 || (at == last && special(next) != 0)))
                return Answer::needsFold;
            if (at == last)
                return Answer::absent;
        }
    }
#else
    template <Form form>
    [[nodiscard]] Answer look() const {
        for (std::size_t at = 0; at < text.size(); ++at) {
            if (isAt<form>(at))
                return Answer::found;
            const bool isAscii = static_cast<unsigned char>(text[at]) < 0x80;
            if (form == Form::stored && (!isAscii || text[at] == finder.special_.bytes[0]))
                return Answer::needsFold;
        }
        return Answer::absent;
    }
#endif
};

TermFinder::TermFinder(std::string_view foldedTerm, text::FoldRule rule)
    : term_(foldedTerm), first_(term_.front()), firstCase_(caseBitOf(term_.front())),
      second_(term_[term_.size() > 1 ? 1 : 0]), secondCase_(caseBitOf(second_.bytes[0])),
      special_(rule == text::FoldRule::turkic ? 'I' : '\x80') {}

TermFinder::Answer TermFinder::lookInto(std::string_view text) const noexcept {
    return Loops{*this, text}.look<Form::stored>();
}

bool TermFinder::isInFolded(std::string_view folded) const noexcept {
    return Loops{*this, folded}.look<Form::folded>() == Answer::found;
}

} // namespace brinmoor
