#include "core/library/Library.h"

#include "core/library/LargeMemory.h"
#include "core/search/LinkSearch.h"
#include "core/text/AddressIdentity.h"
#include "core/text/Characters.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace brinmoor {

namespace {

/// Lets a set of texts be asked with a view, without a copy.
struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const noexcept {
        return std::hash<std::string_view>{}(text);
    }
};
using TextSet = std::unordered_set<std::string, TextHash, std::equal_to<>>;

struct Candidate {
    SavedLink link;
    std::string identity;
};

/// The valid ones, with their canonical address, the first of each identity.
std::vector<Candidate> candidates(std::vector<SavedLink> incoming) {
    std::vector<Candidate> result;
    TextSet met;
    for (SavedLink& link : incoming) {
        const auto address = Library::validatedURL(link.url);
        if (!address)
            continue;
        std::string identity = Library::identity(address->string());
        if (!met.insert(identity).second)
            continue;
        link.url = address->string();
        result.push_back({std::move(link), std::move(identity)});
    }
    return result;
}

/// Asks the library about the few incoming links rather than building a set of all that it holds.
void dropKnown(std::vector<Candidate>& incoming, const std::vector<SavedLink>& links) {
    std::unordered_set<std::string_view> wanted;
    for (const Candidate& candidate : incoming)
        wanted.insert(candidate.identity);
    std::unordered_set<std::string_view> known;
    std::string room;
    for (const SavedLink& link : links)
        if (const auto found = wanted.find(addresses::identityOf(link.url, room));
            found != wanted.end())
            known.insert(*found);
    std::erase_if(incoming,
                  [&](const Candidate& candidate) { return known.contains(candidate.identity); });
}

bool contains(const std::vector<std::string>& list, const std::string& text) {
    return std::find(list.begin(), list.end(), text) != list.end();
}

/// Stores `tags` if they differ; gives whether they did.
bool adopt(std::vector<std::string>& stored, std::vector<std::string> tags) {
    if (tags == stored)
        return false;
    stored = std::move(tags);
    return true;
}

} // namespace

std::optional<WebAddress> Library::validatedURL(std::string_view text) {
    auto address = WebAddress::parse(text::trimmed(text));
    if (!address || address->host().empty() || address->hasUserInfo())
        return std::nullopt;
    std::string scheme(address->scheme());
    std::transform(scheme.begin(), scheme.end(), scheme.begin(), addresses::lowered);
    if (scheme != "http" && scheme != "https")
        return std::nullopt;
    return address;
}

std::string Library::identity(std::string_view text) {
    std::string room;
    const std::string_view identity = addresses::identityOf(text, room);
    return identity.data() == room.data() ? std::move(room) : std::string(identity);
}

std::size_t Library::insert(std::vector<SavedLink> incoming) {
    if (incoming.empty())
        return 0;
    std::vector<Candidate> accepted = candidates(std::move(incoming));
    dropKnown(accepted, links);
    std::vector<SavedLink> front;
    front.reserve(accepted.size() + links.size());
    expectFullUse(front.data(), front.capacity() * sizeof(SavedLink));
    for (Candidate& candidate : accepted) {
        SavedLink& link = candidate.link;
        if (text::trimmed(link.title).empty())
            link.title = link.domain();
        if (!contains(collections, link.collection))
            collections.push_back(link.collection);
        front.push_back(std::move(link));
    }
    if (front.empty())
        return 0;
    std::move(links.begin(), links.end(), std::back_inserter(front));
    links = std::move(front);
    return accepted.size();
}

bool Library::saveAnnotated(const SavedLink& link) {
    if (!validatedURL(link.url))
        return false;
    const std::string wanted = identity(link.url);
    std::string room;
    const auto stored = std::find_if(links.begin(), links.end(), [&](const SavedLink& candidate) {
        return addresses::identityOf(candidate.url, room) == wanted;
    });
    if (stored == links.end()) {
        SavedLink copy = link;
        copy.tags = SavedLink::normalizedTags(copy.tags);
        insert({std::move(copy)});
        return true;
    }
    if (link.iconURL)
        stored->iconURL = link.iconURL;
    stored->title = link.title;
    stored->note = link.note;
    stored->tags = SavedLink::normalizedTags(link.tags);
    return true;
}

std::size_t Library::renameTag(std::string_view old, std::string_view to) {
    const std::string wanted = LinkSearch::folded(text::trimmed(old));
    const auto names = SavedLink::normalizedTags({std::string(to)});
    if (wanted.empty() || names.empty())
        return 0;
    const auto isOld = [&](const std::string& tag) { return LinkSearch::folded(tag) == wanted; };
    std::size_t changed = 0;
    for (SavedLink& link : links) {
        if (std::none_of(link.tags.begin(), link.tags.end(), isOld))
            continue;
        auto tags = link.tags;
        std::replace_if(tags.begin(), tags.end(), isOld, names.front());
        if (adopt(link.tags, SavedLink::normalizedTags(tags)))
            ++changed;
    }
    return changed;
}

std::size_t Library::deleteTag(std::string_view tag) {
    const std::string unwanted = LinkSearch::folded(tag);
    std::size_t changed = 0;
    for (SavedLink& link : links) {
        const auto removed = std::erase_if(link.tags, [&](const std::string& present) {
            return LinkSearch::folded(present) == unwanted;
        });
        if (removed > 0)
            ++changed;
    }
    return changed;
}

UuidSet Library::setArchived(bool archived, const UuidSet& ids) {
    UuidSet changed;
    for (SavedLink& link : links) {
        if (link.isArchived == archived || !ids.contains(link.id))
            continue;
        link.isArchived = archived;
        changed.insert(link.id);
    }
    return changed;
}

std::size_t Library::deleteArchived(const UuidSet& ids) {
    return std::erase_if(
        links, [&](const SavedLink& link) { return link.isArchived && ids.contains(link.id); });
}

} // namespace brinmoor
