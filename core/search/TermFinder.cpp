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

/// The loops over one text.
struct TermFinder::Text {
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

    /// The places of `bytes` whose characters fold into more than a small letter.
    template <Form form>
    [[nodiscard]] unsigned specials(__m128i bytes) const {
        if constexpr (form == Form::folded)
            return 0;
        return text::maskOf(_mm_or_si128(bytes, _mm_cmpeq_epi8(bytes, block(finder.special_))));
    }

    // Seldom called: it would take the registers of the loop.
    template <Form form>
    [[nodiscard, gnu::noinline]] bool isAtOneOf(unsigned marked, std::size_t begin) const {
        for (; marked != 0; marked &= marked - 1)
            if (isAt<form>(begin + static_cast<std::size_t>(std::countr_zero(marked))))
                return true;
        return false;
    }

    template <Form form>
    [[nodiscard]] Answer lookAt(std::size_t begin, unsigned marked, unsigned special) const {
        if (marked != 0 && isAtOneOf<form>(marked, begin))
            return Answer::found;
        return special != 0 ? Answer::needsFold : Answer::absent;
    }

    /// The last sixteen bytes, or as many as there are.
    template <Form form>
    [[nodiscard]] Answer lookAtEnd() const {
        const bool isShort = text.size() < text::blockSize;
        const std::size_t begin = isShort ? 0 : text.size() - text::blockSize;
        const __m128i bytes = isShort ? text::loadPartialBlock(text.data(), text.size())
                                      : text::loadBlock(text.data() + begin);
        const __m128i next = finder.step_ == 0 ? bytes : _mm_srli_si128(bytes, 1);
        return lookAt<form>(begin, places<form>(bytes, next), specials<form>(bytes));
    }

    template <Form form>
    [[nodiscard]] Answer look() const {
        for (std::size_t at = 0; at + text::blockSize < text.size(); at += text::blockSize) {
            const __m128i bytes = text::loadBlock(text.data() + at);
            const __m128i next = text::loadBlock(text.data() + at + finder.step_);
            const unsigned marked = places<form>(bytes, next);
            const unsigned special = specials<form>(bytes);
            if ((marked | special) == 0)
                continue;
            const Answer answer = lookAt<form>(at, marked, special);
            if (answer != Answer::absent)
                return answer;
        }
        return lookAtEnd<form>();
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
    : term_(foldedTerm), step_(term_.size() > 1 ? 1 : 0), first_(term_.front()),
      firstCase_(caseBitOf(term_.front())), second_(term_[step_]),
      secondCase_(caseBitOf(term_[step_])),
      special_(rule == text::FoldRule::turkic ? 'I' : '\x80') {}

TermFinder::Answer TermFinder::lookInto(std::string_view text) const noexcept {
    return Text{*this, text}.look<Form::stored>();
}

bool TermFinder::isInFolded(std::string_view folded) const noexcept {
    return Text{*this, folded}.look<Form::folded>() == Answer::found;
}

} // namespace brinmoor
