#include "core/links/LinkTitle.h"

#include "core/links/PageShape.h"
#include "core/text/Characters.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <optional>

namespace brinmoor::LinkTitle {
namespace {

constexpr std::size_t longestTitle = 180;
constexpr std::size_t shortestDescription = 13;

constexpr std::array<std::string_view, 4> titleKeys{"post", "ogTitle", "twitterTitle", "pageTitle"};
constexpr std::array<std::string_view, 2> descriptionKeys{"description", "heading"};

constexpr std::array<std::string_view, 13> genericTitles{"instagram",
                                                         "linkedin",
                                                         "x",
                                                         "twitter",
                                                         "x.com",
                                                         "home / x",
                                                         "home / twitter",
                                                         "feed | linkedin",
                                                         "feed | linkedin.com",
                                                         "login • instagram",
                                                         "log in • instagram",
                                                         "login on x",
                                                         "sign in | linkedin"};
constexpr std::array<std::string_view, 2> genericBeginnings{"log in to ", "sign up for "};
constexpr std::array<std::string_view, 4> genericParts{"log in or sign up", "sign in or sign up",
                                                       "join instagram", "professional community"};
constexpr std::array<std::string_view, 4> promptsInDescriptions{
    "sign up", "log in", "join instagram", "professional community"};

bool containsAny(std::string_view text, const auto& parts) {
    return std::ranges::any_of(
        parts, [&](std::string_view part) { return text.find(part) != std::string_view::npos; });
}

enum UnitOfTitle : unsigned char { plainUnit = 0, blankUnit = 1, doubtfulUnit = 2 };

/// Doubtful is what can be a byte of a white space character other than the blank: a control
/// character or the first byte of a longer one.
constexpr std::array<unsigned char, 256> unitsOfTitle = [] {
    std::array<unsigned char, 256> kinds{};
    for (std::size_t unit = 0; unit < kinds.size(); ++unit)
        if (unit < 0x20 || unit == 0xC2 || (unit >= 0xE1 && unit <= 0xE3))
            kinds[unit] = doubtfulUnit;
    kinds[' '] = blankUnit;
    return kinds;
}();

/// The lower case as far as the rules about generic titles can see it. They hold no letter but
/// those of ASCII, and only two others have one of these as their lower case: "İ" and the Kelvin
/// sign.
std::string loweredForRules(std::string_view title) {
    if (title.find("\u0130") != std::string_view::npos ||
        title.find("\u212A") != std::string_view::npos)
        return text::lowercased(title);
    std::string lower(title);
    for (char& unit : lower)
        unit = unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit + ('a' - 'A')) : unit;
    return lower;
}

std::size_t endOfDigits(std::string_view text, std::size_t at) {
    while (at < text.size()) {
        std::size_t next = at;
        if (!u_isdigit(static_cast<UChar32>(text::nextCharacter(text, next))))
            break;
        at = next;
    }
    return at;
}

/// What stands behind "(12) ", the number of messages that wait at a social site.
/// `title` is clean, so there is one blank at most.
std::string_view withoutNotificationCount(std::string_view title) {
    const std::size_t end = title.starts_with('(') ? endOfDigits(title, 1) : 0;
    if (end < 2 || end == title.size() || title[end] != ')')
        return title;
    const std::string_view rest = title.substr(end + 1);
    return rest.starts_with(' ') ? rest.substr(1) : rest;
}

std::optional<std::string> ownTitle(const Metadata& metadata) {
    for (const std::string_view key : titleKeys) {
        const auto entry = metadata.find(key);
        if (entry != metadata.end() && !isGeneric(entry->second))
            return clean(entry->second);
    }
    return std::nullopt;
}

bool describes(std::string_view description) {
    return !isGeneric(description) && text::graphemeCount(description) >= shortestDescription &&
           !containsAny(text::lowercased(description), promptsInDescriptions);
}

std::optional<std::string> ownDescription(const Metadata& metadata) {
    for (const std::string_view key : descriptionKeys) {
        const auto entry = metadata.find(key);
        if (entry != metadata.end() && describes(entry->second))
            return clean(entry->second);
    }
    return std::nullopt;
}

} // namespace

std::string clean(std::string_view title) {
    if (isSurelyClean(title))
        return std::string(title);
    const std::string line = text::withSingleBlanks(title);
    return std::string(text::firstGraphemes(text::trimmed(line), longestTitle));
}

bool isSurelyClean(std::string_view title) noexcept {
    if (title.empty() || title.size() > longestTitle || title.back() == ' ')
        return title.empty();
    // Without branches: where the blanks stand can't be foretold.
    unsigned found = 0;
    unsigned before = blankUnit;
    for (const char unit : title) {
        const unsigned kind = unitsOfTitle[static_cast<unsigned char>(unit)];
        found |= (kind & doubtfulUnit) | (kind & before);
        before = kind;
    }
    return found == 0;
}

bool isGeneric(std::string_view title) {
    const std::string lower =
        isSurelyClean(title) ? loweredForRules(title) : loweredForRules(clean(title));
    const std::string_view rest = withoutNotificationCount(lower);
    if (rest.empty() || std::ranges::find(genericTitles, rest) != genericTitles.end())
        return true;
    return std::ranges::any_of(genericBeginnings,
                               [&](std::string_view begin) { return rest.starts_with(begin); }) ||
           containsAny(rest, genericParts);
}

std::string best(std::string_view url, std::string_view browserTitle, const Metadata& metadata) {
    if (auto title = ownTitle(metadata))
        return std::move(*title);
    if (!isGeneric(browserTitle))
        return clean(browserTitle);
    if (auto description = ownDescription(metadata))
        return std::move(*description);
    if (auto shape = titleFromShape(url))
        return std::move(*shape);
    return clean(browserTitle);
}

} // namespace brinmoor::LinkTitle
