#include "core/account/NativeCallback.h"

#include "core/text/AddressCharacters.h"
#include "core/text/AddressParts.h"
#include "core/text/Characters.h"
#include "core/text/Utf8.h"

#include <algorithm>

namespace brinmoor {
namespace {

constexpr std::string_view scheme = "brinmoor";
constexpr std::string_view signInHost = "auth";
constexpr std::string_view signInPath = "/callback";
constexpr std::size_t nonceSize = 43;
constexpr std::size_t charactersTooMany = 255;

using Items = std::map<std::string, std::string>;

bool isNonceByte(char byte) {
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
           (byte >= '0' && byte <= '9') || byte == '_' || byte == '-';
}

bool isControl(char byte) {
    return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F;
}

/// Whether every byte may stand in this part of a URL, a "%" only with its two digits.
bool isSpelledRight(std::string_view part, std::uint8_t allowed) {
    for (std::size_t at = 0; at < part.size(); ++at)
        if (!addresses::is(part[at], allowed) &&
            !(part[at] == '%' && addresses::isEscape(part, at)))
            return false;
    return true;
}

/// The two parts that hold no white space and no "@" are a name, and a domain with a dot that has
/// something on both of its sides.
bool hasFormOfEmail(std::string_view address) {
    const auto sign = address.find('@');
    if (sign == std::string_view::npos || sign == 0)
        return false;
    const std::string_view domain = address.substr(sign + 1);
    if (domain.size() < 3 || domain.find('@') != std::string_view::npos)
        return false;
    const auto dot = domain.find('.', 1);
    return dot != std::string_view::npos && dot + 1 < domain.size();
}

bool hasWhiteSpace(std::string_view text) {
    for (std::size_t at = 0; at < text.size();)
        if (text::isWhiteSpace(text::nextCharacter(text, at)))
            return true;
    return false;
}

/// Absent for an item without "=" or one that stands for no text.
std::optional<Items::value_type> decodedItem(std::string_view item) {
    const auto equals = item.find('=');
    std::string name;
    std::string value;
    if (equals == std::string_view::npos || !text::percentDecoded(item.substr(0, equals), name) ||
        !text::percentDecoded(item.substr(equals + 1), value))
        return std::nullopt;
    return Items::value_type(std::move(name), std::move(value));
}

/// Absent when a name comes twice.
std::optional<Items> itemsOf(std::string_view query) {
    Items items;
    while (true) {
        const auto end = query.find('&');
        auto item = decodedItem(query.substr(0, end));
        if (!item || !items.insert(std::move(*item)).second)
            return std::nullopt;
        if (end == std::string_view::npos)
            return items;
        query.remove_prefix(end + 1);
    }
}

bool hasExactly(const Items& items, const std::set<std::string>& keys) {
    return std::ranges::equal(items, keys, {}, &Items::value_type::first);
}

} // namespace

bool NativeCallback::isNonce(std::string_view text) noexcept {
    return text.size() == nonceSize && std::ranges::all_of(text, isNonceByte);
}

std::optional<std::string> NativeCallback::normalizedEmail(std::string_view address) {
    if (!text::isUtf8(address))
        return std::nullopt;
    std::string normal = text::lowercased(text::trimmed(address));
    if (text::graphemeCount(normal) >= charactersTooMany ||
        std::ranges::any_of(normal, isControl) || hasWhiteSpace(normal) || !hasFormOfEmail(normal))
        return std::nullopt;
    return normal;
}

std::optional<std::map<std::string, std::string>>
NativeCallback::parameters(std::string_view url, std::string_view host, std::string_view path,
                           const std::set<std::string>& keys) {
    if (url.size() > longestUrl)
        return std::nullopt;
    const addresses::Parts parts = addresses::split(url);
    if (parts.scheme != scheme || !parts.authority || parts.fragment || !parts.query)
        return std::nullopt;
    const addresses::Authority authority = addresses::splitAuthority(*parts.authority);
    if (authority.host != host || authority.userInfo || authority.port || parts.path != path)
        return std::nullopt;
    if (!isSpelledRight(parts.path, addresses::inPath) ||
        !isSpelledRight(*parts.query, addresses::inQuery))
        return std::nullopt;
    auto items = itemsOf(*parts.query);
    if (!items || !hasExactly(*items, keys))
        return std::nullopt;
    return items;
}

bool NativeCallback::isSignIn(std::string_view url) {
    if (url.size() > longestUrl)
        return false;
    const addresses::Parts parts = addresses::split(url);
    return parts.scheme == scheme && parts.authority &&
           addresses::splitAuthority(*parts.authority).host == signInHost;
}

std::optional<std::string> AccountAccess::callbackCode(std::string_view url,
                                                       std::string_view expectedState) {
    const auto values = NativeCallback::parameters(url, signInHost, signInPath, {"code", "state"});
    if (!values || values->at("state") != expectedState ||
        !NativeCallback::isNonce(values->at("code")) || !NativeCallback::isNonce(expectedState))
        return std::nullopt;
    return values->at("code");
}

} // namespace brinmoor
