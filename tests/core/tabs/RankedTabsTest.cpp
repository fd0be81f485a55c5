#include "core/tabs/RankedTabs.h"

#include "core/search/LinkSearch.h"
#include "core/text/Characters.h"
#include "tests/core/Generated.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace brinmoor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

OpenBrowserTab tab(std::string title, std::string url = "https://x.test/",
                   std::string browser = "Chrome") {
    return {.browserID = "com.google.Chrome",
            .browserName = std::move(browser),
            .windowID = "1",
            .tabID = "2",
            .index = 1,
            .title = std::move(title),
            .url = std::move(url)};
}

std::vector<std::string> titlesOf(const std::vector<OpenBrowserTab>& tabs) {
    std::vector<std::string> titles;
    for (const OpenBrowserTab& each : tabs)
        titles.push_back(each.title);
    return titles;
}

std::vector<std::string> found(const std::vector<OpenBrowserTab>& tabs, std::string_view query) {
    return titlesOf(rankedTabs(tabs, query));
}

TEST(RankedTabs, aBlankQueryShowsAllByTitle) {
    const std::vector<OpenBrowserTab> tabs{tab("b"), tab("Äpfel"), tab("a10"), tab("A2"),
                                           tab("a1")};
    for (const char* blank : {"", "  ", "\n"})
        EXPECT_THAT(found(tabs, blank), ElementsAre("a1", "A2", "a10", "Äpfel", "b"));
    EXPECT_THAT(rankedTabs({}, ""), IsEmpty());
    EXPECT_THAT(rankedTabs({}, "a"), IsEmpty());
}

TEST(RankedTabs, theBestMatchStandsFirst) {
    const std::vector<OpenBrowserTab> tabs{tab("Elsewhere", "https://news.test/"),
                                           tab("All the news today"),
                                           tab("News today"),
                                           tab("Renewals"),
                                           tab("News"),
                                           tab("Other")};
    EXPECT_THAT(found(tabs, "news"),
                ElementsAre("News", "News today", "All the news today", "Elsewhere"));
}

TEST(RankedTabs, aBrowsersNameFindsItsTabsAndWeighsLittle) {
    const std::vector<OpenBrowserTab> tabs{tab("One"), tab("Two", "https://x.test/", "Brave"),
                                           tab("Brave new world")};
    EXPECT_THAT(found(tabs, "brave"), ElementsAre("Brave new world", "Two"));
    EXPECT_THAT(found(tabs, "brave tw"), ElementsAre("Two"));
}

TEST(RankedTabs, everyWordHasToBeFound) {
    const std::vector<OpenBrowserTab> tabs{tab("Red fox"), tab("Red", "https://fox.test/")};
    EXPECT_THAT(found(tabs, "red fox"), ElementsAre("Red fox", "Red"));
    EXPECT_THAT(found(tabs, "red wolf"), IsEmpty());
}

TEST(RankedTabs, noTabHasATag) {
    EXPECT_THAT(found({tab("#red")}, "#red"), IsEmpty());
}

TEST(RankedTabs, equalsKeepTheOrderOfTheReading) {
    std::vector<OpenBrowserTab> tabs;
    for (int place = 1; place <= 40; ++place) {
        tabs.push_back(tab("Same"));
        tabs.back().index = place;
    }
    for (const char* query : {"", "same"})
        EXPECT_EQ(rankedTabs(tabs, query), tabs);
}

TEST(RankedTabs, everyAnswerIsTheListOrderedByScoreTitleAndPlace) {
    const std::vector<std::string> pieces{"news ", "News", "1", "10", "2",
                                          "é",     "e",    "-", "字", " "};
    const std::vector<std::string> queries{"",       "news",   "1",      "e",
                                           "news 1", "chrome", "x.test", "字"};
    tests::forSeeds(1000, [&](tests::Generated& generated) {
        std::vector<OpenBrowserTab> tabs;
        for (std::size_t left = generated.below(30); left > 0; --left)
            tabs.push_back(tab(generated.textOf(pieces, 4), "https://x.test/",
                               generated.oneIn(2) ? "Chrome" : "Brave"));
        for (std::size_t i = 0; i < tabs.size(); ++i)
            tabs[i].index = static_cast<int>(i);
        const std::string query = generated.oneOf(queries);
        const auto scoreOf = [&](const OpenBrowserTab& each) {
            return LinkSearch::score(query, each.title, each.url, "", {}, each.browserName);
        };
        const auto ranked = rankedTabs(tabs, query);
        EXPECT_EQ(static_cast<std::ptrdiff_t>(ranked.size()),
                  std::ranges::count_if(
                      tabs, [&](const auto& each) { return scoreOf(each).has_value(); }));
        for (std::size_t i = 1; i < ranked.size(); ++i) {
            const auto above = scoreOf(ranked[i - 1]);
            const auto below = scoreOf(ranked[i]);
            const int titles = text::compareNames(ranked[i - 1].title, ranked[i].title);
            EXPECT_TRUE(above > below ||
                        (above == below &&
                         (titles < 0 || (titles == 0 && ranked[i - 1].index < ranked[i].index))));
        }
    });
}

} // namespace
} // namespace brinmoor
