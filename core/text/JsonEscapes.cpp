#include "core/text/JsonEscapes.h"

#include "core/text/Blocks.h"

#include <bit>

namespace brinmoor::text::json {

namespace {

char* writeEscape(char* to, char character) {
    constexpr std::string_view digits = "0123456789abcdef";
    constexpr std::string_view special = "\"\\/\b\f\n\r\t";
    constexpr std::string_view letters = "\"\\/bfnrt";
    *to++ = '\\';
    if (const auto at = special.find(character); at != std::string_view::npos) {
        *to++ = letters[at];
        return to;
    }
    const auto byte = static_cast<unsigned char>(character);
    for (const char next : {'u', '0', '0', digits[byte >> 4], digits[byte & 0x0F]})
        *to++ = next;
    return to;
}

#if BRINMOOR_BLOCKS

unsigned escapesIn(__m128i block) {
    const __m128i highestControl = _mm_set1_epi8(0x1F);
    const __m128i controls = _mm_cmpeq_epi8(_mm_min_epu8(block, highestControl), block);
    const __m128i slashes = _mm_or_si128(_mm_cmpeq_epi8(block, _mm_set1_epi8('/')),
                                         _mm_cmpeq_epi8(block, _mm_set1_epi8('\\')));
    const __m128i quotes = _mm_cmpeq_epi8(block, _mm_set1_epi8('"'));
    return maskOf(_mm_or_si128(_mm_or_si128(controls, quotes), slashes));
}

#else

bool needsEscape(char character) {
    return static_cast<unsigned char>(character) < 0x20 || character == '"' || character == '\\' ||
           character == '/';
}

#endif

} // namespace

#if BRINMOOR_BLOCKS

Escaped writeEscaped(char* to, std::string_view text) noexcept {
    const char* from = text.data();
    const char* const end = from + text.size();
    unsigned beyondAscii = 0;
    while (from != end) {
        const auto left = static_cast<std::size_t>(end - from);
        const std::size_t count = left < blockSize ? left : blockSize;
        const __m128i block = count == blockSize ? loadBlock(from) : loadPartialBlock(from, count);
        storeBlock(to, block);
        beyondAscii |= maskOf(block);
        // A bit behind the counted bytes stops the search where they end.
        const auto clean =
            static_cast<std::size_t>(std::countr_zero(escapesIn(block) | 1U << count));
        to += clean;
        from += clean;
        if (clean < count)
            to = writeEscape(to, *from++);
    }
    return {to, beyondAscii == 0};
}

#else

Escaped writeEscaped(char* to, std::string_view text) noexcept {
    unsigned seen = 0;
    for (const char character : text) {
        seen |= static_cast<unsigned char>(character);
        if (needsEscape(character))
            to = writeEscape(to, character);
        else
            *to++ = character;
    }
    return {to, seen < 0x80};
}

#endif

} // namespace brinmoor::text::json
