#pragma once

#include <string>
#include <string_view>

namespace brinmoor::text {

[[nodiscard]] bool isUtf8(std::string_view text) noexcept;

/// The text with U+FFFD for each byte that is no part of a character.
[[nodiscard]] std::string withBadBytesReplaced(std::string_view text);

} // namespace brinmoor::text
