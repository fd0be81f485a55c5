#pragma once

#include <cstdint>

/// The folded form of every code point, made at build time.
namespace brinmoor::text::fold {

/// Which 64 entries belong to the code points with the same upper bits.
extern const std::uint16_t blockOf[0x110000 / 64];

/// 0: the code point stays. Otherwise the low byte is the length of its form, up to 3, and the
/// other bytes are the form, the first one lowest; length 0 is a mark, which goes.
/// The length longEntry: the upper bytes are an offset into longForms. The length hangulEntry: a
/// Hangul syllable, whose form is arithmetic.
extern const std::uint32_t entries[];
inline constexpr std::uint32_t longEntry = 0xFF;
inline constexpr std::uint32_t hangulEntry = 0xFE;
inline constexpr std::uint32_t firstSpecialEntry = hangulEntry;

/// Forms of more than 3 bytes, each behind a byte with its length, and room to read 16 from any.
extern const char longForms[];

/// No form has more bytes than this for each byte of its code point.
inline constexpr unsigned mostGrowth = 3;

} // namespace brinmoor::text::fold
