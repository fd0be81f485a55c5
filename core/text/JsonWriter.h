#pragma once

#include "core/text/JsonKey.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace brinmoor::text {

/// Writes one JSON document in the product's form: UTF-8, pretty-printed with two blanks a level,
/// `"key" : value`, "/" as "\/", shortest numbers that read back to the same bits. The caller gives
/// the keys of an object in sorted order. Text that is not UTF-8 gets U+FFFD for each bad byte, so
/// whatever is written can be read.
///
/// The text goes through one window, handed to the sink whenever it is full: a document of any
/// size takes the room of the window.
class JsonWriter {
public:
    /// Takes the next piece of the document; false ends the writing.
    using Sink = std::function<bool(std::string_view piece)>;

    static constexpr std::size_t windowSize = std::size_t{256} << 10;
    static constexpr std::size_t deepestLevel = 32;

    explicit JsonWriter(Sink sink);

    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }

    /// The array or object that follows is the key's value.
    void key(const JsonKey& key);
    /// A text of an array.
    void string(std::string_view text);

    void member(const JsonKey& key, std::string_view text);
    /// A text of up to longestPlain bytes that needs no escapes.
    void plainMember(const JsonKey& key, std::string_view text);
    void numberMember(const JsonKey& key, double finite);
    void integerMember(const JsonKey& key, std::int64_t value);
    void booleanMember(const JsonKey& key, bool value);

    static constexpr std::size_t longestPlain = 64;

    /// Hands over the rest; false when the sink refused a piece.
    [[nodiscard]] bool finish();

private:
    void begin(char bracket);
    void end(char bracket);
    /// Room for a value, behind its comma, line break and blanks.
    [[nodiscard]] char* startValue(std::size_t room);
    [[nodiscard]] char* startMember(const JsonKey& key, std::size_t room);
    [[nodiscard]] char* startLine(char* to) const;
    void ensure(std::size_t room);
    void flush();
    void writeString(char* to, std::string_view text);
    void writeByPieces(std::string_view text);

    Sink sink_;
    std::vector<char> window_;
    char* cursor_;
    char* limit_;
    bool refused_ = false;
    bool afterKey_ = false;
    std::size_t level_ = 0;
    std::array<bool, deepestLevel + 1> hasMembers_{};
};

} // namespace brinmoor::text
