#include "core/text/Utf8.h"

#include "core/text/Characters.h"

#include <simdjson.h>

namespace brinmoor::text {

bool isUtf8(std::string_view text) noexcept {
    return simdjson::validate_utf8(text.data(), text.size());
}

std::string withBadBytesReplaced(std::string_view text) {
    constexpr std::string_view replacement = "\xEF\xBF\xBD";
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        if (nextCharacter(text, at) == U'\uFFFD')
            result += replacement;
        else
            result += text.substr(start, at - start);
    }
    return result;
}

} // namespace brinmoor::text
