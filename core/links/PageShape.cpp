#include "core/links/PageShape.h"

#include "core/links/LinkTitle.h"
#include "core/text/Characters.h"
#include "core/text/WebAddress.h"

#include <algorithm>
#include <array>
#include <vector>

namespace brinmoor::LinkTitle {
namespace {

constexpr std::string_view instagramHost = "instagram.com";
constexpr std::string_view linkedInHost = "linkedin.com";
constexpr std::array<std::string_view, 3> xHosts{"x.com", "twitter.com", "mobile.twitter.com"};
constexpr std::array<std::string_view, 4> instagramPosts{"p", "reel", "reels", "tv"};
constexpr std::array<std::string_view, 4> xOwnPages{"home", "i", "explore", "notifications"};

using Parts = std::vector<std::string_view>;

bool holds(const auto& list, std::string_view text) {
    return std::ranges::find(list, text) != list.end();
}

std::string withoutWww(std::string_view host) {
    constexpr std::string_view www = "www.";
    std::string name(host);
    for (std::size_t at = name.find(www); at != std::string::npos; at = name.find(www, at))
        name.erase(at, www.size());
    return name;
}

Parts pathParts(std::string_view path) {
    Parts parts;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/'), path.size());
        if (end > 0)
            parts.push_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return parts;
}

std::optional<std::string> instagramTitle(const Parts& parts) {
    if (parts.size() >= 2 && holds(instagramPosts, parts[0])) {
        const bool isReel = parts[0].starts_with("reel");
        return (isReel ? "Instagram reel · " : "Instagram post · ") + std::string(parts[1]);
    }
    if (!parts.empty())
        return "@" + std::string(parts[0]) + " on Instagram";
    return std::nullopt;
}

std::optional<std::string> xTitle(const Parts& parts) {
    if (parts.size() >= 3 && parts[1] == "status")
        return "@" + std::string(parts[0]) + " on X · " + std::string(parts[2]);
    if (!parts.empty() && !holds(xOwnPages, parts[0]))
        return "@" + std::string(parts[0]) + " on X";
    return std::nullopt;
}

std::optional<std::string> socialTitle(std::string_view host, const Parts& parts) {
    if (host == instagramHost)
        return instagramTitle(parts);
    if (holds(xHosts, host))
        return xTitle(parts);
    return std::nullopt;
}

std::string linkedInTitle(std::string_view last) {
    std::string words;
    if (text::percentDecoded(last, words))
        std::ranges::replace(words, '-', ' ');
    else
        words = last;
    return clean("LinkedIn · " + words);
}

std::string siteTitle(const std::string& host, std::string_view last) {
    std::string words;
    if (!text::percentDecoded(last, words))
        words = last;
    return clean(host + " · " + words);
}

} // namespace

std::optional<std::string> titleFromShape(std::string_view url) {
    const auto address = WebAddress::parse(url);
    if (!address || address->host().empty())
        return std::nullopt;
    const std::string host = withoutWww(address->host());
    const Parts parts = pathParts(address->path());
    if (auto title = socialTitle(host, parts))
        return title;
    if (parts.empty())
        return host;
    return host == linkedInHost ? linkedInTitle(parts.back()) : siteTitle(host, parts.back());
}

} // namespace brinmoor::LinkTitle
