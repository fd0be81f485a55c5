#include "core/text/Characters.h"

#include <unicode/uchar.h>

namespace brinmoor::text {
namespace {

constexpr char32_t replacement = 0xFFFD;

struct LeadByte {
    std::size_t length = 0; ///< 0: no lead byte
    char32_t bits = 0;
    char32_t smallest = 0; ///< what is smaller has a shorter form
};

LeadByte leadByte(unsigned char byte) noexcept {
    if (byte >= 0xC2 && byte <= 0xDF)
        return {2, byte & 0x1Fu, 0x80};
    if (byte >= 0xE0 && byte <= 0xEF)
        return {3, byte & 0x0Fu, 0x800};
    if (byte >= 0xF0 && byte <= 0xF4)
        return {4, byte & 0x07u, 0x10000};
    return {};
}

bool isScalar(char32_t character) noexcept {
    return character < 0xD800 || (character > 0xDFFF && character <= 0x10FFFF);
}

bool isContinuation(char byte) noexcept {
    return (static_cast<unsigned char>(byte) & 0xC0u) == 0x80u;
}

char32_t nextOfSeveral(std::string_view text, std::size_t& at) noexcept {
    const std::size_t begin = at++;
    const LeadByte lead = leadByte(static_cast<unsigned char>(text[begin]));
    if (lead.length == 0 || text.size() - begin < lead.length)
        return replacement;
    char32_t character = lead.bits;
    for (std::size_t i = begin + 1; i < begin + lead.length; ++i) {
        if (!isContinuation(text[i]))
            return replacement;
        character = character << 6 | (static_cast<unsigned char>(text[i]) & 0x3Fu);
    }
    if (character < lead.smallest || !isScalar(character))
        return replacement;
    at = begin + lead.length;
    return character;
}

/// Where the last character begins. A bad byte is a character of its own.
std::size_t lastCharacterBegin(std::string_view text) noexcept {
    for (std::size_t length = 2; length <= 4 && length <= text.size(); ++length) {
        std::size_t at = text.size() - length;
        if (isContinuation(text[at]))
            continue;
        if (nextCharacter(text, at) != replacement && at == text.size())
            return text.size() - length;
        break;
    }
    return text.size() - 1;
}

template <class Predicate>
std::string_view trimmedOf(std::string_view text, Predicate drops) noexcept {
    std::size_t begin = 0;
    for (std::size_t at = 0; at < text.size() && drops(nextCharacter(text, at)); begin = at) {
    }
    text.remove_prefix(begin);
    while (!text.empty()) {
        std::size_t at = lastCharacterBegin(text);
        const std::size_t end = at;
        if (!drops(nextCharacter(text, at)))
            break;
        text = text.substr(0, end);
    }
    return text;
}

bool isBlank(char32_t character) noexcept {
    return character == U'\t' || u_charType(static_cast<UChar32>(character)) == U_SPACE_SEPARATOR;
}

bool hasCategory(char32_t character, std::uint32_t mask) noexcept {
    return (U_GET_GC_MASK(static_cast<UChar32>(character)) & mask) != 0;
}

int hexDigit(char digit) noexcept {
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    const char lower = static_cast<char>(digit | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

bool isUtf8(std::string_view text) noexcept {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = at;
        // U+FFFD itself takes three bytes, a bad byte one.
        if (nextCharacter(text, at) == replacement && at - begin == 1)
            return false;
    }
    return true;
}

} // namespace

char32_t nextCharacter(std::string_view text, std::size_t& at) noexcept {
    const auto byte = static_cast<unsigned char>(text[at]);
    if (byte >= 0x80)
        return nextOfSeveral(text, at);
    ++at;
    return byte;
}

bool isWhiteSpace(char32_t character) noexcept {
    if (character < 0x80)
        return character == U' ' || (character >= U'\t' && character <= U'\r');
    return character == 0x85 || character == 0xA0 || character == 0x1680 ||
           (character >= 0x2000 && character <= 0x200A) || character == 0x2028 ||
           character == 0x2029 || character == 0x202F || character == 0x205F || character == 0x3000;
}

bool isLetter(char32_t character) noexcept {
    return hasCategory(character, U_GC_L_MASK | U_GC_M_MASK);
}

bool isNumber(char32_t character) noexcept {
    return hasCategory(character, U_GC_N_MASK);
}

std::string_view trimmed(std::string_view text) noexcept {
    return trimmedOf(text, isWhiteSpace);
}

std::string_view trimmedOfBlanks(std::string_view text) noexcept {
    return trimmedOf(text, isBlank);
}

std::string withSingleBlanks(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    bool inRun = false;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = at;
        const bool isSpace = isWhiteSpace(nextCharacter(text, at));
        if (!isSpace)
            result.append(text, begin, at - begin);
        else if (!inRun)
            result.push_back(' ');
        inRun = isSpace;
    }
    return result;
}

bool percentDecoded(std::string_view text, std::string& decoded) {
    decoded.clear();
    decoded.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '%') {
            decoded.push_back(text[at]);
            continue;
        }
        const int high = at + 2 < text.size() ? hexDigit(text[at + 1]) : -1;
        const int low = at + 2 < text.size() ? hexDigit(text[at + 2]) : -1;
        if (high < 0 || low < 0)
            return false;
        decoded.push_back(static_cast<char>(high * 16 + low));
        at += 2;
    }
    return isUtf8(decoded);
}

} // namespace brinmoor::text
