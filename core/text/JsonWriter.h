#pragma once

#include <array>
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

    /// A key of plain ASCII letters and digits, which needs no escapes.
    void key(std::string_view name);
    void string(std::string_view text);
    void number(double finite);
    void integer(std::int64_t value);
    void boolean(bool value);

    /// Hands over the rest; false when the sink refused a piece.
    [[nodiscard]] bool finish();

private:
    enum class Place { inObject, inArray };

    void begin(char bracket);
    void end(char bracket);
    void beforeValue();
    void newLine();
    void ensure(std::size_t room);
    void flush();
    void put(std::string_view text);
    void escapeShort(std::string_view text);
    void escapeLong(std::string_view text);

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
