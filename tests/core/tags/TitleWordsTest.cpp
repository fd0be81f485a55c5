#include "core/tags/TitleWords.h"

#include "core/search/LinkSearch.h"

#include <gmock/gmock.h>

namespace brinmoor::LinkAutoTagging {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<Word> words(const std::vector<std::string>& texts) {
    return {texts.begin(), texts.end()};
}

SavedLink titled(std::string url, std::string title) {
    return {std::move(url), std::move(title), "Chrome", "Inbox", Uuid{}, Instant{}};
}

TEST(TitleWords, tokensAreRunsOfLettersAndNumbers) {
    EXPECT_THAT(tokens(LinkSearch::folded("R&D / web-dev")), ElementsAre("r", "d", "web", "dev"));
    EXPECT_THAT(tokens(LinkSearch::folded("Café 2024!")), ElementsAre("cafe", "2024"));
    EXPECT_THAT(tokens("++"), IsEmpty());
    EXPECT_THAT(tokens(""), IsEmpty());
}

struct Stemmed {
    std::string_view word;
    std::string_view stem;
};

TEST(TitleWords, stemsLoseOneCommonEnding) {
    for (const auto& [word, expected] : {Stemmed{"boxes", "boxe"},
                                         {"glass", "glas"},
                                         {"running", "run"},
                                         {"hopped", "hop"},
                                         {"pressed", "pres"},
                                         {"falling", "fal"},
                                         {"stories", "story"},
                                         {"ties", "ties"},
                                         {"bring", "bring"},
                                         {"loved", "loved"},
                                         {"horses", "hors"},
                                         {"tags", "tags"},
                                         {"2024s", "2024"},
                                         {"word", "word"},
                                         {"日本語のs", "日本語の"}})
        EXPECT_EQ(stem(word), expected) << word;
}

TEST(TitleWords, oneEditIsOneCharacterMoreLessOrOtherOrASwap) {
    for (const auto& [a, b] : {Stemmed{"recipe", "recpe"},
                               {"recpe", "recipe"},
                               {"recipe", "recite"},
                               {"recipe", "reicpe"},
                               {"recipe", "recipes"},
                               {"дома", "дума"}})
        EXPECT_TRUE(oneEditApart(a, b)) << a << " " << b;
    for (const auto& [a, b] : {Stemmed{"recipe", "recipe"},
                               {"recipe", "rceieps"},
                               {"recipe", "recipess"},
                               {"abcd", "badc"},
                               {"abcd", "cbad"}})
        EXPECT_FALSE(oneEditApart(a, b)) << a << " " << b;
}

TEST(TitleWords, aShortWordMatchesOnlyItselfAndOnlyIfAllowed) {
    EXPECT_TRUE(fuzzyMatch(Word("ai"), Word("ai"), ShortWords::matchWhenEqual));
    EXPECT_FALSE(fuzzyMatch(Word("ai"), Word("ai"), ShortWords::neverMatch));
    EXPECT_FALSE(fuzzyMatch(Word("ai"), Word("aid"), ShortWords::matchWhenEqual));
    EXPECT_TRUE(fuzzyMatch(Word("deep"), Word("deep"), ShortWords::neverMatch));
}

TEST(TitleWords, longerWordsMatchByStemOrByOneEditWithTheSameBeginning) {
    EXPECT_TRUE(fuzzyMatch(Word("machines"), Word("machine"), ShortWords::neverMatch));
    EXPECT_TRUE(fuzzyMatch(Word("design"), Word("desing"), ShortWords::neverMatch));
    EXPECT_FALSE(fuzzyMatch(Word("bread"), Word("tread"), ShortWords::neverMatch));
    EXPECT_FALSE(fuzzyMatch(Word("tree"), Word("trie"), ShortWords::neverMatch));
}

TEST(TitleWords, aPhraseStandsSideBySide) {
    const auto phrase = words({"machine", "learning"});
    EXPECT_TRUE(containsPhrase(words({"machine", "learning", "notes"}), phrase));
    EXPECT_TRUE(containsPhrase(words({"my", "machines", "learning"}), phrase));
    EXPECT_FALSE(containsPhrase(words({"learning", "machines"}), phrase));
    EXPECT_FALSE(containsPhrase(words({"machine", "of", "learning"}), phrase));
    EXPECT_FALSE(containsPhrase(words({"machine"}), phrase));
    EXPECT_FALSE(containsPhrase(words({"machine"}), {}));
}

TEST(TitleWords, shortWordsNumbersAndStopWordsAreNotLearned) {
    for (const std::string_view word : {"web", "2024", "about", "your", "т", "日本語"})
        EXPECT_FALSE(isLearnable(word)) << word;
    for (const std::string_view word : {"webs", "2024a", "abou", "дома"})
        EXPECT_TRUE(isLearnable(word)) << word;
}

TEST(TitleWords, aTitleThatOnlyNamesItsSiteHasNoWords) {
    const std::string url = "https://www.Example.com/page";
    EXPECT_THAT(usableTitleTokens(titled(url, "example.com")), IsEmpty());
    EXPECT_THAT(usableTitleTokens(titled(url, " Example.com · Home ")), IsEmpty());
    EXPECT_THAT(usableTitleTokens(titled(url, "(2) Instagram")), IsEmpty());
    EXPECT_THAT(usableTitleTokens(titled(url, "About example.com · Home")),
                ElementsAre("about", "example", "com", "home"));
    EXPECT_THAT(usableTitleTokens(titled(url, "example.com: news")),
                ElementsAre("example", "com", "news"));
}

TEST(TitleWords, onlyTheCleanTitleCounts) {
    const std::string longTitle = std::string(178, 'a') + " bcd";
    EXPECT_THAT(usableTitleTokens(titled("https://h/", longTitle)),
                ElementsAre(std::string(178, 'a'), "b"));
}

} // namespace
} // namespace brinmoor::LinkAutoTagging
