#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The beginning that every frame's JSON has, `{"id":NUMBER,`, written without white space. It lets
/// a frame be routed without reading the rest. Any thread.
namespace brinmoor::bridge {

inline constexpr int protocolVersion = 1;

struct Envelope {
    std::uint64_t id = 0;  ///< 0 marks an event, anything else a request and its answer
    std::string_view rest; ///< the bytes behind the number, from the comma on
};

/// Absent when the text doesn't begin as every frame has to, or the number is too large.
[[nodiscard]] std::optional<Envelope> openedEnvelope(std::string_view body);

/// The text with another identifier in front of the same rest.
[[nodiscard]] std::string closedEnvelope(std::uint64_t id, std::string_view rest);

} // namespace brinmoor::bridge
