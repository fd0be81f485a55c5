#include "core/icons/SiteIcon.h"

#include "core/icons/LinkTags.h"
#include "core/library/Library.h"
#include "core/text/Characters.h"

#include <algorithm>

namespace brinmoor::SiteIcon {
namespace {

constexpr std::size_t longestReference = 4096;
constexpr std::size_t mostIcons = 4;

enum class Kind { none, ordinary, touch };

Kind kindOf(std::string_view rel) {
    const std::string lower = text::lowercased(rel);
    const std::vector<std::string_view> words = wordsOf(lower);
    const auto holds = [&](std::string_view word) {
        return std::ranges::find(words, word) != words.end();
    };
    if (holds("icon"))
        return Kind::ordinary;
    return holds("apple-touch-icon") || holds("apple-touch-icon-precomposed") ? Kind::touch
                                                                              : Kind::none;
}

void addNew(std::vector<WebAddress>& icons, WebAddress icon) {
    if (icons.size() < mostIcons && std::ranges::find(icons, icon) == icons.end())
        icons.push_back(std::move(icon));
}

bool isTooLong(std::string_view reference) {
    // A character takes at least one byte, so most texts need no counting.
    return reference.size() > longestReference &&
           text::firstGraphemes(reference, longestReference).size() < reference.size();
}

} // namespace

std::optional<WebAddress> origin(std::string_view page) {
    const auto address = Library::validatedURL(page);
    if (!address)
        return std::nullopt;
    return address->origin();
}

std::optional<WebAddress> resolve(std::optional<std::string_view> href, const WebAddress& base) {
    if (!href || isTooLong(*href))
        return std::nullopt;
    const std::string_view reference = text::trimmed(*href);
    // An empty reference means the page itself, which is no icon.
    if (reference.empty())
        return std::nullopt;
    const auto absolute = WebAddress::resolve(reference, base);
    return absolute ? Library::validatedURL(absolute->string()) : std::nullopt;
}

std::vector<WebAddress> declared(std::string_view html, const WebAddress& base) {
    std::vector<WebAddress> icons;
    std::vector<WebAddress> touchIcons;
    for (std::string_view rest = html; const auto tag = nextLinkTag(rest);) {
        const LinkAttributes attributes = linkAttributes(*tag);
        const Kind kind = kindOf(attributes.rel.value_or(""));
        std::vector<WebAddress>& list = kind == Kind::ordinary ? icons : touchIcons;
        if (kind == Kind::none || list.size() == mostIcons)
            continue;
        if (auto icon = resolve(attributes.href, base))
            addNew(list, std::move(*icon));
    }
    for (WebAddress& icon : touchIcons)
        addNew(icons, std::move(icon));
    return icons;
}

} // namespace brinmoor::SiteIcon
