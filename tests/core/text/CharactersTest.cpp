#include "core/text/Characters.h"

#include "tests/core/Generated.h"

#include <gmock/gmock.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <array>

namespace brinmoor::text {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string utf8(char32_t character) {
    std::string text;
    icu::UnicodeString(static_cast<UChar32>(character)).toUTF8String(text);
    return text;
}

template <class Check>
void forEveryScalar(Check check) {
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        if (character < 0xD800 || character > 0xDFFF)
            check(character);
        if (testing::Test::HasFailure())
            return;
    }
}

TEST(Characters, everyScalarIsReadAndStepsOverItself) {
    forEveryScalar([](char32_t character) {
        const std::string text = utf8(character);
        std::size_t at = 0;
        EXPECT_EQ(nextCharacter(text, at), character);
        EXPECT_EQ(at, text.size());
    });
}

TEST(Characters, aBadByteIsAReplacementOfOneStep) {
    for (const std::string_view bad :
         {"\x80", "\xC0\x80", "\xC1\xBF", "\xC3", "\xC3x", "\xE0\x80\x80", "\xE2\x82",
          "\xED\xA0\x80", "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF"}) {
        std::size_t at = 0;
        EXPECT_EQ(nextCharacter(bad, at), U'\uFFFD') << testing::PrintToString(bad);
        EXPECT_EQ(at, 1U) << testing::PrintToString(bad);
    }
}

TEST(Characters, theClassesAreThoseOfUnicode) {
    forEveryScalar([](char32_t character) {
        const auto point = static_cast<UChar32>(character);
        const auto category = U_GET_GC_MASK(point);
        EXPECT_EQ(isWhiteSpace(character), u_isUWhiteSpace(point) != 0) << point;
        EXPECT_EQ(isLetter(character), (category & (U_GC_L_MASK | U_GC_M_MASK)) != 0) << point;
        EXPECT_EQ(isNumber(character), (category & U_GC_N_MASK) != 0) << point;
    });
}

TEST(Characters, trimmingTakesWhiteSpaceAndLineEndsFromBothEnds) {
    EXPECT_EQ(trimmed(""), "");
    EXPECT_EQ(trimmed(" \t\r\n\v\f"), "");
    EXPECT_EQ(trimmed("\u00A0\u2028 a b \u3000\n"), "a b");
    EXPECT_EQ(trimmed("é"), "é");
    EXPECT_EQ(trimmed(" \x80 "), "\x80");
    EXPECT_EQ(trimmed("\xE3\x80"), "\xE3\x80");
    EXPECT_EQ(trimmed("a\u200B"), "a\u200B");
}

TEST(Characters, trimmingOfBlanksLeavesLineEnds) {
    EXPECT_EQ(trimmedOfBlanks(" \t\u00A0a\u3000"), "a");
    EXPECT_EQ(trimmedOfBlanks(" \na\r "), "\na\r");
    EXPECT_EQ(trimmedOfBlanks(" \t"), "");
}

TEST(Characters, trimmingAgreesWithTakingCharactersOffOneByOne) {
    const std::vector<std::string> pieces{" ", "\n", "\u00A0", "\u2029", "a", "é", "\x80", "\xE3"};
    tests::forSeeds(2000, [&](tests::Generated& generated) {
        const std::string text = generated.textOf(pieces, 8);
        std::vector<std::string_view> characters;
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t begin = at;
            (void)nextCharacter(text, at);
            characters.push_back(std::string_view(text).substr(begin, at - begin));
        }
        const auto isSpace = [](std::string_view character) {
            std::size_t at = 0;
            return isWhiteSpace(nextCharacter(character, at));
        };
        while (!characters.empty() && isSpace(characters.front()))
            characters.erase(characters.begin());
        while (!characters.empty() && isSpace(characters.back()))
            characters.pop_back();
        std::string expected;
        for (const std::string_view character : characters)
            expected += character;
        EXPECT_EQ(trimmed(text), expected);
    });
}

TEST(Characters, everyRunOfWhiteSpaceBecomesOneBlank) {
    EXPECT_EQ(withSingleBlanks(""), "");
    EXPECT_EQ(withSingleBlanks("\t\r\n a \u2003\u00A0b\n"), " a b ");
    EXPECT_EQ(withSingleBlanks("é\x80"), "é\x80");
}

TEST(Characters, caseMappingIsThatOfUnicodeAndOfNoLocale) {
    EXPECT_EQ(lowercased("ABC xyz 1"), "abc xyz 1");
    EXPECT_EQ(uppercased("ABC xyz 1"), "ABC XYZ 1");
    EXPECT_EQ(lowercased("ÄÖ ΑΣ"), "äö ας");
    EXPECT_EQ(uppercased("straße"), "STRASSE");
    EXPECT_EQ(lowercased("İI"), "i\u0307i");
}

struct Decoded {
    std::string_view text;
    std::string_view expected;
};

TEST(Characters, percentEscapesBecomeTheirBytes) {
    for (const auto& [text, expected] :
         {Decoded{"", ""}, {"a+b", "a+b"}, {"%41%7a", "Az"}, {"caf%C3%A9%20", "café "}}) {
        std::string decoded;
        EXPECT_TRUE(percentDecoded(text, decoded)) << text;
        EXPECT_EQ(decoded, expected);
    }
}

TEST(Characters, aBrokenEscapeOrBadTextIsNotDecoded) {
    for (const std::string_view text :
         {"%", "a%4", "%4g", "%zz", "%%41", "%FF", "%C3", "%ED%A0%80"}) {
        std::string decoded;
        EXPECT_FALSE(percentDecoded(text, decoded)) << text;
    }
}

} // namespace
} // namespace brinmoor::text
