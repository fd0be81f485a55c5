#include "core/text/AddressCharacters.h"
#include "core/text/AddressParts.h"

#include <boost/url/parse.hpp>
#include <boost/url/url_view.hpp>

namespace brinmoor::addresses {

namespace {

void appendPart(std::string& target, char delimiter, std::optional<std::string_view> part) {
    if (!part)
        return;
    target += delimiter;
    appendRepaired(target, *part, inQuery);
}

/// False when the authority can't be made one.
bool appendAuthority(std::string& target, std::string_view text) {
    const Authority authority = splitAuthority(text);
    const auto host = repairedHost(authority.host);
    if (!host || (authority.port && !isPort(*authority.port)))
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
    if (result.size() > longestAddress || !boost::urls::parse_uri(result))
        return std::nullopt;
    return result;
}

} // namespace brinmoor::addresses
