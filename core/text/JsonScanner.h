#pragma once

#include "core/text/JsonKey.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brinmoor::text {

/// Walks through a JSON text whose shape is known beforehand, without building anything between
/// the bytes and the values. It knows the usual spellings only: what it takes is JSON and means
/// what it says; what it refuses may be JSON all the same, and is for a complete parser to judge.
///
/// Every operation passes over white space first and gives false when something else stands there,
/// or after the end. The text must be UTF-8 with `padding` readable bytes behind it.
class JsonScanner {
public:
    static constexpr std::size_t padding = 64;

    JsonScanner(const char* text, std::size_t size)
        : at_(text), end_(text + size), room_(smallestRoom) {}

    [[nodiscard]] bool take(char sign) noexcept;
    /// A bracket or comma, the key and its colon; takes all of them or nothing.
    [[nodiscard]] bool takeKey(char before, const JsonKey& key) noexcept;
    /// Valid until the next call.
    [[nodiscard]] bool takeString(std::string_view& text);
    /// Whole numbers of up to 18 digits and all others that a double can hold.
    [[nodiscard]] bool takeNumber(double& number) noexcept;
    [[nodiscard]] bool takeBoolean(bool& value) noexcept;
    /// Whether nothing is left.
    [[nodiscard]] bool isAtEnd() noexcept;

    /// The next byte.
    [[nodiscard]] const char* position() const noexcept { return at_; }

private:
    static constexpr std::size_t smallestRoom = 4096;

    void skipBlanks() noexcept;
    [[nodiscard]] bool takeSign(char sign) noexcept;
    [[nodiscard]] bool takeEscape(char*& to) noexcept;
    [[nodiscard]] bool takeCodeUnit(char*& to) noexcept;
    void makeRoom(char*& to);

    const char* at_;
    const char* end_;
    std::vector<char> room_; ///< for the text of the last string
};

} // namespace brinmoor::text
