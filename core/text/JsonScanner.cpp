#include "core/text/JsonScanner.h"

#include "core/text/Blocks.h"

#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>

namespace brinmoor::text {

namespace {

/// How much is written at once behind the end of what counts, and the longest escape's text.
constexpr std::size_t slack = 32;
constexpr std::size_t mostIntegerDigits = 18;

constexpr bool isBlank(char character) {
    return character == ' ' || character == '\n' || character == '\r' || character == '\t';
}

constexpr bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

/// What the letter behind a backslash stands for; 0 for none of them.
constexpr auto meanings = [] {
    std::array<char, 256> result{};
    constexpr std::string_view letters = "\"\\/bfnrt";
    constexpr std::string_view characters = "\"\\/\b\f\n\r\t";
    for (std::size_t at = 0; at < letters.size(); ++at)
        result[static_cast<unsigned char>(letters[at])] = characters[at];
    return result;
}();

#if BRINMOOR_BLOCKS

constexpr std::size_t step = blockSize;

unsigned blanksIn(const char* from) {
    const __m128i block = loadBlock(from);
    const __m128i first = _mm_or_si128(_mm_cmpeq_epi8(block, _mm_set1_epi8(' ')),
                                       _mm_cmpeq_epi8(block, _mm_set1_epi8('\n')));
    const __m128i others = _mm_or_si128(_mm_cmpeq_epi8(block, _mm_set1_epi8('\r')),
                                        _mm_cmpeq_epi8(block, _mm_set1_epi8('\t')));
    return maskOf(_mm_or_si128(first, others));
}

/// The number of bytes, up to a step, before one that ends a plain run.
[[gnu::always_inline]] inline std::size_t copyPlain(char* to, const char* from) {
    const __m128i block = loadBlock(from);
    storeBlock(to, block);
    const __m128i highestControl = _mm_set1_epi8(0x1F);
    const __m128i controls = _mm_cmpeq_epi8(_mm_min_epu8(block, highestControl), block);
    const __m128i signs = _mm_or_si128(_mm_cmpeq_epi8(block, _mm_set1_epi8('"')),
                                       _mm_cmpeq_epi8(block, _mm_set1_epi8('\\')));
    return static_cast<std::size_t>(
        std::countr_zero(maskOf(_mm_or_si128(controls, signs)) | 1U << step));
}

/// Whether the key stands there with the blanks that the writer puts around its colon.
[[gnu::always_inline]] inline bool isUsualKey(const char* at, const JsonKey& key) {
    if (key.length() > step)
        return std::memcmp(at, key.text(), key.length()) == 0;
    const unsigned equal = maskOf(_mm_cmpeq_epi8(loadBlock(at), loadBlock(key.text())));
    return std::countr_one(equal) >= static_cast<int>(key.length());
}

[[gnu::always_inline]] inline const char* afterBlanks(const char* at, const char* end) {
    while (at < end) {
        const int count = std::countr_one(blanksIn(at));
        at += count;
        if (count < static_cast<int>(step))
            break;
    }
    return at;
}

#else

constexpr std::size_t step = 1;

std::size_t copyPlain(char* to, const char* from) {
    *to = *from;
    const bool isPlain = static_cast<unsigned char>(*from) >= 0x20 && *from != '"' && *from != '\\';
    return isPlain ? 1 : 0;
}

bool isUsualKey(const char* at, const JsonKey& key) {
    return std::memcmp(at, key.text(), key.length()) == 0;
}

const char* afterBlanks(const char* at, const char* end) {
    while (at < end && isBlank(*at))
        ++at;
    return at;
}

#endif

const char* afterDigits(const char* at, const char* end) {
    while (at < end && isDigit(*at))
        ++at;
    return at;
}

/// Where the fraction and exponent that stand at `at` end; null when they are broken off.
const char* afterFraction(const char* at, const char* end) {
    if (at < end && *at == '.') {
        const char* const begin = at + 1;
        at = afterDigits(begin, end);
        if (at == begin)
            return nullptr;
    }
    if (at < end && (*at == 'e' || *at == 'E')) {
        ++at;
        if (at < end && (*at == '+' || *at == '-'))
            ++at;
        const char* const begin = at;
        at = afterDigits(begin, end);
        if (at == begin)
            return nullptr;
    }
    return at;
}

} // namespace

[[gnu::always_inline]] inline void JsonScanner::skipBlanks() noexcept {
    if (at_ < end_ && isBlank(*at_))
        at_ = afterBlanks(at_ + 1, end_);
}

[[gnu::always_inline]] inline bool JsonScanner::takeSign(char sign) noexcept {
    skipBlanks();
    if (at_ >= end_ || *at_ != sign)
        return false;
    ++at_;
    return true;
}

bool JsonScanner::take(char sign) noexcept {
    return takeSign(sign);
}

bool JsonScanner::takeKey(char before, const JsonKey& key) noexcept {
    const char* const start = at_;
    if (takeSign(before)) {
        skipBlanks();
        if (at_ < end_ && isUsualKey(at_, key)) {
            at_ += key.length();
            return true;
        }
        const std::string_view quoted = key.quoted();
        if (at_ < end_ && std::memcmp(at_, quoted.data(), quoted.size()) == 0) {
            at_ += quoted.size();
            if (takeSign(':'))
                return true;
        }
    }
    at_ = start;
    return false;
}

bool JsonScanner::takeString(std::string_view& text) {
    if (!takeSign('"'))
        return false;
    char* to = room_.data();
    while (at_ < end_) {
        if (to + slack > room_.data() + room_.size())
            makeRoom(to);
        const std::size_t plain = copyPlain(to, at_);
        to += plain;
        at_ += plain;
        if (plain == step)
            continue;
        if (*at_ == '"') {
            ++at_;
            text = {room_.data(), static_cast<std::size_t>(to - room_.data())};
            return true;
        }
        if (!takeEscape(to))
            return false;
    }
    return false;
}

void JsonScanner::makeRoom(char*& to) {
    const auto length = to - room_.data();
    room_.resize(2 * room_.size());
    to = room_.data() + length;
}

/// Stands at what ended the plain run.
bool JsonScanner::takeEscape(char*& to) noexcept {
    if (*at_ != '\\')
        return false;
    const char letter = at_[1];
    at_ += 2;
    if (letter == 'u')
        return takeCodeUnit(to);
    *to = meanings[static_cast<unsigned char>(letter)];
    return *to++ != 0;
}

/// One that is a character of its own: pairs are left to the complete parser.
bool JsonScanner::takeCodeUnit(char*& to) noexcept {
    constexpr std::size_t digits = 4;
    unsigned unit = 0;
    const auto [last, error] = std::from_chars(at_, at_ + digits, unit, 16);
    if (error != std::errc() || last != at_ + digits || (unit >= 0xD800 && unit < 0xE000))
        return false;
    at_ = last;
    if (unit < 0x80) {
        *to++ = static_cast<char>(unit);
    } else if (unit < 0x800) {
        *to++ = static_cast<char>(0xC0U | unit >> 6);
        *to++ = static_cast<char>(0x80U | (unit & 0x3FU));
    } else {
        *to++ = static_cast<char>(0xE0U | unit >> 12);
        *to++ = static_cast<char>(0x80U | (unit >> 6 & 0x3FU));
        *to++ = static_cast<char>(0x80U | (unit & 0x3FU));
    }
    return true;
}

bool JsonScanner::takeNumber(double& number) noexcept {
    skipBlanks();
    const char* const begin = at_;
    const char* const digits = begin < end_ && *begin == '-' ? begin + 1 : begin;
    const char* const behindWhole = afterDigits(digits, end_);
    const auto count = static_cast<std::size_t>(behindWhole - digits);
    if (count == 0 || (count > 1 && *digits == '0'))
        return false;
    const char* const behind = afterFraction(behindWhole, end_);
    if (behind == nullptr)
        return false;
    at_ = behind;
    if (behind != behindWhole)
        return std::from_chars(begin, behind, number).ec == std::errc();
    std::int64_t whole = 0;
    if (count > mostIntegerDigits)
        return false;
    std::from_chars(begin, behind, whole);
    number = static_cast<double>(whole);
    return true;
}

bool JsonScanner::takeBoolean(bool& value) noexcept {
    constexpr std::string_view yes = "true";
    constexpr std::string_view no = "false";
    skipBlanks();
    if (at_ >= end_)
        return false;
    value = *at_ == yes.front();
    const std::string_view word = value ? yes : no;
    if (std::memcmp(at_, word.data(), word.size()) != 0)
        return false;
    at_ += word.size();
    return true;
}

bool JsonScanner::isAtEnd() noexcept {
    skipBlanks();
    return at_ == end_;
}

} // namespace brinmoor::text
