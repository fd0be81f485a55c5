#include "core/library/LargeNumbers.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace brinmoor {
namespace {

/// No whole number of so many digits is too large for any reader.
constexpr std::size_t usualDigits = 18;

bool isDigit(char sign) {
    return sign >= '0' && sign <= '9';
}

bool isOfNumber(char sign) {
    return isDigit(sign) || sign == '-' || sign == '+' || sign == '.' || sign == 'e' || sign == 'E';
}

/// The digits at the beginning, which it takes away.
std::string_view takeDigits(std::string_view& text) {
    const auto end = std::ranges::find_if_not(text, isDigit);
    const std::string_view digits(text.begin(), end);
    text.remove_prefix(digits.size());
    return digits;
}

bool take(std::string_view& text, std::string_view signs) {
    const bool isThere = !text.empty() && signs.find(text.front()) != std::string_view::npos;
    if (isThere)
        text.remove_prefix(1);
    return isThere;
}

enum class Kind { none, whole, other };

Kind kindOf(std::string_view text) {
    (void)take(text, "-");
    const std::string_view whole = takeDigits(text);
    if (whole.empty() || (whole.size() > 1 && whole.front() == '0'))
        return Kind::none;
    if (text.empty())
        return Kind::whole;
    if (take(text, ".") && takeDigits(text).empty())
        return Kind::none;
    if (take(text, "eE")) {
        (void)take(text, "+-");
        if (takeDigits(text).empty())
            return Kind::none;
    }
    return text.empty() ? Kind::other : Kind::none;
}

void appendNumber(std::string& to, std::string_view number) {
    const Kind kind = kindOf(number);
    double value = 0;
    const auto error = std::from_chars(number.begin(), number.end(), value).ec;
    const bool isTiny = number.find("e-") != number.npos || number.find("E-") != number.npos;
    if (kind != Kind::none && error == std::errc::result_out_of_range && !isTiny) {
        to += "{}";
    } else if (kind == Kind::whole && number.size() > usualDigits && error == std::errc()) {
        std::array<char, 32> text{};
        const auto end =
            std::to_chars(text.begin(), text.end(), value, std::chars_format::scientific);
        to.append(text.data(), end.ptr);
    } else {
        to += number;
    }
}

/// The end of the string that begins at `at`, behind its closing quotation mark.
std::size_t endOfString(std::string_view json, std::size_t at) {
    for (++at; at < json.size() && json[at] != '"'; ++at)
        if (json[at] == '\\')
            ++at;
    return std::min(at + 1, json.size());
}

} // namespace

std::string document::withoutLargeNumbers(std::string_view json) {
    std::string result;
    result.reserve(json.size());
    for (std::size_t at = 0; at < json.size();) {
        const bool isNumber = json[at] == '-' || isDigit(json[at]);
        std::size_t end = at + 1;
        if (json[at] == '"')
            end = endOfString(json, at);
        else if (isNumber)
            while (end < json.size() && isOfNumber(json[end]))
                ++end;
        const std::string_view part = json.substr(at, end - at);
        if (isNumber)
            appendNumber(result, part);
        else
            result += part;
        at = end;
    }
    return result;
}

} // namespace brinmoor
