#pragma once

#include <cstddef>
#include <string_view>

namespace brinmoor::text::json {

struct Escaped {
    char* end;
    bool isAscii;
};

/// The room that writeEscaped needs for a text of `size` bytes: it writes whole blocks.
[[nodiscard]] constexpr std::size_t escapedRoom(std::size_t size) noexcept {
    return 6 * size + 16;
}

/// Writes the inside of a JSON string: quote, backslash, slash and control characters escaped.
[[nodiscard]] Escaped writeEscaped(char* to, std::string_view text) noexcept;

} // namespace brinmoor::text::json
