#pragma once

#include <array>
#include <cstdint>
#include <string_view>

/// What may stand where in an address (RFC 3986, appendix A). Used where addresses are read.
namespace brinmoor::addresses {

inline constexpr std::uint8_t inScheme = 1; ///< behind a scheme's first letter
inline constexpr std::uint8_t inHost = 2;   ///< reg-name without "%"
inline constexpr std::uint8_t inPath = 4;   ///< pchar and "/", without "%"
inline constexpr std::uint8_t inQuery = 8;  ///< query and fragment, without "%"
inline constexpr std::uint8_t hexadecimal = 16;
inline constexpr std::uint8_t digit = 32;
inline constexpr std::uint8_t letter = 64;
inline constexpr std::uint8_t inLowerHost = 128; ///< inHost but for the capitals

consteval std::array<std::uint8_t, 256> characterClasses() {
    std::array<std::uint8_t, 256> classes{};
    const auto add = [&](std::string_view characters, unsigned flags) {
        for (const char character : characters) {
            auto& entry = classes[static_cast<unsigned char>(character)];
            entry = static_cast<std::uint8_t>(entry | flags);
        }
    };
    constexpr unsigned everywhere = inHost | inLowerHost | inPath | inQuery;
    constexpr unsigned capital = inHost | inPath | inQuery;
    add("abcdefghijklmnopqrstuvwxyz", everywhere | inScheme | letter);
    add("ABCDEFGHIJKLMNOPQRSTUVWXYZ", capital | inScheme | letter);
    add("0123456789", everywhere | inScheme | digit | hexadecimal);
    add("abcdefABCDEF", hexadecimal);
    add("-.", everywhere | inScheme);
    add("_~!$&'()*,;=", everywhere);
    add("+", everywhere | inScheme);
    add(":@/", inPath | inQuery);
    add("?", inQuery);
    return classes;
}

inline constexpr std::array<std::uint8_t, 256> classes = characterClasses();

[[nodiscard]] constexpr bool is(char character, std::uint8_t flags) noexcept {
    return (classes[static_cast<unsigned char>(character)] & flags) != 0;
}

/// Whether a "%" at `at` has its two hexadecimal digits.
[[nodiscard]] constexpr bool isEscape(std::string_view text, std::size_t at) noexcept {
    return at + 2 < text.size() && is(text[at + 1], hexadecimal) && is(text[at + 2], hexadecimal);
}

[[nodiscard]] constexpr char lowered(char character) noexcept {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character | 0x20) : character;
}

} // namespace brinmoor::addresses
