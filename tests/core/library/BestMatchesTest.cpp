#include "core/library/LinkDay.h"
#include "core/search/LinkSearch.h"
#include "tests/core/Generated.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace brinmoor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::Generated;

SavedLink link(std::string title, double seconds = 0) {
    SavedLink made;
    made.title = std::move(title);
    made.createdAt = {seconds};
    return made;
}

std::vector<std::string> bestTitles(const std::vector<SavedLink>& links, std::string_view query) {
    std::vector<std::string> result;
    for (const SavedLink* each : LinkDay::bestMatches(pointers(links), query).links)
        result.push_back(each->title);
    return result;
}

TEST(LinkDayBestMatches, isOneGroupOfTheDistantPast) {
    const LinkDay day = LinkDay::bestMatches({}, "query");
    EXPECT_EQ(day.id, distantPast);
    EXPECT_EQ(day.label, "Best matches");
    EXPECT_THAT(day.links, IsEmpty());
}

TEST(LinkDayBestMatches, beginsWithTheHighestScore) {
    SavedLink tagged = link("tagged", 9);
    tagged.tags = {"swift"};
    EXPECT_THAT(bestTitles({tagged, link("Swiftly", 8), link("on swift", 7), link("swift news", 6),
                            link("Swift", 5)},
                           "swift"),
                ElementsAre("Swift", "swift news", "Swiftly", "on swift", "tagged"));
}

TEST(LinkDayBestMatches, tiesGoNewestFirstAndThenInTheOrderGiven) {
    EXPECT_THAT(bestTitles({link("swift a", 1), link("swift b", 3), link("swift c", 2),
                            link("swift d", 3), link("swift e", 3)},
                           "swift"),
                ElementsAre("swift b", "swift d", "swift e", "swift c", "swift a"));
}

TEST(LinkDayBestMatches, whatMatchesByCollectionOrBrowserOnlyCountsAsNothing) {
    SavedLink collected = link("collected", 9);
    collected.collection = "swift";
    SavedLink noted = link("noted", 1);
    noted.note = "swift";
    EXPECT_THAT(bestTitles({collected, noted}, "swift"), ElementsAre("noted", "collected"));
    // Of two terms one is found in the collection alone: no score at all, however good the other.
    collected.title = "news";
    noted.note = "swift news";
    EXPECT_THAT(bestTitles({collected, noted}, "news swift"), ElementsAre("noted", "news"));
}

TEST(LinkDayBestMatches, losesNoLinkAndKeepsTheOrderOfTheScores) {
    const std::vector<std::string> pieces{"a", "b", "A", " ", "#", "é"};
    tests::forSeeds(500, [&](Generated& generated) {
        std::vector<SavedLink> links;
        for (std::size_t left = generated.below(40); left > 0; --left) {
            links.push_back(link(generated.textOf(pieces, 5)));
            links.back().createdAt = {static_cast<double>(generated.below(3))};
            links.back().collection = std::to_string(links.size());
        }
        const std::string query = generated.textOf(pieces, 3);
        const LinkPointers given = pointers(links);
        LinkPointers expected = given;
        const auto score = [&](const SavedLink& each) {
            return LinkSearch::score(query, each.title, each.url, each.note, each.tags, "")
                .value_or(0);
        };
        std::ranges::stable_sort(expected, [&](const SavedLink* a, const SavedLink* b) {
            if (score(*a) != score(*b))
                return score(*a) > score(*b);
            return a->createdAt > b->createdAt;
        });
        EXPECT_EQ(LinkDay::bestMatches(given, query).links, expected) << query;
    });
}

} // namespace
} // namespace brinmoor
