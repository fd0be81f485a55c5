#include "core/text/FoldBytes.h"

#include "core/text/Blocks.h"
#include "core/text/tables/FoldTable.h"

#include <bit>

namespace brinmoor::text::fold {

namespace {

using Byte = unsigned char;

/// One code point of several bytes, by its upper bits and its last six.
struct Sequence {
    unsigned length = 0; ///< 0: a bad byte
    std::uint32_t upper = 0;
    std::uint32_t lower = 0;
};

constexpr std::uint32_t sixBits(char byte) {
    return static_cast<Byte>(byte) & 0x3FU;
}
constexpr bool isContinuation(char byte) {
    return (static_cast<Byte>(byte) & 0xC0U) == 0x80U;
}

constexpr bool isScalarUpper(std::uint32_t upper, std::uint32_t smallest) {
    return upper >= smallest && upper < 0x110000 / 64 &&
           (upper < 0xD800 / 64 || upper >= 0xE000 / 64);
}

Sequence sequenceAt(const char* from, const char* end) {
    const std::uint32_t lead = static_cast<Byte>(*from);
    const auto left = end - from;
    if (lead >= 0xC2 && lead < 0xE0 && left >= 2 && isContinuation(from[1]))
        return {2, lead & 0x1FU, sixBits(from[1])};
    if (lead >= 0xE0 && lead < 0xF0 && left >= 3 && isContinuation(from[1]) &&
        isContinuation(from[2])) {
        const std::uint32_t upper = (lead & 0x0FU) << 6 | sixBits(from[1]);
        return {isScalarUpper(upper, 0x800 / 64) ? 3U : 0U, upper, sixBits(from[2])};
    }
    if (lead >= 0xF0 && lead < 0xF5 && left >= 4 && isContinuation(from[1]) &&
        isContinuation(from[2]) && isContinuation(from[3])) {
        const std::uint32_t upper = (lead & 7U) << 12 | sixBits(from[1]) << 6 | sixBits(from[2]);
        return {isScalarUpper(upper, 0x10000 / 64) ? 4U : 0U, upper, sixBits(from[3])};
    }
    return {};
}

std::uint32_t entryOf(const Sequence& sequence) {
    return entries[std::size_t{blockOf[sequence.upper]} * 64 + sequence.lower];
}

char* writeThreeBytes(char* to, std::uint32_t character) {
    to[0] = static_cast<char>(0xE0U | character >> 12);
    to[1] = static_cast<char>(0x80U | (character >> 6 & 0x3FU));
    to[2] = static_cast<char>(0x80U | (character & 0x3FU));
    return to + 3;
}

/// Into two or three conjoining letters (The Unicode Standard, 3.12).
char* writeHangul(char* to, std::uint32_t syllable) {
    constexpr std::uint32_t trailingCount = 28;
    constexpr std::uint32_t vowelCount = 21;
    to = writeThreeBytes(to, 0x1100 + syllable / (vowelCount * trailingCount));
    to = writeThreeBytes(to, 0x1161 + syllable / trailingCount % vowelCount);
    const std::uint32_t trailing = syllable % trailingCount;
    return trailing == 0 ? to : writeThreeBytes(to, 0x11A7 + trailing);
}

char* writeEntry(char* to, std::uint32_t entry) {
    const std::uint32_t length = entry & 0xFFU;
    if (length == longEntry) {
        const char* form = longForms + (entry >> 8);
        std::memcpy(to, form + 1, 16);
        return to + *form;
    }
    to[0] = static_cast<char>(entry >> 8 & 0xFFU);
    to[1] = static_cast<char>(entry >> 16 & 0xFFU);
    to[2] = static_cast<char>(entry >> 24);
    return to + length;
}

char* copySequence(char* to, const char* from, unsigned length) {
    to[0] = from[0];
    to[1] = from[1];
    if (length > 2)
        to[2] = from[2];
    if (length > 3)
        to[3] = from[3];
    return to + length;
}

/// Takes one code point beyond ASCII, or one bad byte.
Cursor foldSequence(Cursor cursor, const char* textEnd) {
    constexpr std::uint32_t firstSyllable = 0xAC00;
    constexpr std::uint32_t syllableCount = 11172;
    const Sequence sequence = sequenceAt(cursor.from, textEnd);
    if (sequence.length == 0)
        return {cursor.from + 1, writeThreeBytes(cursor.to, 0xFFFD)};
    const char* const next = cursor.from + sequence.length;
    if (const std::uint32_t entry = entryOf(sequence))
        return {next, writeEntry(cursor.to, entry)};
    const std::uint32_t syllable = (sequence.upper << 6 | sequence.lower) - firstSyllable;
    if (syllable < syllableCount)
        return {next, writeHangul(cursor.to, syllable)};
    return {next, copySequence(cursor.to, cursor.from, sequence.length)};
}

bool isMarkAt(const char* from, const char* end) {
    if (from == end || static_cast<Byte>(*from) < 0x80)
        return false;
    const Sequence sequence = sequenceAt(from, end);
    const std::uint32_t entry = sequence.length == 0 ? 0 : entryOf(sequence);
    return entry != 0 && (entry & 0xFFU) == 0;
}

/// A bare I is the capital of dotless i; with a mark above or below it is the other letter.
Cursor foldTurkicI(Cursor cursor, const char* textEnd) {
    constexpr std::uint32_t dotlessI = 0x131;
    ++cursor.from;
    if (isMarkAt(cursor.from, textEnd)) {
        *cursor.to++ = 'i';
        return cursor;
    }
    *cursor.to++ = static_cast<char>(0xC0U | dotlessI >> 6);
    *cursor.to++ = static_cast<char>(0x80U | (dotlessI & 0x3FU));
    return cursor;
}

#if BRINMOOR_BLOCKS

__m128i lowered(__m128i block) {
    const __m128i isCapital = _mm_and_si128(_mm_cmpgt_epi8(block, _mm_set1_epi8('A' - 1)),
                                            _mm_cmplt_epi8(block, _mm_set1_epi8('Z' + 1)));
    return _mm_or_si128(block, _mm_and_si128(isCapital, _mm_set1_epi8(0x20)));
}

/// Takes ASCII until another byte, or a capital I under the Turkic rule, is met.
Cursor foldAscii(Cursor cursor, const char* pieceEnd, const char* textEnd, FoldRule rule) {
    while (cursor.from < pieceEnd) {
        const auto left = static_cast<std::size_t>(textEnd - cursor.from);
        const std::size_t count = left < blockSize ? left : blockSize;
        const __m128i block =
            count == blockSize ? loadBlock(cursor.from) : loadPartialBlock(cursor.from, count);
        storeBlock(cursor.to, lowered(block));
        unsigned stops = maskOf(block) | 1U << count;
        if (rule == FoldRule::turkic)
            stops |= maskOf(_mm_cmpeq_epi8(block, _mm_set1_epi8('I')));
        const auto taken = std::countr_zero(stops);
        cursor.from += taken;
        cursor.to += taken;
        if (static_cast<std::size_t>(taken) < blockSize)
            break;
    }
    return cursor;
}

#else

Cursor foldAscii(Cursor cursor, const char* pieceEnd, const char*, FoldRule rule) {
    for (; cursor.from < pieceEnd; ++cursor.from) {
        const char character = *cursor.from;
        if (static_cast<Byte>(character) >= 0x80 || (character == 'I' && rule == FoldRule::turkic))
            break;
        const bool isCapital = character >= 'A' && character <= 'Z';
        *cursor.to++ = isCapital ? static_cast<char>(character + 0x20) : character;
    }
    return cursor;
}

#endif

} // namespace

Cursor foldPiece(Cursor cursor, const char* pieceEnd, const char* textEnd, FoldRule rule) noexcept {
    while (cursor.from < pieceEnd) {
        cursor = foldAscii(cursor, pieceEnd, textEnd, rule);
        while (cursor.from < pieceEnd && static_cast<Byte>(*cursor.from) >= 0x80)
            cursor = foldSequence(cursor, textEnd);
        if (rule == FoldRule::turkic && cursor.from < pieceEnd && *cursor.from == 'I')
            cursor = foldTurkicI(cursor, textEnd);
    }
    return cursor;
}

} // namespace brinmoor::text::fold
