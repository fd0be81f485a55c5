#include "core/text/FoldBytes.h"

#include "core/text/Blocks.h"
#include "core/text/tables/FoldTable.h"

#include <bit>

namespace brinmoor::text::fold {

namespace {

using Byte = unsigned char;

/// One code point of several bytes, by its upper bits and its last six.
struct Sequence {
    unsigned length; ///< 0: a bad byte
    std::uint32_t upper;
    std::uint32_t lower;
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

// The loop over the bytes lives on this being part of it: as a call it takes twice the time.
[[gnu::always_inline]] inline Sequence sequenceAt(const char* from, const char* end) {
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
    return {0, 0, 0};
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
constexpr std::uint32_t syllableCount = 11172;

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

/// The bytes of a code point as writeBytes takes them.
[[gnu::always_inline]] inline std::uint32_t ownBytes(const char* from, unsigned length) {
    const auto byte = [&](unsigned at) {
        return std::uint32_t{static_cast<Byte>(from[at])} << (8 * at);
    };
    std::uint32_t bytes = byte(0) | byte(1);
    if (length > 2)
        bytes |= byte(2);
    return length > 3 ? bytes | byte(3) : bytes;
}

/// Takes one code point beyond ASCII, or one bad byte.
[[gnu::always_inline]] inline Cursor foldSequence(Cursor cursor, const char* textEnd) {
    const Sequence sequence = sequenceAt(cursor.from, textEnd);
    if (sequence.length == 0)
        return {cursor.from + 1, writeThreeBytes(cursor.to, 0xFFFD)};
    const char* const next = cursor.from + sequence.length;
    const std::uint32_t entry = entryOf(sequence);
    const std::uint32_t length = entry == 0 ? sequence.length : entry & 0xFFU;
    if (length == longEntry)
        return {next, writeLongForm(cursor.to, entry)};
    const std::uint32_t syllable = (sequence.upper << 6 | sequence.lower) - firstSyllable;
    if (syllable < syllableCount)
        return {next, writeHangul(cursor.to, syllable)};
    // Letters to change and letters to keep come mixed: a choice of values, not a branch.
    const std::uint32_t own = ownBytes(cursor.from, sequence.length);
    writeBytes(cursor.to, entry == 0 ? own : entry >> 8);
    return {next, cursor.to + length};
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
Cursor foldOthers(Cursor cursor, const char* pieceEnd, const char* textEnd) {
    while (cursor.from < pieceEnd) {
        if (!isAscii(*cursor.from)) {
            cursor = foldSequence(cursor, textEnd);
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

/// Takes ASCII until another byte, or a capital I under the Turkic rule, is met.
Cursor foldAscii(Cursor cursor, const char* pieceEnd, const char* textEnd, FoldRule rule) {
    while (cursor.from < pieceEnd) {
        const auto left = static_cast<std::size_t>(textEnd - cursor.from);
        const std::size_t count = left < blockSize ? left : blockSize;
        const __m128i block =
            count == blockSize ? loadBlock(cursor.from) : loadPartialBlock(cursor.from, count);
        storeBlock(cursor.to, loweredBlock(block));
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
        if (!isAscii(character) || (character == 'I' && rule == FoldRule::turkic))
            break;
        *cursor.to++ = lowered(character);
    }
    return cursor;
}

#endif

} // namespace

Cursor foldPiece(Cursor cursor, const char* pieceEnd, const char* textEnd, FoldRule rule) noexcept {
    while (cursor.from < pieceEnd) {
        cursor = foldAscii(cursor, pieceEnd, textEnd, rule);
        cursor = foldOthers(cursor, pieceEnd, textEnd);
        if (rule == FoldRule::turkic && cursor.from < pieceEnd && *cursor.from == 'I')
            cursor = foldTurkicI(cursor, textEnd);
    }
    return cursor;
}

} // namespace brinmoor::text::fold
