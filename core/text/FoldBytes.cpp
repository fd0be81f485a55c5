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
    std::uint32_t bytes = 0; ///< as they stand, the first one lowest; behind them anything
};

constexpr std::uint32_t sixBits(char byte) {
    return static_cast<Byte>(byte) & 0x3FU;
}
constexpr bool isContinuation(char byte) {
    return (static_cast<Byte>(byte) & 0xC0U) == 0x80U;
}
constexpr bool isAscii(char byte) {
    return static_cast<Byte>(byte) < 0x80;
}

constexpr bool isScalarUpper(std::uint32_t upper, std::uint32_t smallest) {
    return upper >= smallest && upper < 0x110000 / 64 &&
           (upper < 0xD800 / 64 || upper >= 0xE000 / 64);
}

constexpr std::uint32_t byteAt(const char* from, unsigned at) {
    return std::uint32_t{static_cast<Byte>(from[at])} << (8 * at);
}

Sequence longSequenceAt(const char* from, const char* end) {
    const std::uint32_t lead = static_cast<Byte>(*from);
    const auto left = end - from;
    if (lead >= 0xC2 && lead < 0xE0 && left >= 2 && isContinuation(from[1]))
        return {2, lead & 0x1FU, sixBits(from[1]), byteAt(from, 0) | byteAt(from, 1)};
    if (left < 3 || lead < 0xE0 || !isContinuation(from[1]) || !isContinuation(from[2]))
        return {};
    const std::uint32_t three = byteAt(from, 0) | byteAt(from, 1) | byteAt(from, 2);
    if (lead < 0xF0) {
        const std::uint32_t upper = (lead & 0x0FU) << 6 | sixBits(from[1]);
        return {isScalarUpper(upper, 0x800 / 64) ? 3U : 0U, upper, sixBits(from[2]), three};
    }
    if (left < 4 || lead >= 0xF5 || !isContinuation(from[3]))
        return {};
    const std::uint32_t upper = (lead & 7U) << 12 | sixBits(from[1]) << 6 | sixBits(from[2]);
    return {isScalarUpper(upper, 0x10000 / 64) ? 4U : 0U, upper, sixBits(from[3]),
            three | byteAt(from, 3)};
}

/// Of two and three bytes, which nearly all letters have, without asking which of them: letters of
/// both lengths come mixed, and a wrong guess costs more than either. At least three bytes must
/// be there.
[[gnu::always_inline]] inline Sequence shortSequenceAt(const char* from) {
    const std::uint32_t lead = static_cast<Byte>(*from);
    const bool hasThree = lead >= 0xE0;
    const std::uint32_t first = sixBits(from[1]);
    const std::uint32_t upper = hasThree ? (lead & 0x0FU) << 6 | first : lead & 0x1FU;
    const auto isGood = static_cast<unsigned>(lead >= 0xC2) & static_cast<unsigned>(lead < 0xF0) &
                        static_cast<unsigned>(isContinuation(from[1])) &
                        static_cast<unsigned>(!hasThree || isContinuation(from[2])) &
                        static_cast<unsigned>(!hasThree || upper >= 0x800 / 64) &
                        static_cast<unsigned>(upper - 0xD800 / 64 >= 0x800 / 64);
    return {isGood != 0 ? 2U + static_cast<unsigned>(hasThree) : 0U, upper,
            hasThree ? sixBits(from[2]) : first,
            byteAt(from, 0) | byteAt(from, 1) | byteAt(from, 2)};
}

// The loop over the bytes lives on this being part of it: as a call it takes twice the time.
[[gnu::always_inline]] inline Sequence sequenceAt(const char* from, const char* end) {
    if (end - from >= 3)
        if (const Sequence sequence = shortSequenceAt(from); sequence.length != 0)
            return sequence;
    return longSequenceAt(from, end);
}

[[gnu::always_inline]] inline std::uint32_t entryOf(const Sequence& sequence) {
    return entries[std::size_t{blockOf[sequence.upper]} * 64 + sequence.lower];
}

char* writeThreeBytes(char* to, std::uint32_t character) {
    to[0] = static_cast<char>(0xE0U | character >> 12);
    to[1] = static_cast<char>(0x80U | (character >> 6 & 0x3FU));
    to[2] = static_cast<char>(0x80U | (character & 0x3FU));
    return to + 3;
}

constexpr std::uint32_t firstSyllable = 0xAC00;

/// Into two or three conjoining letters (The Unicode Standard, 3.12).
char* writeHangul(char* to, std::uint32_t syllable) {
    constexpr std::uint32_t trailingCount = 28;
    constexpr std::uint32_t vowelCount = 21;
    to = writeThreeBytes(to, 0x1100 + syllable / (vowelCount * trailingCount));
    to = writeThreeBytes(to, 0x1161 + syllable / trailingCount % vowelCount);
    const std::uint32_t trailing = syllable % trailingCount;
    return trailing == 0 ? to : writeThreeBytes(to, 0x11A7 + trailing);
}

char* writeLongForm(char* to, std::uint32_t entry) {
    const char* form = longForms + (entry >> 8);
    std::memcpy(to, form + 1, 16);
    return to + *form;
}

/// Four bytes at once, whatever of them counts: the first is the lowest.
[[gnu::always_inline]] inline void writeBytes(char* to, std::uint32_t bytes) {
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(to, &bytes, sizeof bytes);
    } else {
        for (unsigned at = 0; at < sizeof bytes; ++at)
            to[at] = static_cast<char>(bytes >> (8 * at) & 0xFFU);
    }
}

/// What a few code points need: a long form, or the letters of a Hangul syllable.
Cursor foldSpecially(Cursor cursor, const Sequence& sequence, std::uint32_t entry) {
    const char* const next = cursor.from + sequence.length;
    if ((entry & 0xFFU) == hangulEntry) {
        const std::uint32_t character = sequence.upper << 6 | sequence.lower;
        return {next, writeHangul(cursor.to, character - firstSyllable)};
    }
    return {next, writeLongForm(cursor.to, entry)};
}

/// Takes one code point beyond ASCII.
[[gnu::always_inline]] inline Cursor foldSequence(Cursor cursor, const Sequence& sequence) {
    const std::uint32_t entry = entryOf(sequence);
    const std::uint32_t length = entry == 0 ? sequence.length : entry & 0xFFU;
    if (length >= firstSpecialEntry)
        return foldSpecially(cursor, sequence, entry);
    // Letters to change and letters to keep come mixed: a choice of values, not a branch.
    writeBytes(cursor.to, entry == 0 ? sequence.bytes : entry >> 8);
    return {cursor.from + sequence.length, cursor.to + length};
}

/// Takes one code point beyond ASCII, or one bad byte.
[[gnu::always_inline]] inline Cursor foldOther(Cursor cursor, const char* textEnd) {
    const Sequence sequence = sequenceAt(cursor.from, textEnd);
    if (sequence.length == 0)
        return {cursor.from + 1, writeThreeBytes(cursor.to, 0xFFFD)};
    return foldSequence(cursor, sequence);
}

bool isMarkAt(const char* from, const char* end) {
    if (from == end || isAscii(*from))
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

constexpr char lowered(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + 0x20) : character;
}

/// Takes code points beyond ASCII and the single blanks and points between them, until ASCII that
/// is worth a block is met, or a capital I, which is the caller's to judge.
Cursor foldOthers(Cursor cursor, const Piece& piece) {
    const char* const textEnd = piece.textEnd;
    while (cursor.from < piece.end) {
        if (!isAscii(*cursor.from)) {
            cursor = foldOther(cursor, textEnd);
            continue;
        }
        if (textEnd - cursor.from < 2 || isAscii(cursor.from[1]) || *cursor.from == 'I')
            break;
        *cursor.to++ = lowered(*cursor.from++);
    }
    return cursor;
}

#if BRINMOOR_BLOCKS

__m128i loweredBlock(__m128i block) {
    const __m128i isCapital = _mm_and_si128(_mm_cmpgt_epi8(block, _mm_set1_epi8('A' - 1)),
                                            _mm_cmplt_epi8(block, _mm_set1_epi8('Z' + 1)));
    return _mm_or_si128(block, _mm_and_si128(isCapital, _mm_set1_epi8(0x20)));
}

/// Writes the block's lower case and gives the bits of the bytes that are not ASCII's to fold.
[[gnu::always_inline]] inline unsigned foldBlock(char* to, __m128i block, FoldRule rule) {
    storeBlock(to, loweredBlock(block));
    const unsigned stops = maskOf(block);
    if (rule == FoldRule::standard)
        return stops;
    return stops | maskOf(_mm_cmpeq_epi8(block, _mm_set1_epi8('I')));
}

/// Takes ASCII until another byte, or a capital I under the Turkic rule, is met.
Cursor foldAscii(Cursor cursor, const Piece& piece, FoldRule rule) {
    const auto advanced = [&](int count) { return Cursor{cursor.from + count, cursor.to + count}; };
    constexpr auto whole = static_cast<int>(blockSize);
    for (; piece.textEnd - cursor.from >= whole; cursor = advanced(whole)) {
        if (cursor.from >= piece.end)
            return cursor;
        // A step of fixed length: the next block is loaded before this one has been judged.
        if (const unsigned stops = foldBlock(cursor.to, loadBlock(cursor.from), rule); stops != 0)
            return advanced(std::countr_zero(stops));
    }
    const auto left = static_cast<std::size_t>(piece.textEnd - cursor.from);
    const __m128i rest = loadPartialBlock(cursor.from, left, piece.textBegin);
    return advanced(std::countr_zero(foldBlock(cursor.to, rest, rule) | 1U << left));
}

#else

Cursor foldAscii(Cursor cursor, const Piece& piece, FoldRule rule) {
    for (; cursor.from < piece.end; ++cursor.from) {
        const char character = *cursor.from;
        if (!isAscii(character) || (character == 'I' && rule == FoldRule::turkic))
            break;
        *cursor.to++ = lowered(character);
    }
    return cursor;
}

#endif

} // namespace

Cursor foldPiece(Cursor cursor, const Piece& piece, FoldRule rule) noexcept {
    while (cursor.from < piece.end) {
        cursor = foldAscii(cursor, piece, rule);
        cursor = foldOthers(cursor, piece);
        if (rule == FoldRule::turkic && cursor.from < piece.end && *cursor.from == 'I')
            cursor = foldTurkicI(cursor, piece.textEnd);
    }
    return cursor;
}

} // namespace brinmoor::text::fold
