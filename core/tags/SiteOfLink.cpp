#include "core/tags/SiteOfLink.h"

#include "core/search/LinkSearch.h"

#include <array>

namespace brinmoor::LinkAutoTagging {
namespace {

constexpr std::string_view www = "www.";

constexpr auto isInPlainHost = [] {
    std::array<bool, 256> result{};
    for (const char unit : std::string_view("abcdefghijklmnopqrstuvwxyz0123456789.-"))
        result[static_cast<unsigned char>(unit)] = true;
    return result;
}();

/// The host of an address if it is a plain one, of small letters; empty when that takes a parser to
/// say.
std::string_view plainHost(std::string_view url) {
    constexpr std::string_view scheme = "https://";
    constexpr std::string_view openScheme = "http://";
    if (url.starts_with(scheme))
        url.remove_prefix(scheme.size());
    else if (url.starts_with(openScheme))
        url.remove_prefix(openScheme.size());
    else
        return {};
    std::size_t end = 0;
    while (end < url.size() && isInPlainHost[static_cast<unsigned char>(url[end])])
        ++end;
    const bool isWhole = end == url.size() || url[end] == '/' || url[end] == '?' || url[end] == '#';
    return isWhole ? url.substr(0, end) : std::string_view();
}

/// The host without the label in front that nearly every domain loses.
std::string_view withoutFirstWww(std::string_view host) {
    return host.starts_with(www) ? host.substr(www.size()) : host;
}

/// Writes what the folded domain of `url` is if `url` is an address; if it is none, its domain is
/// the whole text. False when that takes a parser to say.
bool writePlainDomain(std::string_view url, std::string& domain) {
    domain.assign(plainHost(url));
    for (std::size_t at = domain.find(www); at != std::string::npos; at = domain.find(www, at))
        domain.erase(at, www.size());
    return !domain.empty();
}

/// Whether the domain of a plain host, which can only lose more labels, may be this one.
bool mayHaveDomain(std::string_view host, std::string_view domain) {
    const std::string_view rest = withoutFirstWww(host);
    return rest.size() > domain.size() ? rest.find(www) != std::string_view::npos : rest == domain;
}

} // namespace

Site::Site(const SavedLink& link)
    : foldedDomain_(LinkSearch::folded(link.domain())),
      isHost_(foldedDomain_.find(':') == std::string::npos) {}

bool Site::holds(const SavedLink& link) const {
    // A whole text that begins with a scheme is never a host.
    const std::string_view host = isHost_ ? plainHost(link.url) : std::string_view();
    if (!host.empty() && !mayHaveDomain(host, foldedDomain_))
        return false;
    return LinkSearch::folded(link.domain()) == foldedDomain_;
}

bool mayBeginWithDomain(std::string_view foldedTitle, const SavedLink& link, std::string& host) {
    if (!writePlainDomain(link.url, host))
        return true;
    return foldedTitle.starts_with(host) || foldedTitle.starts_with("http");
}

} // namespace brinmoor::LinkAutoTagging
