#include "core/icons/LinkTags.h"

#include "core/text/Characters.h"

#include <unicode/uchar.h>

#include <algorithm>

namespace brinmoor::SiteIcon {
namespace {

/// \w
bool isWord(char32_t character) {
    const auto point = static_cast<UChar32>(character);
    constexpr std::uint32_t classes = U_GC_M_MASK | U_GC_ND_MASK | U_GC_PC_MASK;
    return u_isUAlphabetic(point) || (U_GET_GC_MASK(point) & classes) != 0 || point == 0x200C ||
           point == 0x200D;
}

bool isNamePart(char32_t character) {
    return character == U'-' || isWord(character);
}

/// Whether a word that ends at `at` really ends there: \b, which looks through marks and format
/// characters.
bool endsWord(std::string_view text, std::size_t at) {
    if (at == text.size())
        return true;
    const auto next = text::nextCharacter(text, at);
    const auto point = static_cast<UChar32>(next);
    return !u_hasBinaryProperty(point, UCHAR_GRAPHEME_EXTEND) &&
           u_charType(point) != U_FORMAT_CHAR && !isWord(next);
}

/// How many bytes at the beginning of `text` spell "<link"; 0 for none. The Kelvin sign is a "k".
std::size_t lengthOfTagName(std::string_view text) {
    constexpr std::string_view name = "<lin";
    constexpr std::string_view kelvinSign = "\u212A";
    const auto equalsIgnoringCase = [](char a, char b) {
        return a == b || (b >= 'a' && b <= 'z' && (a | 0x20) == b);
    };
    if (text.size() <= name.size() ||
        !std::ranges::equal(text.substr(0, name.size()), name, equalsIgnoringCase))
        return 0;
    if (equalsIgnoringCase(text[name.size()], 'k'))
        return name.size() + 1;
    return text.substr(name.size()).starts_with(kelvinSign) ? name.size() + kelvinSign.size() : 0;
}

template <class Predicate>
std::size_t endOfRun(std::string_view text, std::size_t at, Predicate belongs) {
    while (at < text.size()) {
        std::size_t next = at;
        if (!belongs(text::nextCharacter(text, next)))
            break;
        at = next;
    }
    return at;
}

std::size_t endOfSpace(std::string_view text, std::size_t at) {
    return endOfRun(text, at, text::isWhiteSpace);
}

/// A value and where the search goes on behind it.
struct Value {
    std::string_view text;
    std::size_t end = 0;
};

std::optional<Value> quotedValue(std::string_view tag, std::size_t at) {
    if (at == tag.size() || (tag[at] != '"' && tag[at] != '\''))
        return std::nullopt;
    const std::size_t close = tag.find(tag[at], at + 1);
    if (close == std::string_view::npos)
        return std::nullopt;
    return Value{tag.substr(at + 1, close - at - 1), close + 1};
}

std::optional<Value> plainValue(std::string_view tag, std::size_t at) {
    const std::size_t end = endOfRun(tag, at, [](char32_t character) {
        return character != U'>' && !text::isWhiteSpace(character);
    });
    if (end == at)
        return std::nullopt;
    return Value{tag.substr(at, end - at), end};
}

std::optional<Value> valueBehindName(std::string_view tag, std::size_t at) {
    at = endOfSpace(tag, at);
    if (at == tag.size() || tag[at] != '=')
        return std::nullopt;
    at = endOfSpace(tag, at + 1);
    // A quote that is never closed is a character of a plain value.
    const auto value = quotedValue(tag, at);
    return value ? value : plainValue(tag, at);
}

std::string withAmpersands(std::string_view value) {
    constexpr std::string_view entity = "&amp;";
    std::string decoded;
    std::size_t begin = 0;
    for (std::size_t at = value.find(entity); at != std::string_view::npos;
         at = value.find(entity, begin)) {
        decoded.append(value, begin, at + 1 - begin);
        begin = at + entity.size();
    }
    return decoded.append(value, begin);
}

void keep(LinkAttributes& attributes, std::string_view name, std::string_view value) {
    const std::string lower = text::lowercased(name);
    if (lower == "rel")
        attributes.rel = withAmpersands(value);
    else if (lower == "href")
        attributes.href = withAmpersands(value);
}

} // namespace

std::optional<std::string_view> nextLinkTag(std::string_view& html) {
    for (std::size_t at = html.find('<'); at != std::string_view::npos; at = html.find('<', at)) {
        const std::size_t name = lengthOfTagName(html.substr(at));
        if (name == 0 || !endsWord(html, at + name)) {
            ++at;
            continue;
        }
        const std::size_t close = html.find('>', at + name);
        if (close == std::string_view::npos)
            break;
        const std::string_view tag = html.substr(at, close + 1 - at);
        html.remove_prefix(close + 1);
        return tag;
    }
    html = {};
    return std::nullopt;
}

LinkAttributes linkAttributes(std::string_view tag) {
    LinkAttributes attributes;
    for (std::size_t at = 0; at < tag.size();) {
        const std::size_t nameEnd = endOfRun(tag, at, isNamePart);
        if (nameEnd == at) {
            (void)text::nextCharacter(tag, at);
            continue;
        }
        const auto value = valueBehindName(tag, nameEnd);
        if (value)
            keep(attributes, tag.substr(at, nameEnd - at), value->text);
        // Without a value no other beginning within the name has one either.
        at = value ? value->end : nameEnd;
    }
    return attributes;
}

std::vector<std::string_view> wordsOf(std::string_view text) {
    std::vector<std::string_view> words;
    for (std::size_t at = endOfSpace(text, 0); at < text.size(); at = endOfSpace(text, at)) {
        const std::size_t begin = at;
        at = endOfRun(text, at, [](char32_t character) { return !text::isWhiteSpace(character); });
        words.push_back(text.substr(begin, at - begin));
    }
    return words;
}

} // namespace brinmoor::SiteIcon
