#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace brinmoor::bridge {

/// The extension's first message of a connection.
struct Hello {
    std::string profile; ///< sixteen hexadecimal digits, the same for as long as the profile lives
};

/// A window of the browser got the focus, or the last one that had it lost it.
struct FocusChange {
    bool focused = false;
};

using BrowserEvent = std::variant<Hello, FocusChange>;

/// Reads the body of a frame whose identifier is 0; absent when it is no known event.
[[nodiscard]] std::optional<BrowserEvent> browserEvent(std::string_view body);

} // namespace brinmoor::bridge
