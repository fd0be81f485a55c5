#include "core/library/LibraryDocument.h"
#include "core/library/LibraryKeys.h"

#include <algorithm>
#include <cmath>

namespace brinmoor {

namespace {

using text::JsonKey;
using text::JsonWriter;

void writeTexts(JsonWriter& json, const JsonKey& key, const std::vector<std::string>& texts) {
    json.key(key);
    json.beginArray();
    for (const std::string& text : texts)
        json.string(text);
    json.endArray();
}

void writeLink(JsonWriter& json, const SavedLink& link) {
    json.beginObject();
    json.member(keys::browser, link.browser);
    json.member(keys::collection, link.collection);
    json.numberMember(keys::createdAt, link.createdAt.seconds);
    if (link.iconURL)
        json.member(keys::iconURL, *link.iconURL);
    const auto id = link.id.characters();
    json.plainMember(keys::id, {id.data(), id.size()});
    if (link.importance)
        json.plainMember(keys::importance, storedValue(*link.importance));
    json.booleanMember(keys::isArchived, link.isArchived);
    json.booleanMember(keys::isFavorite, link.isFavorite);
    json.member(keys::note, link.note);
    writeTexts(json, keys::tags, link.tags);
    json.member(keys::title, link.title);
    json.member(keys::url, link.url);
    json.endObject();
}

/// About what the document will take, to spare it most of its growing.
std::size_t roughSize(const Library& library) {
    constexpr std::size_t keysOfALink = 400;
    std::size_t size = 0;
    for (const SavedLink& link : library.links)
        size += keysOfALink + link.url.size() + link.title.size() + link.note.size();
    return size;
}

} // namespace

bool document::write(const Library& library, JsonWriter::Sink sink) {
    JsonWriter json(std::move(sink));
    json.beginObject();
    writeTexts(json, keys::collections, library.collections);
    json.key(keys::links);
    json.beginArray();
    for (const SavedLink& link : library.links)
        writeLink(json, link);
    json.endArray();
    json.integerMember(keys::version, library.version);
    json.endObject();
    return json.finish();
}

bool document::isWritable(const Library& library) noexcept {
    return std::all_of(library.links.begin(), library.links.end(),
                       [](const SavedLink& link) { return std::isfinite(link.createdAt.seconds); });
}

std::string encodeLibrary(const Library& library) {
    std::string result;
    result.reserve(roughSize(library));
    const bool complete = document::write(library, [&](std::string_view piece) {
        result += piece;
        return true;
    });
    return complete ? result : std::string();
}

} // namespace brinmoor
