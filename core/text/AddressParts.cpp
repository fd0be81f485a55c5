#include "core/text/AddressParts.h"

#include "core/text/AddressCharacters.h"
#include "core/text/Characters.h"

#include <unicode/bytestream.h>
#include <unicode/idna.h>
#include <unicode/stringpiece.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <memory>

namespace brinmoor::addresses {

namespace {

constexpr std::string_view upperDigits = "0123456789ABCDEF";
// Browsers keep these in a host, RFC 3986 knows them only percent-encoded.
constexpr std::string_view onlyBrowsersInHost = "\"`{}";

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char character) { return static_cast<unsigned char>(character) < 0x80; });
}

bool isScheme(std::string_view text) {
    return !text.empty() && is(text[0], letter) &&
           std::all_of(text.begin(), text.end(), [](char c) { return is(c, inScheme); });
}

/// Cuts `text` before the first of `delimiters` and gives the front.
std::string_view takeUntil(std::string_view& text, std::string_view delimiters) {
    const std::size_t end = std::min(text.find_first_of(delimiters), text.size());
    const std::string_view front = text.substr(0, end);
    text.remove_prefix(end);
    return front;
}

void appendEscape(std::string& target, char character) {
    const auto byte = static_cast<unsigned char>(character);
    target += '%';
    target += upperDigits[byte >> 4];
    target += upperDigits[byte & 0x0F];
}

const icu::IDNA* internationalNames() {
    static const std::unique_ptr<const icu::IDNA> instance = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<const icu::IDNA> made(icu::IDNA::createUTS46Instance(
            UIDNA_CHECK_BIDI | UIDNA_CHECK_CONTEXTJ | UIDNA_NONTRANSITIONAL_TO_ASCII |
                UIDNA_NONTRANSITIONAL_TO_UNICODE,
            status));
        return U_SUCCESS(status) ? std::move(made) : nullptr;
    }();
    return instance.get();
}

// Browsers don't mind hyphens and lengths; whether a name can be looked up is not decided here.
constexpr uint32_t toleratedErrors = UIDNA_ERROR_LEADING_HYPHEN | UIDNA_ERROR_TRAILING_HYPHEN |
                                     UIDNA_ERROR_HYPHEN_3_4 | UIDNA_ERROR_EMPTY_LABEL |
                                     UIDNA_ERROR_LABEL_TOO_LONG | UIDNA_ERROR_DOMAIN_NAME_TOO_LONG;

std::optional<std::string> asciiHost(std::string_view host) {
    const icu::IDNA* names = internationalNames();
    if (names == nullptr)
        return std::nullopt;
    std::string result;
    icu::StringByteSink<std::string> sink(&result);
    icu::IDNAInfo info;
    UErrorCode status = U_ZERO_ERROR;
    names->nameToASCII_UTF8(icu::StringPiece(host.data(), static_cast<int32_t>(host.size())), sink,
                            info, status);
    if (U_FAILURE(status) || (info.getErrors() & ~toleratedErrors) != 0 || result.empty())
        return std::nullopt;
    return result;
}

bool isHostCharacter(char character) {
    return is(character, inHost) || onlyBrowsersInHost.find(character) != std::string_view::npos;
}

} // namespace

Parts split(std::string_view text) noexcept {
    Parts parts;
    const std::size_t colon = text.find_first_of(":/?#");
    if (colon != std::string_view::npos && text[colon] == ':' && isScheme(text.substr(0, colon))) {
        parts.scheme = text.substr(0, colon);
        text.remove_prefix(colon + 1);
    }
    if (text.starts_with("//")) {
        text.remove_prefix(2);
        parts.authority = takeUntil(text, "/?#");
    }
    parts.path = takeUntil(text, "?#");
    if (text.starts_with('?')) {
        text.remove_prefix(1);
        parts.query = takeUntil(text, "#");
    }
    if (text.starts_with('#'))
        parts.fragment = text.substr(1);
    return parts;
}

Authority splitAuthority(std::string_view authority) noexcept {
    Authority result;
    if (const auto at = authority.rfind('@'); at != std::string_view::npos) {
        result.userInfo = authority.substr(0, at);
        authority.remove_prefix(at + 1);
    }
    const auto bracket = authority.rfind(']');
    const auto colon = authority.rfind(':');
    if (colon != std::string_view::npos && (bracket == std::string_view::npos || colon > bracket)) {
        result.port = authority.substr(colon + 1);
        authority = authority.substr(0, colon);
    }
    result.host = authority;
    return result;
}

std::optional<std::string> repairedHost(std::string_view host) {
    if (host.starts_with('['))
        return std::string(host);
    std::string name(host);
    if (!isAscii(host)) {
        auto converted = asciiHost(host);
        // A mapped "%", "/" or the like would change where the address leads.
        if (!converted || !std::all_of(converted->begin(), converted->end(), isHostCharacter))
            return std::nullopt;
        name = std::move(*converted);
    }
    std::string result;
    for (const char character : name)
        if (onlyBrowsersInHost.find(character) != std::string_view::npos)
            appendEscape(result, character);
        else
            result += character;
    return result;
}

void appendRepaired(std::string& target, std::string_view text, unsigned char allowed) {
    for (std::size_t at = 0; at < text.size(); ++at)
        if (is(text[at], allowed) || (text[at] == '%' && isEscape(text, at)))
            target += text[at];
        else
            appendEscape(target, text[at]);
}

bool isSolid(std::string_view text) noexcept {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        const char32_t character = text::nextCharacter(text, at);
        const bool isBadByte = character == U'\uFFFD' && at - start == 1;
        if (isBadByte || text::isWhiteSpace(character) ||
            u_charType(static_cast<UChar32>(character)) == U_CONTROL_CHAR)
            return false;
    }
    return true;
}

bool isPort(std::string_view port) noexcept {
    unsigned number = 0;
    for (const char character : port) {
        if (!is(character, digit))
            return false;
        number = number * 10 + static_cast<unsigned>(character - '0');
        if (number > 65535)
            return false;
    }
    return true;
}

} // namespace brinmoor::addresses
