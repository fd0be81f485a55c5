#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__) && !defined(BRINMOOR_NO_BLOCKS)
#include <emmintrin.h>
#define BRINMOOR_BLOCKS 1
#else
#define BRINMOOR_BLOCKS 0
#endif

/// Sixteen bytes at once, on processors that have the instructions; BRINMOOR_BLOCKS tells, and
/// BRINMOOR_NO_BLOCKS asks for the sources that other processors get.
/// SSE2 is on every x86-64 and enough: wider registers gained less than a tenth.
namespace brinmoor::text {

#if BRINMOOR_BLOCKS

inline constexpr std::size_t blockSize = sizeof(__m128i);

[[nodiscard]] inline __m128i loadBlock(const char* from) noexcept {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}

/// Writes a whole block: the room behind the bytes that count must be there.
inline void storeBlock(char* to, __m128i block) noexcept {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), block);
}

template <class Word>
[[nodiscard]] inline std::uint64_t loadWord(const char* from) noexcept {
    Word word;
    std::memcpy(&word, from, sizeof word);
    return word;
}

/// The first `count` bytes, fewer than a block, zeros behind them; reads no byte beyond.
[[nodiscard]] inline __m128i loadPartialBlock(const char* from, std::size_t count) noexcept {
    std::uint64_t low = 0;
    std::uint64_t high = 0;
    if (count >= 8) {
        low = loadWord<std::uint64_t>(from);
        if (count > 8)
            high = loadWord<std::uint64_t>(from + count - 8) >> (8 * (16 - count));
    } else if (count >= 4) {
        low = loadWord<std::uint32_t>(from) | loadWord<std::uint32_t>(from + count - 4)
                                                  << (8 * (count - 4));
    } else {
        for (std::size_t at = 0; at < count; ++at)
            low |= loadWord<std::uint8_t>(from + at) << (8 * at);
    }
    return _mm_set_epi64x(static_cast<long long>(high), static_cast<long long>(low));
}

/// The same where `begin`, at or before `from`, is where the readable bytes start: if there are
/// enough of them it takes no branch, which is what short texts of all lengths cost most.
[[nodiscard]] inline __m128i loadPartialBlock(const char* from, std::size_t count,
                                              const char* begin) noexcept {
    const auto before = blockSize - count;
    if (count == 0 || static_cast<std::size_t>(from - begin) < before)
        return loadPartialBlock(from, count);
    __extension__ using Wide = unsigned __int128;
    Wide wide;
    std::memcpy(&wide, from - before, sizeof wide);
    wide >>= 8 * before;
    return _mm_set_epi64x(static_cast<long long>(wide >> 64), static_cast<long long>(wide));
}

[[nodiscard]] inline unsigned maskOf(__m128i bytes) noexcept {
    return static_cast<unsigned>(_mm_movemask_epi8(bytes));
}

#endif

} // namespace brinmoor::text
