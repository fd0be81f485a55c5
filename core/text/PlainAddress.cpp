#include "core/text/PlainAddress.h"

#include "core/text/AddressCharacters.h"
#include "core/text/AddressParts.h"

namespace brinmoor::addresses {

namespace {

/// The length of "http" or "https" in front of "://"; 0 for anything else.
std::size_t webSchemeLength(std::string_view text) {
    constexpr std::string_view name = "https";
    std::size_t length = 0;
    while (length < name.size() && length < text.size() && lowered(text[length]) == name[length])
        ++length;
    return length >= 4 && text.substr(length).starts_with("://") ? length : 0;
}

std::size_t skip(std::string_view text, std::size_t at, std::uint8_t allowed) {
    while (at < text.size() && is(text[at], allowed))
        ++at;
    return at;
}

std::size_t skipEscaped(std::string_view text, std::size_t at, std::uint8_t allowed) {
    for (at = skip(text, at, allowed); at < text.size() && text[at] == '%' && isEscape(text, at);)
        at = skip(text, at + 3, allowed);
    return at;
}

} // namespace

std::optional<PlainAddress> scanPlain(std::string_view text) noexcept {
    PlainAddress found;
    found.schemeEnd = webSchemeLength(text);
    if (found.schemeEnd == 0 || text.size() > longestAddress)
        return std::nullopt;
    found.hostBegin = found.schemeEnd + 3;
    found.hostEnd = skip(text, found.hostBegin, inLowerHost);
    found.hasCapitals =
        text.front() != 'h' ||
        !text.substr(0, found.schemeEnd).ends_with(found.schemeEnd == 5 ? "ttps" : "ttp");
    if (found.hostEnd < text.size() && is(text[found.hostEnd], inHost)) {
        found.hasCapitals = true;
        found.hostEnd = skip(text, found.hostEnd, inHost);
    }
    found.pathBegin = found.hostEnd;
    if (found.hostEnd == found.hostBegin)
        return std::nullopt;
    if (text.substr(found.hostEnd).starts_with(':')) {
        found.pathBegin = skip(text, found.hostEnd + 1, digit);
        if (!isPort(text.substr(found.hostEnd + 1, found.pathBegin - found.hostEnd - 1)))
            return std::nullopt;
    }
    found.pathEnd = found.pathBegin;
    if (text.substr(found.pathBegin).starts_with('/'))
        found.pathEnd = skipEscaped(text, found.pathBegin, inPath);
    found.queryEnd = found.pathEnd;
    if (text.substr(found.pathEnd).starts_with('?'))
        found.queryEnd = skipEscaped(text, found.pathEnd + 1, inQuery);
    std::size_t end = found.queryEnd;
    if (text.substr(end).starts_with('#'))
        end = skipEscaped(text, end + 1, inQuery);
    return end == text.size() ? std::optional(found) : std::nullopt;
}

} // namespace brinmoor::addresses
