#include "core/text/JsonWriter.h"

#include "core/text/JsonEscapes.h"
#include "core/text/Utf8.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace brinmoor::text {

namespace {

constexpr std::size_t blanksPerLevel = 2;
constexpr std::size_t longestNumber = 32;
constexpr std::size_t longestPiece = 4096; ///< of a text, between two looks at the window
// From here on not every whole number is a double: an exponent keeps the digits few, and readers
// that take a number without point for an integer stay in range.
constexpr double firstGapInWholeNumbers = 9007199254740992.0;

constexpr auto deepestLine = [] {
    std::array<char, 1 + blanksPerLevel * JsonWriter::deepestLevel> line{};
    line.fill(' ');
    line[0] = '\n';
    return line;
}();

char* writeNumber(char* to, double value) {
    if (std::abs(value) >= firstGapInWholeNumbers)
        return std::to_chars(to, to + longestNumber, value, std::chars_format::scientific).ptr;
    const auto whole = static_cast<std::int64_t>(value);
    if (static_cast<double>(whole) == value && !(whole == 0 && std::signbit(value)))
        return std::to_chars(to, to + longestNumber, whole).ptr;
    char* end = std::to_chars(to, to + longestNumber, value).ptr;
    if (value == 0) { // "-0" would be read as a whole number, which has no such zero
        *end++ = '.';
        *end++ = '0';
    }
    return end;
}

} // namespace

JsonWriter::JsonWriter(Sink sink)
    : sink_(std::move(sink)), window_(windowSize), cursor_(window_.data()),
      limit_(window_.data() + window_.size()) {}

void JsonWriter::flush() {
    const std::string_view piece(window_.data(),
                                 static_cast<std::size_t>(cursor_ - window_.data()));
    cursor_ = window_.data();
    if (!piece.empty() && !refused_)
        refused_ = !sink_(piece);
}

void JsonWriter::ensure(std::size_t room) {
    if (static_cast<std::size_t>(limit_ - cursor_) < room)
        flush();
}

void JsonWriter::put(std::string_view text) {
    std::memcpy(cursor_, text.data(), text.size());
    cursor_ += text.size();
}

void JsonWriter::newLine() {
    // A copy of fixed length, whatever of it counts, is a few stores and no call.
    ensure(deepestLine.size());
    std::memcpy(cursor_, deepestLine.data(), deepestLine.size());
    cursor_ += 1 + blanksPerLevel * level_;
}

void JsonWriter::beforeValue() {
    if (afterKey_ || level_ == 0) {
        afterKey_ = false;
        return;
    }
    ensure(1);
    if (hasMembers_[level_])
        *cursor_++ = ',';
    hasMembers_[level_] = true;
    newLine();
}

void JsonWriter::begin(char bracket) {
    beforeValue();
    ensure(1);
    *cursor_++ = bracket;
    hasMembers_[++level_] = false;
}

void JsonWriter::end(char bracket) {
    const bool wasEmpty = !hasMembers_[level_--];
    ensure(1);
    if (wasEmpty)
        *cursor_++ = '\n';
    newLine();
    ensure(1);
    *cursor_++ = bracket;
}

void JsonWriter::key(std::string_view name) {
    beforeValue();
    ensure(name.size() + 5);
    *cursor_++ = '"';
    put(name);
    put("\" : ");
    afterKey_ = true;
}

void JsonWriter::string(std::string_view text) {
    beforeValue();
    if (text.size() <= longestPiece)
        escapeShort(text);
    else
        escapeLong(text);
}

void JsonWriter::escapeShort(std::string_view text) {
    ensure(json::escapedRoom(text.size()) + 2);
    char* const start = cursor_;
    *cursor_++ = '"';
    const json::Escaped escaped = json::writeEscaped(cursor_, text);
    if (escaped.isAscii || isUtf8(text)) {
        cursor_ = escaped.end;
        *cursor_++ = '"';
        return;
    }
    cursor_ = start;
    escapeLong(text);
}

void JsonWriter::escapeLong(std::string_view text) {
    std::string mended;
    if (!isUtf8(text)) {
        mended = withBadBytesReplaced(text);
        text = mended;
    }
    ensure(1);
    *cursor_++ = '"';
    while (!text.empty()) {
        const std::string_view piece = text.substr(0, longestPiece);
        ensure(json::escapedRoom(piece.size()));
        cursor_ = json::writeEscaped(cursor_, piece).end;
        text.remove_prefix(piece.size());
    }
    ensure(1);
    *cursor_++ = '"';
}

void JsonWriter::number(double finite) {
    beforeValue();
    ensure(longestNumber + 2);
    cursor_ = writeNumber(cursor_, finite);
}

void JsonWriter::integer(std::int64_t value) {
    beforeValue();
    ensure(longestNumber);
    cursor_ = std::to_chars(cursor_, cursor_ + longestNumber, value).ptr;
}

void JsonWriter::boolean(bool value) {
    beforeValue();
    ensure(5);
    put(value ? "true" : "false");
}

bool JsonWriter::finish() {
    flush();
    return !refused_;
}

} // namespace brinmoor::text
