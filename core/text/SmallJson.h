#pragma once

#include <simdjson.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

/// Reading and writing the small JSON texts that cross a process or lie in a preference.
/// For the sources of this layer only: it brings simdjson with it.
namespace brinmoor::text {

/// A parsed text and the memory that its elements point into.
class SmallJson {
public:
    /// Parses `text`. Escapes of lone surrogates, which browsers hand on from page titles, are read
    /// as U+FFFD; everything else is strict.
    explicit SmallJson(std::string_view text);
    SmallJson(const SmallJson&) = delete;
    SmallJson& operator=(const SmallJson&) = delete;

    [[nodiscard]] simdjson::simdjson_result<simdjson::dom::element> root() const { return root_; }

private:
    simdjson::padded_string text_;
    simdjson::dom::parser parser_;
    simdjson::simdjson_result<simdjson::dom::element> root_;
};

using JsonElement = simdjson::dom::element;
using JsonObject = simdjson::dom::object;

/// The value of a key; absent when the key is missing or its value is null.
[[nodiscard]] std::optional<JsonElement> field(const JsonObject& object, std::string_view key);

/// The values of required keys: absent when the key is missing or of another type.
[[nodiscard]] std::optional<std::string> textField(const JsonObject& object, std::string_view key);
[[nodiscard]] std::optional<bool> booleanField(const JsonObject& object, std::string_view key);
/// A number without a fraction, however it is spelled.
[[nodiscard]] std::optional<std::int64_t> wholeField(const JsonObject& object,
                                                     std::string_view key);

/// The same, and only if T can hold it.
template <class T>
[[nodiscard]] std::optional<T> wholeFieldOf(const JsonObject& object, std::string_view key) {
    const auto number = wholeField(object, key);
    if (!number || *number < std::int64_t{std::numeric_limits<T>::min()} ||
        *number > std::int64_t{std::numeric_limits<T>::max()})
        return std::nullopt;
    return static_cast<T>(*number);
}

/// `text` as a JSON string. It may also stand in a script: the two line separators that end a
/// line there are escaped.
[[nodiscard]] std::string quoted(std::string_view text);

} // namespace brinmoor::text
