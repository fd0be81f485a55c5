#include "core/library/LibraryScan.h"

#include "core/library/LargeMemory.h"
#include "core/library/LibraryDocument.h"
#include "core/library/LibraryKeys.h"
#include "core/text/JsonScanner.h"
#include "core/text/Utf8.h"

namespace brinmoor {

namespace {

using text::JsonScanner;

static_assert(document::readerPadding >= JsonScanner::padding);

bool take(JsonScanner& json, std::string& to) {
    std::string_view text;
    if (!json.takeString(text))
        return false;
    to.assign(text);
    return true;
}

bool take(JsonScanner& json, std::vector<std::string>& to) {
    if (!json.take('['))
        return false;
    if (json.take(']'))
        return true;
    do {
        if (!take(json, to.emplace_back()))
            return false;
    } while (json.take(','));
    return json.take(']');
}

bool take(JsonScanner& json, Uuid& to) {
    std::string_view text;
    const auto id = json.takeString(text) ? Uuid::parse(text) : std::nullopt;
    if (id)
        to = *id;
    return id.has_value();
}

bool take(JsonScanner& json, std::optional<LinkImportance>& to) {
    std::string_view text;
    if (json.takeString(text))
        to = linkImportance(text);
    return to.has_value();
}

bool takeTags(JsonScanner& json, std::vector<std::string>& to) {
    if (!take(json, to))
        return false;
    to = SavedLink::normalizedTags(std::move(to));
    return true;
}

bool take(JsonScanner& json, SavedLink& to) {
    return json.takeKey('{', keys::browser) && take(json, to.browser) &&
           json.takeKey(',', keys::collection) && take(json, to.collection) &&
           json.takeKey(',', keys::createdAt) && json.takeNumber(to.createdAt.seconds) &&
           (!json.takeKey(',', keys::iconURL) || take(json, to.iconURL.emplace())) &&
           json.takeKey(',', keys::id) && take(json, to.id) &&
           (!json.takeKey(',', keys::importance) || take(json, to.importance)) &&
           json.takeKey(',', keys::isArchived) && json.takeBoolean(to.isArchived) &&
           json.takeKey(',', keys::isFavorite) && json.takeBoolean(to.isFavorite) &&
           json.takeKey(',', keys::note) && take(json, to.note) &&
           (!json.takeKey(',', keys::tags) || takeTags(json, to.tags)) &&
           json.takeKey(',', keys::title) && take(json, to.title) && json.takeKey(',', keys::url) &&
           take(json, to.url) && json.take('}');
}

/// Makes room for as many links as the first ones foretell.
void reserve(std::vector<SavedLink>& links, std::size_t bytesSoFar, std::size_t bytesInAll) {
    constexpr std::size_t sample = 256;
    if (links.size() != sample)
        return;
    links.reserve(bytesInAll / (bytesSoFar / sample) * 17 / 16 + sample);
    expectFullUse(links.data(), links.capacity() * sizeof(SavedLink));
}

bool take(JsonScanner& json, std::vector<SavedLink>& to, std::size_t bytesInAll) {
    if (!json.take('['))
        return false;
    if (json.take(']'))
        return true;
    const char* const begin = json.position();
    do {
        if (!take(json, to.emplace_back()))
            return false;
        reserve(to, static_cast<std::size_t>(json.position() - begin), bytesInAll);
    } while (json.take(','));
    return json.take(']');
}

} // namespace

std::optional<Library> document::scanUsual(const char* bytes, std::size_t size) {
    if (!text::isUtf8({bytes, size}))
        return std::nullopt;
    JsonScanner json(bytes, size);
    Library library;
    library.collections.clear();
    double version = 0;
    const bool isUsual = json.takeKey('{', keys::collections) && take(json, library.collections) &&
                         json.takeKey(',', keys::links) && take(json, library.links, size) &&
                         json.takeKey(',', keys::version) && json.takeNumber(version) &&
                         version == 1 && json.take('}') && json.isAtEnd();
    return isUsual ? std::optional(std::move(library)) : std::nullopt;
}

} // namespace brinmoor
