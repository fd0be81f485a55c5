#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brinmoor {

/// A 128-bit identifier (RFC 4122). Making a random one is the caller's: see platform/Clock.h.
struct Uuid {
    std::array<std::uint8_t, 16> bytes{};

    /// Reads the hyphenated form 8-4-4-4-12, in either letter case and nothing else around it.
    [[nodiscard]] static std::optional<Uuid> parse(std::string_view text) noexcept;

    static constexpr std::size_t textLength = 36;

    /// The hyphenated form in upper case.
    [[nodiscard]] std::array<char, textLength> characters() const noexcept;
    [[nodiscard]] std::string string() const;

    friend auto operator<=>(const Uuid&, const Uuid&) = default;
};

struct UuidHash {
    [[nodiscard]] std::size_t operator()(const Uuid& id) const noexcept;
};

} // namespace brinmoor
