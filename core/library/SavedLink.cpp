#include "core/library/SavedLink.h"

#include "core/text/Characters.h"
#include "core/text/PlainAddress.h"
#include "core/text/WebAddress.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace brinmoor {

namespace {

constexpr std::size_t longestTag = 50;
constexpr std::string_view hostLabel = "www.";

std::string_view withoutHashes(std::string_view text) {
    const auto first = text.find_first_not_of('#');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of('#') - first + 1);
}

/// Hashes with blanks between them leave blanks: nothing that could be read or clicked.
bool isBlank(std::string_view tag) {
    return withoutHashes(text::trimmed(tag)).empty();
}

/// The lower-cased tags met so far. A link has few: a list is searched faster than a set is built,
/// up to the number that only a file of another program reaches.
class TakenTags {
public:
    /// Whether it is new.
    bool add(std::string tag) {
        if (isInList(tag))
            return false;
        if (few_.size() == mostInList)
            return many_.insert(std::move(tag)).second;
        few_.push_back(std::move(tag));
        return true;
    }

private:
    static constexpr std::size_t mostInList = 16;

    [[nodiscard]] bool isInList(const std::string& tag) const {
        return std::find(few_.begin(), few_.end(), tag) != few_.end();
    }

    std::vector<std::string> few_;
    std::unordered_set<std::string> many_;
};

/// Short, of ASCII letters, digits and inner blanks: no rule can change such a tag.
bool isSurelyNormal(std::string_view tag) noexcept {
    if (tag.empty() || tag.size() > longestTag || tag.front() == ' ' || tag.back() == ' ')
        return false;
    return std::all_of(tag.begin(), tag.end(), [](char unit) {
        return (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z') ||
               (unit >= '0' && unit <= '9') || unit == ' ' || unit == '-';
    });
}

bool equalsInLowerCase(std::string_view a, std::string_view b) noexcept {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char one, char other) { return (one | 0x20) == (other | 0x20); });
}

/// False says nothing.
bool areSurelyNormal(const std::vector<std::string>& tags) noexcept {
    constexpr std::size_t few = 8;
    if (tags.size() > few)
        return false;
    for (auto tag = tags.begin(); tag != tags.end(); ++tag)
        if (!isSurelyNormal(*tag) || std::any_of(tags.begin(), tag, [&](const std::string& before) {
                return equalsInLowerCase(before, *tag);
            }))
            return false;
    return true;
}

std::string hostOf(const std::string& url) {
    // Nearly every stored address: its host is read off.
    if (const auto plain = addresses::scanPlain(url))
        return url.substr(plain->hostBegin, plain->hostEnd - plain->hostBegin);
    const auto address = WebAddress::parse(url);
    return address ? std::string(address->host()) : std::string();
}

} // namespace

std::string_view storedValue(LinkImportance importance) noexcept {
    return importance == LinkImportance::important ? "important" : "notNeeded";
}

std::string_view title(LinkImportance importance) noexcept {
    return importance == LinkImportance::important ? "Important" : "Not needed";
}

std::optional<LinkImportance> linkImportance(std::string_view storedValue) noexcept {
    for (const LinkImportance importance : allLinkImportances)
        if (brinmoor::storedValue(importance) == storedValue)
            return importance;
    return std::nullopt;
}

SavedLink::SavedLink(std::string url_, std::string title_, std::string browser_,
                     std::string collection_, Uuid id_, Instant createdAt_)
    : id(id_), url(std::move(url_)), title(std::move(title_)), browser(std::move(browser_)),
      createdAt(createdAt_), collection(std::move(collection_)) {}

std::vector<std::string> SavedLink::normalizedTags(const std::vector<std::string>& tags) {
    std::vector<std::string> result;
    TakenTags taken;
    for (const std::string& tag : tags) {
        const std::string_view bare =
            text::firstGraphemes(withoutHashes(text::trimmed(tag)), longestTag);
        if (!isBlank(bare) && taken.add(text::lowercased(bare)))
            result.emplace_back(bare);
    }
    return result;
}

std::vector<std::string> SavedLink::normalizedTags(std::vector<std::string>&& tags) {
    return areSurelyNormal(tags) ? std::move(tags) : normalizedTags(std::as_const(tags));
}

std::vector<std::string> SavedLink::parseTags(std::string_view text) {
    std::vector<std::string> pieces;
    for (std::size_t comma = text.find(','); comma != std::string_view::npos;
         comma = text.find(',')) {
        pieces.emplace_back(text.substr(0, comma));
        text.remove_prefix(comma + 1);
    }
    pieces.emplace_back(text);
    return normalizedTags(pieces);
}

std::string SavedLink::domain() const {
    std::string host = hostOf(url);
    if (host.empty())
        return url;
    for (auto at = host.find(hostLabel); at != std::string::npos; at = host.find(hostLabel, at))
        host.erase(at, hostLabel.size());
    return host;
}

} // namespace brinmoor
