#include "core/icons/LinkTags.h"

#include "core/text/Characters.h"
#include "tests/core/Generated.h"

#include <gtest/gtest.h>
#include <unicode/regex.h>

namespace brinmoor::SiteIcon {
namespace {

std::string utf8(const icu::UnicodeString& text) {
    std::string result;
    text.toUTF8String(result);
    return result;
}

/// Compiled once: the tests below ask it a million times.
icu::RegexMatcher matcherOf(const char16_t* pattern, std::uint32_t flags) {
    UErrorCode status = U_ZERO_ERROR;
    return {pattern, flags, status};
}

std::vector<std::string> tagsByPattern(const std::string& html) {
    static icu::RegexMatcher matcher = matcherOf(u"<link\\b[^>]*>", UREGEX_CASE_INSENSITIVE);
    UErrorCode status = U_ZERO_ERROR;
    const auto source = icu::UnicodeString::fromUTF8(html);
    matcher.reset(source);
    std::vector<std::string> tags;
    while (matcher.find(status))
        tags.push_back(utf8(matcher.group(status)));
    return tags;
}

std::string withAmpersands(std::string value) {
    for (std::size_t at = value.find("&amp;"); at != std::string::npos;
         at = value.find("&amp;", at + 1))
        value.replace(at, 5, "&");
    return value;
}

LinkAttributes attributesByPattern(const std::string& tag) {
    static icu::RegexMatcher matcher =
        matcherOf(uR"re(([\w-]+)\s*=\s*(?:"([^"]*)"|'([^']*)'|([^\s>]+)))re", 0);
    UErrorCode status = U_ZERO_ERROR;
    const auto source = icu::UnicodeString::fromUTF8(tag);
    matcher.reset(source);
    LinkAttributes attributes;
    while (matcher.find(status)) {
        const std::string name = text::lowercased(utf8(matcher.group(1, status)));
        std::string value;
        for (int group = 2; group <= 4; ++group) {
            if (matcher.start(group, status) >= 0)
                value = withAmpersands(utf8(matcher.group(group, status)));
        }
        if (name == "rel")
            attributes.rel = value;
        if (name == "href")
            attributes.href = value;
    }
    return attributes;
}

const std::vector<std::string> pieces{
    "<link",  "<LINK",  "<lin\u212A", "<l\u0130nk", "<",         ">",    " ",     "\n",   "=",
    "\"",     "'",      "rel",        "href",       "Href",      "-",    "_",     "a",    "é",
    "\u0301", "\u00AD", "\u200D",     "\u00A0",     "\u2028",    "icon", "&amp;", "&",    "/",
    "日",     "0",      "٣",          "\u203F",     "\v",        "\x1C", "x=y",   "rel=", "href=",
    "Ⓐ",      "ª",      "\u0345",     "ʰ",          "\U0001F130"};

TEST(LinkTags, theScannersFindWhatTheirPatternsMatch) {
    std::size_t found = 0;
    tests::forSeeds(60000, [&](tests::Generated& generated) {
        std::string html = generated.textOf(pieces, 25);
        if (generated.oneIn(2))
            html.insert(0, "<link ");
        std::vector<std::string> tags;
        for (std::string_view rest = html; const auto tag = nextLinkTag(rest);)
            tags.emplace_back(*tag);
        EXPECT_EQ(tags, tagsByPattern(html)) << testing::PrintToString(html);
        EXPECT_EQ(linkAttributes(html), attributesByPattern(html)) << testing::PrintToString(html);
        found += tags.size();
    });
    EXPECT_GT(found, 5000U) << "the generated pages hold too few tags to compare";
}

TEST(LinkTags, aWordEndsWhereThePatternSaysForEveryCharacter) {
    for (char32_t character = 1; character <= 0x10FFFF; ++character) {
        if (character >= 0xD800 && character <= 0xDFFF)
            continue;
        const std::string html = "<link" + utf8(static_cast<UChar32>(character)) + ">";
        std::string_view rest = html;
        const auto tag = nextLinkTag(rest);
        const auto expected = tagsByPattern(html);
        ASSERT_EQ(tag.has_value(), !expected.empty()) << static_cast<unsigned>(character);
    }
}

TEST(LinkTags, aNameHoldsWhatThePatternSaysForEveryCharacter) {
    for (char32_t character = 1; character <= 0x10FFFF; ++character) {
        if (character >= 0xD800 && character <= 0xDFFF)
            continue;
        const std::string tag = "rel" + utf8(static_cast<UChar32>(character)) + "=a href=b" +
                                utf8(static_cast<UChar32>(character)) + "c";
        ASSERT_EQ(linkAttributes(tag), attributesByPattern(tag))
            << static_cast<unsigned>(character);
    }
}

} // namespace
} // namespace brinmoor::SiteIcon
