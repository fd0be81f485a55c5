#include "bridge/frames/Envelope.h"

#include <charconv>

namespace brinmoor::bridge {
namespace {

constexpr std::string_view opening = "{\"id\":";
/// Beyond this, JavaScript's numbers are no longer exact.
constexpr std::uint64_t largestIdentifier = (std::uint64_t{1} << 53) - 1;

} // namespace

std::optional<Envelope> openedEnvelope(std::string_view body) {
    if (!body.starts_with(opening))
        return std::nullopt;
    body.remove_prefix(opening.size());
    Envelope envelope;
    const auto [end, error] = std::from_chars(body.data(), body.data() + body.size(), envelope.id);
    const auto digits = static_cast<std::size_t>(end - body.data());
    const bool leadingZero = digits > 1 && body.front() == '0';
    if (error != std::errc{} || leadingZero || envelope.id > largestIdentifier)
        return std::nullopt;
    envelope.rest = body.substr(digits);
    if (!envelope.rest.starts_with(',') || !envelope.rest.ends_with('}'))
        return std::nullopt;
    return envelope;
}

std::string closedEnvelope(std::uint64_t id, std::string_view rest) {
    std::string body(opening);
    body += std::to_string(id);
    body += rest;
    return body;
}

} // namespace brinmoor::bridge
