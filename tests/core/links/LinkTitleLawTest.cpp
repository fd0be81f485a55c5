#include "core/links/LinkTitle.h"

#include "core/text/Characters.h"
#include "tests/core/Generated.h"

#include <gtest/gtest.h>
#include <unicode/regex.h>

#include <algorithm>

namespace brinmoor::LinkTitle {
namespace {

const std::vector<std::string> pieces{
    " ",         "\t",      "\r\n",        "\u00A0",   "\u200B", "\u2028", "\v",     "\x1F",
    "\u0085",    "(",       ")",           "3",        "٣",      "²",      "x",      "X",
    "home",      "/",       "Twitter",     "|",        "feed",   "•",      "login",  "log in",
    "to",        "or",      "sign up",     "for",      "İ",      "ſign",   "\u212A", "join ",
    "instagram", "e\u0301", "👩‍👧", "linKedin", ".com"};

std::string replaced(const std::string& text, const char16_t* pattern, const char16_t* by) {
    UErrorCode status = U_ZERO_ERROR;
    icu::RegexMatcher matcher(pattern, 0, status);
    const auto source = icu::UnicodeString::fromUTF8(text);
    matcher.reset(source);
    std::string result;
    matcher.replaceAll(by, status).toUTF8String(result);
    return result;
}

std::string cleanByPattern(const std::string& title) {
    const std::string line = replaced(title, u"\\s+", u" ");
    return std::string(text::firstGraphemes(text::trimmed(line), 180));
}

bool isGenericByPattern(const std::string& title) {
    const std::string rest =
        replaced(text::lowercased(cleanByPattern(title)), u"^\\(\\d+\\)\\s*", u"");
    for (const char* whole :
         {"", "instagram", "linkedin", "x", "twitter", "x.com", "home / x", "home / twitter",
          "feed | linkedin", "feed | linkedin.com", "login • instagram", "log in • instagram",
          "login on x", "sign in | linkedin"}) {
        if (rest == whole)
            return true;
    }
    return rest.starts_with("log in to ") || rest.starts_with("sign up for ") ||
           rest.find("log in or sign up") != std::string::npos ||
           rest.find("sign in or sign up") != std::string::npos ||
           rest.find("join instagram") != std::string::npos ||
           rest.find("professional community") != std::string::npos;
}

TEST(LinkTitleLaws, titlesAreReadAsByTheirPatterns) {
    std::size_t generic = 0;
    tests::forSeeds(50000, [&](tests::Generated& generated) {
        const std::string title = generated.textOf(pieces, 7);
        const std::string cleaned = cleanByPattern(title);
        EXPECT_EQ(clean(title), cleaned) << testing::PrintToString(title);
        EXPECT_TRUE(!isSurelyClean(title) || cleaned == title) << testing::PrintToString(title);
        const bool expected = isGenericByPattern(title);
        EXPECT_EQ(isGeneric(title), expected) << testing::PrintToString(title);
        generic += expected ? 1 : 0;
    });
    EXPECT_GT(generic, 1000U) << "the generated titles are too rarely generic to compare";
}

std::string utf8(char32_t character) {
    std::string text;
    icu::UnicodeString(static_cast<UChar32>(character)).toUTF8String(text);
    return text;
}

/// Titles are read with the letter case of ASCII alone wherever that is the same.
TEST(LinkTitleLaws, everyCharacterInAGenericTitleCountsAsItsLowerCase) {
    for (char32_t character = 1; character <= 0x10FFFF; ++character) {
        if (character >= 0xD800 && character <= 0xDFFF)
            continue;
        const std::string inside = utf8(character);
        const std::string lower = text::lowercased(inside);
        const auto seen = [](unsigned char unit) { return unit < 0x80; };
        if (character >= 0x80 && std::none_of(lower.begin(), lower.end(), seen))
            continue;
        for (const std::string& title :
             {inside, "lin" + inside + "edin", "jo" + inside + "n instagram",
              "home /" + inside + "x", "a" + inside})
            ASSERT_EQ(isGeneric(title), isGenericByPattern(title)) << testing::PrintToString(title);
    }
}

TEST(LinkTitleLaws, everyCharacterIsKnownToBeCleanOrMaybeNot) {
    for (char32_t character = 1; character <= 0x10FFFF; ++character) {
        if (character >= 0xD800 && character <= 0xDFFF)
            continue;
        const std::string title = "a" + utf8(character);
        ASSERT_TRUE(!isSurelyClean(title) || clean(title) == title)
            << static_cast<unsigned>(character);
    }
}

TEST(LinkTitleLaws, aCleanTitleIsClean) {
    tests::forSeeds(3000, [&](tests::Generated& generated) {
        const std::string title = generated.textOf(pieces, 300);
        const std::string once = clean(title);
        EXPECT_LE(text::graphemeCount(once), 180U);
        EXPECT_EQ(clean(once), std::string(text::trimmed(once)));
    });
}

} // namespace
} // namespace brinmoor::LinkTitle
