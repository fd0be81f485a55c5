#include "platform/Http.h"

#include <algorithm>

namespace brinmoor {
namespace {

char lowered(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character | 0x20) : character;
}

} // namespace

std::optional<std::string> HttpHead::header(std::string_view name) const {
    const auto found = std::ranges::find_if(headers, [name](const HttpHeader& header) {
        return std::ranges::equal(header.name, name, {}, lowered, lowered);
    });
    return found == headers.end() ? std::nullopt : std::optional(found->value);
}

} // namespace brinmoor
