#include "core/text/JsonEscapes.h"

#include "core/text/Blocks.h"

#include <array>
#include <bit>

namespace brinmoor::text::json {

namespace {

/// The letter behind the backslash, for the characters that have one.
constexpr auto escapeLetters = [] {
    std::array<char, 256> letters{};
    constexpr std::string_view special = "\"\\/\b\f\n\r\t";
    constexpr std::string_view names = "\"\\/bfnrt";
    for (std::size_t at = 0; at < special.size(); ++at)
        letters[static_cast<unsigned char>(special[at])] = names[at];
    return letters;
}();

char* writeLongEscape(char* to, char character) {
    constexpr std::string_view digits = "0123456789abcdef";
    const auto byte = static_cast<unsigned char>(character);
    for (const char next : {'\\', 'u', '0', '0', digits[byte >> 4], digits[byte & 0x0F]})
        *to++ = next;
    return to;
}

[[gnu::always_inline]] inline char* writeEscape(char* to, char character) {
    const char letter = escapeLetters[static_cast<unsigned char>(character)];
    if (letter == 0)
        return writeLongEscape(to, character);
    to[0] = '\\';
    to[1] = letter;
    return to + 2;
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

namespace {

/// How far the text has been taken and written.
struct Copying {
    const char* from;
    char* to;

    void takeClean(std::size_t count) {
        from += count;
        to += count;
    }
    void takeEscaped() { to = writeEscape(to, *from++); }

    /// Takes a block with bytes to escape; at least as much must stand behind it. What follows an
    /// escape is stored again in its new place.
    void takeBlock(unsigned escapes) {
        const char* const end = from + blockSize;
        for (; escapes != 0; escapes &= escapes - 1) {
            takeClean(static_cast<std::size_t>(end - from) - leftBehind(escapes));
            takeEscaped();
            storeBlock(to, loadBlock(from));
        }
        takeClean(static_cast<std::size_t>(end - from));
    }

private:
    /// The bytes of a block from its first one to be escaped on.
    static std::size_t leftBehind(unsigned escapes) {
        return blockSize - static_cast<std::size_t>(std::countr_zero(escapes));
    }
};

} // namespace

Escaped writeEscaped(char* to, std::string_view text) noexcept {
    Copying copying{text.data(), to};
    const char* const end = text.data() + text.size();
    unsigned beyondAscii = 0;
    while (end - copying.from >= static_cast<std::ptrdiff_t>(blockSize)) {
        const __m128i block = loadBlock(copying.from);
        storeBlock(copying.to, block);
        beyondAscii |= maskOf(block);
        const unsigned escapes = escapesIn(block);
        // A step of fixed length: the next block is loaded before this one has been judged.
        if (escapes == 0)
            copying.takeClean(blockSize);
        else if (end - copying.from >= static_cast<std::ptrdiff_t>(2 * blockSize))
            copying.takeBlock(escapes);
        else {
            copying.takeClean(static_cast<std::size_t>(std::countr_zero(escapes)));
            copying.takeEscaped();
        }
    }
    while (copying.from != end) {
        const auto left = static_cast<std::size_t>(end - copying.from);
        const __m128i block = loadPartialBlock(copying.from, left, text.data());
        storeBlock(copying.to, block);
        beyondAscii |= maskOf(block);
        // A bit behind the bytes that are left stops the search where they end.
        const auto clean =
            static_cast<std::size_t>(std::countr_zero(escapesIn(block) | 1U << left));
        copying.takeClean(clean);
        if (clean < left)
            copying.takeEscaped();
    }
    return {copying.to, beyondAscii == 0};
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
