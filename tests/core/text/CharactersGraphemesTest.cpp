#include "core/text/Characters.h"

#include "tests/core/Generated.h"

#include <gmock/gmock.h>
#include <unicode/brkiter.h>
#include <unicode/unistr.h>

namespace brinmoor::text {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Counted {
    std::string_view text;
    std::size_t count;
};

TEST(Graphemes, countsWhatAReaderSees) {
    for (const auto& [text, count] : {Counted{"", 0},
                                      {"abc", 3},
                                      {"\r\n", 1},
                                      {"\r\r\n\n", 3},
                                      {"é", 1},
                                      {"e\u0301", 1},
                                      {"👩‍👩‍👧‍👦", 1},
                                      {"🇩🇪🇫🇷", 2},
                                      {"\u1112\u1161\u11ab", 1},
                                      {"क्षि", 1},
                                      {"a\x80\xff", 3},
                                      {"日本語", 3}})
        EXPECT_EQ(graphemeCount(text), count) << text;
}

TEST(Graphemes, listsEveryClusterInOrder) {
    EXPECT_THAT(graphemes(""), IsEmpty());
    EXPECT_THAT(graphemes("a\r\nb"), ElementsAre("a", "\r\n", "b"));
    EXPECT_THAT(graphemes("xe\u0301🇩🇪"), ElementsAre("x", "e\u0301", "🇩🇪"));
}

TEST(Graphemes, theFirstFewKeepWholeClusters) {
    EXPECT_EQ(firstGraphemes("abc", 0), "");
    EXPECT_EQ(firstGraphemes("abc", 2), "ab");
    EXPECT_EQ(firstGraphemes("abc", 9), "abc");
    EXPECT_EQ(firstGraphemes("\r\nab", 2), "\r\na");
    EXPECT_EQ(firstGraphemes("e\u0301e\u0301e\u0301", 2), "e\u0301e\u0301");
}

std::vector<std::string> byIcu(const std::string& text) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> iterator(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    const auto source = icu::UnicodeString::fromUTF8(text);
    iterator->setText(source);
    std::vector<std::string> clusters;
    for (int begin = iterator->first(), end = iterator->next(); end != icu::BreakIterator::DONE;
         begin = end, end = iterator->next())
        source.tempSubStringBetween(begin, end).toUTF8String(clusters.emplace_back());
    return clusters;
}

TEST(Graphemes, agreeWithTheUnicodeRulesOnMixedText) {
    const std::vector<std::string> plain{"a", "\r", "\n", "é", "\u00AD", "©", "ÿ", "ˏ", " "};
    std::vector<std::string> mixed = plain;
    mixed.insert(mixed.end(), {"\u0301", "\u200D", "🇩", "👩", "👧", "\u1112", "\u1161", "\u11ab", "क",
                               "\u094D", "\u0E33", "ก", "日", "\uFE0F", "🏽"});
    tests::forSeeds(3000, [&](tests::Generated& generated) {
        const std::string text = generated.textOf(generated.oneIn(2) ? plain : mixed, 12);
        const std::vector<std::string> expected = byIcu(text);
        const auto found = graphemes(text);
        ASSERT_EQ(std::vector<std::string>(found.begin(), found.end()), expected);
        EXPECT_EQ(graphemeCount(text), expected.size());
        std::string first;
        for (std::size_t count = 0; count <= expected.size(); ++count) {
            EXPECT_EQ(firstGraphemes(text, count), first);
            if (count < expected.size())
                first += expected[count];
        }
    });
}

} // namespace
} // namespace brinmoor::text
