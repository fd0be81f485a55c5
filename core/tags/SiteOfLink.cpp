#include "core/tags/SiteOfLink.h"

#include "core/search/LinkSearch.h"

namespace brinmoor::LinkAutoTagging {
namespace {

bool isPlainHost(std::string_view host) {
    for (const char unit : host) {
        const bool isPlain = (unit >= 'a' && unit <= 'z') || (unit >= '0' && unit <= '9') ||
                             unit == '.' || unit == '-';
        if (!isPlain)
            return false;
    }
    return !host.empty();
}

void removeWww(std::string& host) {
    constexpr std::string_view www = "www.";
    for (std::size_t at = host.find(www); at != std::string::npos; at = host.find(www, at))
        host.erase(at, www.size());
}

/// Writes what the folded domain of `url` is if `url` is an address; if it is none, its domain is
/// the whole text. False when that takes a parser to say.
bool writePlainDomain(std::string_view url, std::string& domain) {
    for (const std::string_view scheme : {"https://", "http://"}) {
        if (!url.starts_with(scheme))
            continue;
        url.remove_prefix(scheme.size());
        domain.assign(url.substr(0, url.find_first_of("/?#")));
        removeWww(domain);
        return isPlainHost(domain);
    }
    return false;
}

} // namespace

Site::Site(const SavedLink& link)
    : foldedDomain_(LinkSearch::folded(link.domain())),
      isHost_(foldedDomain_.find(':') == std::string::npos) {}

bool Site::holds(const SavedLink& link) {
    // A whole text that begins with a scheme is never a host.
    if (isHost_ && writePlainDomain(link.url, host_) && host_ != foldedDomain_)
        return false;
    return LinkSearch::folded(link.domain()) == foldedDomain_;
}

bool mayBeginWithDomain(std::string_view foldedTitle, const SavedLink& link, std::string& host) {
    if (!writePlainDomain(link.url, host))
        return true;
    return foldedTitle.starts_with(host) || foldedTitle.starts_with("http");
}

} // namespace brinmoor::LinkAutoTagging
