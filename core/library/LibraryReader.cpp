#include "core/library/LargeNumbers.h"
#include "core/library/LibraryDocument.h"
#include "core/library/LibraryScan.h"

#include <simdjson.h>

#include <array>
#include <cstring>
#include <memory>
#include <optional>

namespace brinmoor {

namespace {

using simdjson::dom::array;
using simdjson::dom::element;
using simdjson::dom::object;

static_assert(document::readerPadding >= simdjson::SIMDJSON_PADDING);
static_assert(document::largestSize <= simdjson::SIMDJSON_MAXSIZE_BYTES);

/// The values of an object's known keys. Of a key that stands twice the last value counts, as in
/// most readers; unknown keys are passed over.
template <std::size_t count>
class Members {
public:
    using Names = std::array<std::string_view, count>;

    Members(const object& members, const Names& names) {
        // Our own files hold the keys in the order of the names: look there first.
        std::size_t next = 0;
        for (const auto member : members)
            if (const auto at = position(names, member.key, next)) {
                values_[*at] = member.value;
                next = (*at + 1) % count;
            }
    }

    /// Absent when the key is missing.
    [[nodiscard]] const std::optional<element>& required(std::size_t at) const {
        return values_[at];
    }
    /// Absent when the key is missing or its value is null.
    [[nodiscard]] std::optional<element> tolerant(std::size_t at) const {
        return values_[at] && !values_[at]->is_null() ? values_[at] : std::nullopt;
    }

private:
    static std::optional<std::size_t> position(const Names& names, std::string_view key,
                                               std::size_t next) {
        for (std::size_t step = 0; step < count; ++step)
            if (const std::size_t at = (next + step) % count; names[at] == key)
                return at;
        return std::nullopt;
    }

    std::array<std::optional<element>, count> values_;
};

// Each reader below gives false for a value that is missing, of another type or a bad one.

bool read(const std::optional<element>& from, std::string& to) {
    std::string_view text;
    if (!from || from->get_string().get(text) != simdjson::SUCCESS)
        return false;
    to.assign(text);
    return true;
}

bool read(const std::optional<element>& from, bool& to) {
    return from && from->get_bool().get(to) == simdjson::SUCCESS;
}

/// Takes whole numbers too: other programs write them without a point.
bool read(const std::optional<element>& from, double& to) {
    return from && from->get_double().get(to) == simdjson::SUCCESS;
}

bool read(const std::optional<element>& from, std::vector<std::string>& to) {
    array texts;
    if (!from || from->get_array().get(texts) != simdjson::SUCCESS)
        return false;
    to.clear();
    to.reserve(texts.size());
    for (const element text : texts)
        if (!read(text, to.emplace_back()))
            return false;
    return true;
}

bool read(const std::optional<element>& from, Uuid& to) {
    std::string_view text;
    if (!from || from->get_string().get(text) != simdjson::SUCCESS)
        return false;
    const auto id = Uuid::parse(text);
    if (id)
        to = *id;
    return id.has_value();
}

bool readTolerant(const std::optional<element>& from, std::optional<std::string>& to) {
    return !from || read(from, to.emplace());
}

bool readTolerant(const std::optional<element>& from, std::vector<std::string>& to) {
    if (!from)
        return true;
    if (!read(from, to))
        return false;
    to = SavedLink::normalizedTags(to);
    return true;
}

bool readTolerant(const std::optional<element>& from, std::optional<LinkImportance>& to) {
    std::string_view text;
    if (!from)
        return true;
    if (from->get_string().get(text) != simdjson::SUCCESS)
        return false;
    to = linkImportance(text);
    return to.has_value();
}

bool read(const std::optional<element>& from, SavedLink& to) {
    constexpr std::array<std::string_view, 12> names{
        "browser",    "collection", "createdAt", "iconURL", "id",    "importance",
        "isArchived", "isFavorite", "note",      "tags",    "title", "url"};
    object fields;
    if (!from || from->get_object().get(fields) != simdjson::SUCCESS)
        return false;
    const Members members(fields, names);
    return read(members.required(0), to.browser) && read(members.required(1), to.collection) &&
           read(members.required(2), to.createdAt.seconds) &&
           readTolerant(members.tolerant(3), to.iconURL) && read(members.required(4), to.id) &&
           readTolerant(members.tolerant(5), to.importance) &&
           read(members.required(6), to.isArchived) && read(members.required(7), to.isFavorite) &&
           read(members.required(8), to.note) && readTolerant(members.tolerant(9), to.tags) &&
           read(members.required(10), to.title) && read(members.required(11), to.url);
}

bool read(const std::optional<element>& from, std::vector<SavedLink>& to) {
    array links;
    if (!from || from->get_array().get(links) != simdjson::SUCCESS)
        return false;
    to.reserve(links.size());
    for (const element link : links)
        if (!read(link, to.emplace_back()))
            return false;
    return true;
}

Failure<FileError> refused(FileError::Cause cause) {
    return failure(FileError{cause, 0});
}

Result<Library, FileError> readRoot(const element& root) {
    constexpr std::array<std::string_view, 3> names{"collections", "links", "version"};
    object fields;
    if (root.get_object().get(fields) != simdjson::SUCCESS)
        return refused(FileError::Cause::wrongShape);
    const Members members(fields, names);
    double version = 0;
    if (!read(members.required(2), version))
        return refused(FileError::Cause::wrongShape);
    // A document of another version may have any shape: it is not looked at.
    if (version != 1)
        return refused(FileError::Cause::unknownVersion);
    Library library;
    if (!read(members.required(0), library.collections) ||
        !read(members.required(1), library.links))
        return refused(FileError::Cause::wrongShape);
    return library;
}

} // namespace

Result<Library, FileError> document::readPadded(const char* bytes, std::size_t size) {
    if (size > largestSize)
        return refused(FileError::Cause::tooLarge);
    if (auto usual = scanUsual(bytes, size))
        return std::move(*usual);
    return readAny(bytes, size);
}

Result<Library, FileError> document::readAny(const char* bytes, std::size_t size) {
    simdjson::dom::parser parser;
    element root;
    auto error = parser.parse(reinterpret_cast<const std::uint8_t*>(bytes), size, false).get(root);
    // The parser makes no difference between a number that is none and one that is too large for
    // it, which may well stand under a key that nobody wants to know of.
    if (error == simdjson::NUMBER_ERROR)
        error = parser.parse(withoutLargeNumbers({bytes, size})).get(root);
    switch (error) {
    case simdjson::SUCCESS:
        return readRoot(root);
    case simdjson::MEMALLOC:
        return failure(FileError{FileError::Cause::system, ENOMEM});
    default:
        return refused(FileError::Cause::notJson);
    }
}

Result<Library, FileError> decodeLibrary(std::string_view json) {
    if (json.size() > document::largestSize)
        return refused(FileError::Cause::tooLarge);
    const auto bytes = std::make_unique<char[]>(json.size() + document::readerPadding);
    std::memcpy(bytes.get(), json.data(), json.size());
    return document::readPadded(bytes.get(), json.size());
}

} // namespace brinmoor
