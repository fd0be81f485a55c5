#include "core/library/LibraryDocument.h"

#include <algorithm>
#include <cmath>

namespace brinmoor {

namespace {

using text::JsonWriter;

void writeText(JsonWriter& json, std::string_view key, const std::string& text) {
    json.key(key);
    json.string(text);
}

void writeBoolean(JsonWriter& json, std::string_view key, bool value) {
    json.key(key);
    json.boolean(value);
}

void writeTexts(JsonWriter& json, std::string_view key, const std::vector<std::string>& texts) {
    json.key(key);
    json.beginArray();
    for (const std::string& text : texts)
        json.string(text);
    json.endArray();
}

void writeLink(JsonWriter& json, const SavedLink& link) {
    json.beginObject();
    writeText(json, "browser", link.browser);
    writeText(json, "collection", link.collection);
    json.key("createdAt");
    json.number(link.createdAt.seconds);
    if (link.iconURL)
        writeText(json, "iconURL", *link.iconURL);
    json.key("id");
    const auto id = link.id.characters();
    json.string({id.data(), id.size()});
    if (link.importance) {
        json.key("importance");
        json.string(storedValue(*link.importance));
    }
    writeBoolean(json, "isArchived", link.isArchived);
    writeBoolean(json, "isFavorite", link.isFavorite);
    writeText(json, "note", link.note);
    writeTexts(json, "tags", link.tags);
    writeText(json, "title", link.title);
    writeText(json, "url", link.url);
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
    writeTexts(json, "collections", library.collections);
    json.key("links");
    json.beginArray();
    for (const SavedLink& link : library.links)
        writeLink(json, link);
    json.endArray();
    json.key("version");
    json.integer(library.version);
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
