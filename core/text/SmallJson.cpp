#include "core/text/SmallJson.h"

#include "core/text/Characters.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace brinmoor::text {
namespace {

constexpr std::size_t escapeLength = 6; // \u1234

/// The code unit of the escape at the beginning of `text`; absent when there is none.
std::optional<unsigned> escapedUnit(std::string_view text) {
    if (text.size() < escapeLength || !text.starts_with("\\u"))
        return std::nullopt;
    unsigned unit = 0;
    const char* end = text.data() + escapeLength;
    if (std::from_chars(text.data() + 2, end, unit, 16).ptr != end)
        return std::nullopt;
    return unit;
}

bool isHighSurrogate(unsigned unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(unsigned unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

bool isPair(std::string_view text) {
    const auto low = escapedUnit(text.substr(escapeLength));
    return low && isLowSurrogate(*low);
}

/// Every backslash begins an escape, since none may stand outside a string.
void replaceLoneSurrogates(char* begin, std::size_t size) {
    const std::string_view text(begin, size);
    std::size_t at = text.find('\\');
    while (at != std::string_view::npos) {
        const auto unit = escapedUnit(text.substr(at));
        std::size_t length = unit ? escapeLength : 2;
        if (unit && isHighSurrogate(*unit) && isPair(text.substr(at)))
            length = 2 * escapeLength;
        else if (unit && (isHighSurrogate(*unit) || isLowSurrogate(*unit)))
            std::copy_n("fffd", 4, begin + at + 2);
        at = text.find('\\', at + length);
    }
}

simdjson::padded_string repaired(std::string_view text) {
    simdjson::padded_string copy(text);
    replaceLoneSurrogates(copy.data(), copy.size());
    return copy;
}

void appendEscaped(std::string& json, char32_t character) {
    constexpr std::string_view digits = "0123456789abcdef";
    json += "\\u";
    for (int shift = 12; shift >= 0; shift -= 4)
        json += digits[(character >> shift) & 0xF];
}

bool needsEscape(char32_t character) {
    return character < 0x20 || character == 0x2028 || character == 0x2029;
}

} // namespace

SmallJson::SmallJson(std::string_view text)
    : text_(repaired(text)), root_(parser_.parse(text_.data(), text_.size(), false)) {}

std::optional<JsonElement> field(const JsonObject& object, std::string_view key) {
    JsonElement value;
    if (object.at_key(key).get(value) != simdjson::SUCCESS || value.is_null())
        return std::nullopt;
    return value;
}

std::optional<std::string> textField(const JsonObject& object, std::string_view key) {
    std::string_view value;
    if (object.at_key(key).get(value) != simdjson::SUCCESS)
        return std::nullopt;
    return std::string(value);
}

std::optional<bool> booleanField(const JsonObject& object, std::string_view key) {
    bool value = false;
    if (object.at_key(key).get(value) != simdjson::SUCCESS)
        return std::nullopt;
    return value;
}

std::optional<std::int64_t> wholeField(const JsonObject& object, std::string_view key) {
    constexpr double limit = 9007199254740992; // up to here every whole number is exact
    const auto value = object.at_key(key);
    std::int64_t whole = 0;
    if (value.get(whole) == simdjson::SUCCESS)
        return whole;
    double number = 0;
    if (value.get(number) != simdjson::SUCCESS || std::trunc(number) != number ||
        std::abs(number) > limit)
        return std::nullopt;
    return static_cast<std::int64_t>(number);
}

std::string quoted(std::string_view text) {
    std::string json = "\"";
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = at;
        const char32_t character = nextCharacter(text, at);
        if (character == U'"' || character == U'\\')
            json += '\\';
        if (needsEscape(character))
            appendEscaped(json, character);
        else if (character == 0xFFFD)
            json += "\xEF\xBF\xBD"; // for a bad byte too
        else
            json += text.substr(begin, at - begin);
    }
    return json + '"';
}

} // namespace brinmoor::text
