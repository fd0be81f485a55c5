#include "core/tags/LinkAutoTagging.h"

#include "core/text/Fold.h"

#include <gmock/gmock.h>

namespace brinmoor::LinkAutoTagging {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tags = std::vector<std::string>;

SavedLink page(std::string url, std::string title, Tags tags = {}) {
    SavedLink link(std::move(url), std::move(title), "Chrome", "Inbox", Uuid{}, Instant{});
    link.tags = std::move(tags);
    return link;
}

/// Examples on sites of their own, each with one of the tag lists.
std::vector<SavedLink> examplesTitled(const std::string& title, const std::vector<Tags>& tagLists) {
    std::vector<SavedLink> examples;
    for (const Tags& tags : tagLists)
        examples.push_back(
            page("https://s" + std::to_string(examples.size()) + ".com/", title, tags));
    return examples;
}

/// Examples of one site, whose titles share no word.
std::vector<SavedLink> examplesOfSite(const std::vector<Tags>& tagLists) {
    std::vector<SavedLink> examples;
    for (const Tags& tags : tagLists) {
        const auto number = std::to_string(examples.size());
        examples.push_back(page("https://site.com/" + number, number, tags));
    }
    return examples;
}

const SavedLink siteLink = page("https://www.site.com/new", "Instagram");

TEST(LinkAutoTagging, aLimitBelowOneGivesNothing) {
    const auto examples = examplesTitled("x", {{"rust"}});
    EXPECT_THAT(suggestions(page("https://a.com/", "Rust"), examples, 0), IsEmpty());
    EXPECT_THAT(suggestions(page("https://a.com/", "Rust"), examples, -3), IsEmpty());
    EXPECT_THAT(suggestions(page("https://a.com/", "Rust"), examples, 1), ElementsAre("rust"));
}

TEST(LinkAutoTagging, noTaggedExampleGivesNothing) {
    EXPECT_THAT(suggestions(page("https://a.com/", "Rust notes"), {}, 3), IsEmpty());
    EXPECT_THAT(suggestions(page("https://a.com/", "Rust notes"),
                            examplesTitled("Rust notes", {{}, {"#", " "}}), 3),
                IsEmpty());
}

TEST(LinkAutoTagging, thePageItselfIsNoExample) {
    const SavedLink link = page("https://a.com/", "Rust");
    for (const char* same : {"https://a.com/", "HTTPS://A.COM/", "https://a.com"})
        EXPECT_THAT(suggestions(link, {page(same, "t", {"rust"})}, 3), IsEmpty()) << same;
    EXPECT_THAT(suggestions(link, {page("https://a.com/b", "t", {"rust"})}, 3),
                ElementsAre("rust"));
}

TEST(LinkAutoTagging, theFirstOfTwoCopiesOfAPageCounts) {
    const SavedLink link = page("https://a.com/", "Rust and bread");
    EXPECT_THAT(
        suggestions(link,
                    {page("https://b.com", "t", {"bread"}), page("https://B.com/", "t", {"rust"})},
                    3),
        ElementsAre("bread"));
    EXPECT_THAT(
        suggestions(link, {page("https://b.com", "t"), page("https://b.com/", "t", {"rust"})}, 3),
        IsEmpty());
}

TEST(LinkAutoTagging, aShortTagMatchesTheSameShortWord) {
    const SavedLink link = page("https://a.com/", "AI today");
    EXPECT_THAT(suggestions(link, examplesTitled("z", {{"ai"}}), 3), ElementsAre("ai"));
    EXPECT_THAT(suggestions(link, examplesTitled("ai", {{"other"}, {"other"}}), 3), IsEmpty());
}

TEST(LinkAutoTagging, aTagOfTwoWordsNeedsBothSideBySide) {
    const auto examples = examplesTitled("z", {{"machine learning"}});
    const auto given = [&](const char* title) {
        return suggestions(page("https://a.com/", title), examples, 3);
    };
    EXPECT_THAT(given("learning machines"), IsEmpty());
    EXPECT_THAT(given("machine learning notes"), ElementsAre("machine learning"));
    EXPECT_THAT(given("machines learning"), ElementsAre("machine learning"));
}

TEST(LinkAutoTagging, aTagWithoutWordsCanWinBySiteAndByLearning) {
    EXPECT_THAT(suggestions(page("https://a.com/", "++"), examplesTitled("z", {{"++"}}), 3),
                IsEmpty());
    EXPECT_THAT(suggestions(siteLink, examplesOfSite({{"++"}, {"++"}, {"++"}}), 3),
                ElementsAre("++"));
    EXPECT_THAT(
        suggestions(page("https://a.com/", "Clang"), examplesTitled("clang", {{"++"}, {"++"}}), 3),
        ElementsAre("++"));
}

TEST(LinkAutoTagging, twoExamplesOfASiteAreTooFew) {
    EXPECT_THAT(suggestions(siteLink, examplesOfSite({{"a"}, {"a"}}), 3), IsEmpty());
}

TEST(LinkAutoTagging, aSiteNeedsHalfItsLinksAndTwoOfThem) {
    EXPECT_THAT(suggestions(siteLink, examplesOfSite({{"a"}, {"a"}, {"b"}}), 3), ElementsAre("a"));
    EXPECT_THAT(suggestions(siteLink, examplesOfSite({{"a"}, {"a"}, {"b"}, {"c"}}), 3),
                ElementsAre("a"));
    EXPECT_THAT(suggestions(siteLink, examplesOfSite({{"a"}, {"a"}, {"b"}, {"c"}, {"d"}}), 3),
                IsEmpty());
}

/// The points of a site's share stand between those of two learned words.
TEST(LinkAutoTagging, theShareOfASiteIsRoundedToWholePoints) {
    // "share" has 2 of 3 on the site: 5333. "word" has 8 of 9 links with "compiler": 5333 too, and
    // more support.
    auto examples = examplesOfSite({{"share"}, {"share"}, {"none"}});
    for (const SavedLink& example : examplesTitled("compiler", {{"word"},
                                                                {"word"},
                                                                {"word"},
                                                                {"word"},
                                                                {"word"},
                                                                {"word"},
                                                                {"word"},
                                                                {"word"},
                                                                {"else"}}))
        examples.push_back(example);
    EXPECT_THAT(suggestions(page("https://site.com/n", "Compilers"), examples, 3),
                ElementsAre("word", "share"));
}

TEST(LinkAutoTagging, aLearnedWordNeedsSixTenthsOfItsLinks) {
    const SavedLink link = page("https://a.com/", "Compilers");
    EXPECT_THAT(
        suggestions(link, examplesTitled("compiler", {{"x1"}, {"x1"}, {"x1"}, {"y"}, {"z"}}), 3),
        ElementsAre("x1"));
    EXPECT_THAT(suggestions(link, examplesTitled("compiler", {{"x1"}, {"x1"}, {"y"}, {"z"}}), 3),
                IsEmpty());
    EXPECT_THAT(suggestions(link, examplesTitled("compiler", {{"x1"}}), 3), IsEmpty());
}

TEST(LinkAutoTagging, aTagGetsLearnedPointsOnceFromItsBestWord) {
    // "both" is spoken for by two words, "title" by its own name: the title wins all the same.
    auto examples = examplesTitled("compiler optimizer", {{"both"}, {"both"}});
    examples.push_back(page("https://t.com/", "z", {"title"}));
    EXPECT_THAT(suggestions(page("https://a.com/", "Title compiler optimizer"), examples, 3),
                ElementsAre("title", "both"));
}

TEST(LinkAutoTagging, spellingsThatFoldAlikeCountTwiceForTheSiteAndOnceForAWord) {
    // On the site: 2 occurrences in 3 links, from one link alone.
    EXPECT_THAT(suggestions(siteLink, examplesOfSite({{"cafe", "café"}, {"b"}, {"c"}}), 3),
                ElementsAre("cafe"));
    EXPECT_THAT(suggestions(page("https://a.com/", "Compilers"),
                            examplesTitled("compiler", {{"cafe", "café"}}), 3),
                IsEmpty());
}

TEST(LinkAutoTagging, aTitleThatNamesItsSiteTeachesNothing) {
    std::vector<SavedLink> examples;
    for (const char* url : {"https://compiler.org/1", "https://compiler.org/2"})
        examples.push_back(page(url, "compiler.org · News", {"x1"}));
    EXPECT_THAT(suggestions(page("https://a.com/", "Compiler news"), examples, 3), IsEmpty());
    for (SavedLink& example : examples)
        example.title = "News of compiler.org · Home";
    EXPECT_THAT(suggestions(page("https://a.com/", "Compiler news"), examples, 3),
                ElementsAre("x1"));
}

TEST(LinkAutoTagging, aNumberIsNeverLearned) {
    for (const char* number : {"2024", "2024s"})
        EXPECT_THAT(suggestions(page("https://a.com/", number),
                                examplesTitled(number, {{"x1"}, {"x1"}}), 3),
                    IsEmpty());
}

TEST(LinkAutoTagging, equalCandidatesStandByNameWithNumbersByValue) {
    EXPECT_THAT(suggestions(page("https://a.com/", "Compilers"),
                            examplesTitled("compiler", {{"tag10", "tag2"}, {"tag10", "tag2"}}), 3),
                ElementsAre("tag2", "tag10"));
}

TEST(LinkAutoTagging, suggestionsFollowTheLetterCaseOfTheTags) {
    const SavedLink link = page("https://a.com/", "rust and zig");
    EXPECT_THAT(suggestions(link, examplesTitled("q", {{"rust"}, {"Web", "Design"}}), 3),
                ElementsAre("Rust"));
    EXPECT_THAT(suggestions(link, examplesTitled("q", {{"Rust"}, {"web", "design"}}), 3),
                ElementsAre("rust"));
    EXPECT_THAT(suggestions(link, examplesTitled("q", {{"RUST"}, {"web"}}), 3),
                ElementsAre("RUST"));
}

/// In Turkish "AI" and "ai" are one tag by their lower case and two by their folds.
TEST(LinkAutoTagging, aSpellingThatItsLinkDropsNamesNoTag) {
    text::setUserLocale("tr_TR.UTF-8");
    const SavedLink link = page("https://a.com/", "ai");
    EXPECT_THAT(suggestions(link, examplesTitled("q", {{"AI", "ai"}}), 3), IsEmpty());
    EXPECT_THAT(suggestions(link, examplesTitled("q", {{"AI", "ai"}, {"2", "Ai"}}), 3),
                ElementsAre("Ai"));
    text::setUserLocale("");
}

TEST(LinkAutoTagging, applyingPutsTheLinksOwnTagsFirstAndDropsRepeats) {
    const SavedLink link = page("https://a.com/", "Rust and bread", {"Mine", "RUST"});
    const auto examples = examplesTitled("q", {{"rust", "bread"}});
    SavedLink expected = link;
    expected.tags = {"Mine", "RUST", "bread"};
    EXPECT_EQ(applyingSuggestions(link, examples, 3), expected);
}

TEST(LinkAutoTagging, aRepeatUsesUpItsPlaceInTheLimit) {
    const SavedLink link = page("https://a.com/", "Rust and bread", {"bread"});
    const SavedLink tagged = applyingSuggestions(link, examplesTitled("q", {{"rust", "bread"}}), 1);
    EXPECT_THAT(tagged.tags, ElementsAre("bread"));
}

} // namespace
} // namespace brinmoor::LinkAutoTagging
