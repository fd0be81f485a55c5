#include "core/text/AddressCharacters.h"
#include "core/text/AddressParts.h"

#include <boost/url/ipv6_address.hpp>

#include <algorithm>

namespace brinmoor::addresses {

namespace {

void appendPart(std::string& target, char delimiter, std::optional<std::string_view> part) {
    if (!part)
        return;
    target += delimiter;
    appendRepaired(target, *part, inQuery);
}

/// Only characters of this class, this one, and percent-encoded bytes.
bool consistsOf(std::string_view text, std::uint8_t allowed, char alsoAllowed = '\0') {
    for (std::size_t at = 0; at < text.size(); ++at)
        if (!is(text[at], allowed) && text[at] != alsoAllowed &&
            !(text[at] == '%' && isEscape(text, at)))
            return false;
    return true;
}

/// "v", a hexadecimal version, "." and anything that a name may hold, or ":".
bool isFutureAddress(std::string_view text) {
    if (text.empty() || lowered(text[0]) != 'v')
        return false;
    const auto version = text.substr(1, text.find('.') - 1);
    const auto rest = text.substr(std::min(version.size() + 2, text.size()));
    const auto isDigit = [](char character) { return is(character, hexadecimal); };
    return !version.empty() && std::all_of(version.begin(), version.end(), isDigit) &&
           !rest.empty() && rest.find('%') == std::string_view::npos &&
           consistsOf(rest, inHost, ':');
}

/// What stands between brackets.
bool isLiteral(std::string_view text) {
    return boost::urls::parse_ipv6_address(text).has_value() || isFutureAddress(text);
}

/// Not asked as a whole of Boost.URL's parse_uri: it ends a host such as "1.2.3.4x" or "h:1:2"
/// early and takes the rest for a path.
bool isHost(std::string_view host) {
    if (!host.starts_with('['))
        return consistsOf(host, inHost);
    return host.ends_with(']') && isLiteral(host.substr(1, host.size() - 2));
}

/// False when the authority can't be made one.
bool appendAuthority(std::string& target, std::string_view text) {
    const Authority authority = splitAuthority(text);
    const auto host = repairedHost(authority.host);
    if (!host || !isHost(*host) || (authority.port && !isPort(*authority.port)) ||
        (authority.userInfo && !consistsOf(*authority.userInfo, inHost, ':')))
        return false;
    target += "//";
    if (authority.userInfo)
        target.append(*authority.userInfo) += '@';
    target += *host;
    if (authority.port)
        (target += ':').append(*authority.port);
    return true;
}

} // namespace

std::optional<std::string> canonicalText(std::string_view text) {
    if (text.size() > longestAddress || !isSolid(text))
        return std::nullopt;
    const Parts parts = split(text);
    if (!parts.scheme)
        return std::nullopt;
    std::string result(*parts.scheme);
    result += ':';
    if (parts.authority && !appendAuthority(result, *parts.authority))
        return std::nullopt;
    appendRepaired(result, parts.path, inPath);
    appendPart(result, '?', parts.query);
    appendPart(result, '#', parts.fragment);
    if (result.size() > longestAddress)
        return std::nullopt;
    return result;
}

} // namespace brinmoor::addresses
