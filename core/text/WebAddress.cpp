#include "core/text/WebAddress.h"

#include "core/text/AddressParts.h"
#include "core/text/PlainAddress.h"

#include <utility>

namespace brinmoor {

using namespace addresses;

std::optional<WebAddress> WebAddress::parse(std::string_view text) {
    if (scanPlain(text))
        return WebAddress(std::string(text));
    auto canonical = canonicalText(text);
    if (!canonical)
        return std::nullopt;
    return WebAddress(std::move(*canonical));
}

WebAddress::WebAddress(std::string canonical) : text_(std::move(canonical)) {
    const auto span = [this](std::string_view part) {
        const auto begin = static_cast<std::uint32_t>(part.data() - text_.data());
        return Span{begin, begin + static_cast<std::uint32_t>(part.size())};
    };
    const Parts parts = split(text_);
    scheme_ = span(*parts.scheme);
    path_ = span(parts.path);
    hasQuery_ = parts.query.has_value();
    if (hasQuery_)
        query_ = span(*parts.query);
    if (!parts.authority)
        return;
    const Authority authority = splitAuthority(*parts.authority);
    host_ = span(authority.host);
    hasUserInfo_ = authority.userInfo.has_value();
}

std::string_view WebAddress::scheme() const noexcept {
    return view(scheme_);
}
std::string_view WebAddress::host() const noexcept {
    return view(host_);
}
std::string_view WebAddress::path() const noexcept {
    return view(path_);
}
bool WebAddress::hasUserInfo() const noexcept {
    return hasUserInfo_;
}

std::optional<std::string_view> WebAddress::query() const noexcept {
    return hasQuery_ ? std::optional(view(query_)) : std::nullopt;
}

WebAddress WebAddress::origin() const {
    // Without an authority a path must not be dropped in such a way that one appears: "/" is safe.
    return WebAddress(text_.substr(0, path_.begin) + '/');
}

} // namespace brinmoor
