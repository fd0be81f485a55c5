#include "core/library/Uuid.h"

#include <cstring>

namespace brinmoor {

namespace {

constexpr std::string_view digits = "0123456789ABCDEF";

/// The two digits of every byte.
constexpr auto pairs = [] {
    std::array<std::array<char, 2>, 256> all{};
    for (std::size_t byte = 0; byte < all.size(); ++byte)
        all[byte] = {digits[byte >> 4], digits[byte & 0x0F]};
    return all;
}();

/// Where the digits of each byte stand.
constexpr std::array<std::uint8_t, 16> places{0,  2,  4,  6,  9,  11, 14, 16,
                                              19, 21, 24, 26, 28, 30, 32, 34};

constexpr std::uint8_t noDigit = 0xFF;

constexpr auto digitValues = [] {
    std::array<std::uint8_t, 256> values{};
    values.fill(noDigit);
    for (std::uint8_t value = 0; value < 16; ++value) {
        const auto digit = static_cast<unsigned char>(digits[value]);
        values[digit] = value;
        values[digit | 0x20U] = value;
    }
    return values;
}();

constexpr unsigned valueOf(char digit) {
    return digitValues[static_cast<unsigned char>(digit)];
}

constexpr bool hasHyphens(std::string_view text) {
    return text[8] == '-' && text[13] == '-' && text[18] == '-' && text[23] == '-';
}

} // namespace

std::optional<Uuid> Uuid::parse(std::string_view text) noexcept {
    if (text.size() != textLength || !hasHyphens(text))
        return std::nullopt;
    Uuid result;
    unsigned seen = 0;
    for (std::size_t byte = 0; byte < result.bytes.size(); ++byte) {
        const unsigned high = valueOf(text[places[byte]]);
        const unsigned low = valueOf(text[places[byte] + std::size_t{1}]);
        seen |= high | low;
        result.bytes[byte] = static_cast<std::uint8_t>(high << 4 | low);
    }
    return seen < 16 ? std::optional(result) : std::nullopt;
}

std::array<char, Uuid::textLength> Uuid::characters() const noexcept {
    std::array<char, textLength> result;
    result[8] = result[13] = result[18] = result[23] = '-';
    for (std::size_t byte = 0; byte < bytes.size(); ++byte)
        std::memcpy(result.data() + places[byte], pairs[bytes[byte]].data(), 2);
    return result;
}

std::string Uuid::string() const {
    const auto text = characters();
    return {text.begin(), text.end()};
}

std::size_t UuidHash::operator()(const Uuid& id) const noexcept {
    std::uint64_t halves[2];
    std::memcpy(halves, id.bytes.data(), sizeof halves);
    // Identifiers of other programs may be counted up rather than random: mix both halves well.
    std::uint64_t mixed = halves[0] ^ (halves[1] * 0x9E3779B97F4A7C15U);
    mixed ^= mixed >> 32;
    return static_cast<std::size_t>(mixed * 0xD6E8FEB86659FD93U);
}

} // namespace brinmoor
