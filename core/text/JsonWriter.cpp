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

// The lines of a library lie no deeper.
constexpr std::size_t usualLevels = 7;
constexpr std::size_t usualLine = 16;
static_assert(1 + blanksPerLevel * usualLevels <= usualLine);

std::size_t stringRoom(std::string_view text) {
    return text.size() <= longestPiece ? json::escapedRoom(text.size()) + 2 : 1;
}

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

[[gnu::always_inline]] inline void JsonWriter::ensure(std::size_t room) {
    if (static_cast<std::size_t>(limit_ - cursor_) < room)
        flush();
}

// What follows goes through a cursor of its own: writing a character may change anything, so the
// member would be read anew behind each of them.

[[gnu::always_inline]] inline char* JsonWriter::startLine(char* to) const {
    // A copy of fixed length, whatever of it counts, is a few stores and no call.
    if (level_ <= usualLevels)
        std::memcpy(to, deepestLine.data(), usualLine);
    else
        std::memcpy(to, deepestLine.data(), deepestLine.size());
    return to + 1 + blanksPerLevel * level_;
}

[[gnu::always_inline]] inline char* JsonWriter::startValue(std::size_t room) {
    ensure(1 + deepestLine.size() + room);
    char* to = cursor_;
    if (afterKey_ || level_ == 0) {
        afterKey_ = false;
        return to;
    }
    *to = ',';
    to += hasMembers_[level_] ? 1 : 0;
    hasMembers_[level_] = true;
    return startLine(to);
}

void JsonWriter::begin(char bracket) {
    char* to = startValue(1);
    *to++ = bracket;
    cursor_ = to;
    hasMembers_[++level_] = false;
}

void JsonWriter::end(char bracket) {
    const bool wasEmpty = !hasMembers_[level_--];
    ensure(1 + deepestLine.size() + 1);
    char* to = cursor_;
    *to = '\n';
    to = startLine(to + (wasEmpty ? 1 : 0));
    *to++ = bracket;
    cursor_ = to;
}

[[gnu::always_inline]] inline char* JsonWriter::startMember(const JsonKey& key, std::size_t room) {
    char* const to = startValue(JsonKey::room + room);
    std::memcpy(to, key.text(), JsonKey::room);
    return to + key.length();
}

void JsonWriter::key(const JsonKey& key) {
    cursor_ = startMember(key, 0);
    afterKey_ = true;
}

void JsonWriter::string(std::string_view text) {
    writeString(startValue(stringRoom(text)), text);
}

void JsonWriter::member(const JsonKey& key, std::string_view text) {
    writeString(startMember(key, stringRoom(text)), text);
}

[[gnu::always_inline]] inline void JsonWriter::writeString(char* to, std::string_view text) {
    if (text.size() <= longestPiece) {
        *to = '"';
        const json::Escaped escaped = json::writeEscaped(to + 1, text);
        if (escaped.isAscii || isUtf8(text)) {
            *escaped.end = '"';
            cursor_ = escaped.end + 1;
            return;
        }
    }
    cursor_ = to;
    writeByPieces(text);
}

void JsonWriter::writeByPieces(std::string_view text) {
    std::string mended;
    if (!isUtf8(text)) {
        mended = withBadBytesReplaced(text);
        text = mended;
    }
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

void JsonWriter::plainMember(const JsonKey& key, std::string_view text) {
    char* to = startMember(key, longestPlain + 2);
    *to++ = '"';
    std::memcpy(to, text.data(), text.size());
    to += text.size();
    *to++ = '"';
    cursor_ = to;
}

void JsonWriter::numberMember(const JsonKey& key, double finite) {
    cursor_ = writeNumber(startMember(key, longestNumber + 2), finite);
}

void JsonWriter::integerMember(const JsonKey& key, std::int64_t value) {
    char* const to = startMember(key, longestNumber);
    cursor_ = std::to_chars(to, to + longestNumber, value).ptr;
}

void JsonWriter::booleanMember(const JsonKey& key, bool value) {
    constexpr std::size_t longest = 5;
    char* const to = startMember(key, longest);
    std::memcpy(to, value ? "true " : "false", longest);
    cursor_ = to + (value ? 4 : 5);
}

bool JsonWriter::finish() {
    flush();
    return !refused_;
}

} // namespace brinmoor::text
