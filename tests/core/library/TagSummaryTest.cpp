#include "core/library/TagSummary.h"

#include "core/text/Characters.h"
#include "tests/core/Generated.h"
#include "tests/core/UserLocale.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <set>

namespace brinmoor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::Generated;
using tests::UserLocale;

std::vector<SavedLink> linksTagged(const std::vector<std::vector<std::string>>& tags) {
    std::vector<SavedLink> links;
    for (const auto& list : tags)
        links.emplace_back().tags = list;
    return links;
}

std::vector<TagSummary> summaries(const std::vector<std::vector<std::string>>& tags) {
    return TagSummary::summarize(linksTagged(tags));
}

std::vector<std::string> names(const std::vector<TagSummary>& list) {
    std::vector<std::string> result;
    for (const TagSummary& each : list)
        result.push_back(each.name);
    return result;
}

TEST(TagSummarySummarize, ofNoTagsIsEmpty) {
    EXPECT_THAT(summaries({}), IsEmpty());
    EXPECT_THAT(summaries({{}, {}}), IsEmpty());
}

TEST(TagSummarySummarize, countsUnderTheSpellingMetFirst) {
    EXPECT_THAT(summaries({{"Swift"}, {"swift"}}), ElementsAre(TagSummary{"Swift", 2}));
    EXPECT_THAT(summaries({{"b", "cafe"}, {"CAFÉ"}, {"Café"}}),
                ElementsAre(TagSummary{"b", 1}, TagSummary{"cafe", 3}));
}

TEST(TagSummarySummarize, twoSpellingsInOneLinkCountTwice) {
    EXPECT_THAT(summaries({{"café", "cafe"}}), ElementsAre(TagSummary{"café", 2}));
    // In another letter case it is one tag of the link.
    EXPECT_THAT(summaries({{"cafe", "CAFE"}}), ElementsAre(TagSummary{"cafe", 1}));
}

TEST(TagSummarySummarize, takesTheTagsAsTheRuleOfTagsHasThem) {
    const std::string fifty(50, 'x');
    EXPECT_THAT(summaries({{" #a# ", "#", " ", "A"}, {fifty + "y", fifty + "z"}}),
                ElementsAre(TagSummary{"a", 1}, TagSummary{fifty, 1}));
    std::string clusters;
    for (int count = 0; count < 51; ++count)
        clusters += "e\u0301";
    const auto cut = summaries({{clusters}});
    ASSERT_EQ(cut.size(), 1U);
    EXPECT_EQ(text::graphemeCount(cut[0].name), 50U);
}

TEST(TagSummarySummarize, ordersByNameWithNumbersByTheirValue) {
    EXPECT_THAT(names(summaries({{"a10", "B", "a2", "á1", "b", "Zebra", "ändern"}})),
                ElementsAre("á1", "a2", "a10", "ändern", "B", "Zebra"));
}

TEST(TagSummarySummarize, followsTheUsersLocale) {
    const std::vector<std::vector<std::string>> tags{{"zoo", "ärt", "arm"}};
    EXPECT_THAT(names(summaries(tags)), ElementsAre("arm", "ärt", "zoo"));
    const UserLocale swedish("sv_SE.UTF-8");
    EXPECT_THAT(names(summaries(tags)), ElementsAre("arm", "zoo", "ärt"));
}

TEST(TagSummarySummarize, knowsDottedAndDotlessIInTurkish) {
    const std::vector<std::vector<std::string>> tags{{"KIRMIZI"}, {"kırmızı"}, {"kirmizi"}};
    EXPECT_THAT(names(summaries(tags)), ElementsAre("KIRMIZI", "kırmızı"));
    const UserLocale turkish("tr_TR.UTF-8");
    EXPECT_THAT(summaries(tags), ElementsAre(TagSummary{"KIRMIZI", 2}, TagSummary{"kirmizi", 1}));
}

TEST(TagSummarySummarize, tagsOfZeroBytesBadBytesAndMarksAreTagsLikeOthers) {
    using namespace std::string_literals;
    EXPECT_THAT(summaries({{"a\0b"s, "a"s, "a\0c"s}, {"A\0B"s}}),
                testing::UnorderedElementsAre(TagSummary{"a\0b"s, 2}, TagSummary{"a"s, 1},
                                              TagSummary{"a\0c"s, 1}));
    EXPECT_THAT(summaries({{"\xFF"s}, {"\xFE"s}}), ElementsAre(TagSummary{"\xFF"s, 2}));
    EXPECT_THAT(summaries({{"\u0301"}, {"\u0308"}}), ElementsAre(TagSummary{"\u0301", 2}));
}

TEST(TagSummarySorted, byUsesThenByName) {
    const std::vector<TagSummary> list{{"b", 1}, {"a10", 2}, {"c", 3}, {"a9", 2}, {"a", 1}};
    EXPECT_THAT(names(TagSummary::sorted(list, TagSummarySortOrder::mostLinks)),
                ElementsAre("c", "a9", "a10", "a", "b"));
    EXPECT_THAT(names(TagSummary::sorted(list, TagSummarySortOrder::alphabetical)),
                ElementsAre("a", "a9", "a10", "b", "c"));
    EXPECT_THAT(TagSummary::sorted({}, TagSummarySortOrder::mostLinks), IsEmpty());
}

TEST(TagSummarySorted, whatTiesKeepsItsOrder) {
    // A zero-width joiner has no place in an alphabet.
    const std::vector<TagSummary> list{{"x\u200D", 1}, {"x", 1}, {"\u200Dx", 1}};
    for (const auto order : {TagSummarySortOrder::alphabetical, TagSummarySortOrder::mostLinks}) {
        EXPECT_EQ(TagSummary::sorted(list, order), list);
        EXPECT_THAT(names(TagSummary::sorted({list[2], list[1], list[0]}, order)),
                    ElementsAre(list[2].name, list[1].name, list[0].name));
    }
}

TEST(TagSummarySortOrderStored, isReadBackAndNothingElse) {
    EXPECT_EQ(storedValue(TagSummarySortOrder::alphabetical), "alphabetical");
    EXPECT_EQ(storedValue(TagSummarySortOrder::mostLinks), "mostLinks");
    EXPECT_EQ(tagSummarySortOrder("alphabetical"), TagSummarySortOrder::alphabetical);
    EXPECT_EQ(tagSummarySortOrder("mostLinks"), TagSummarySortOrder::mostLinks);
    for (const char* other : {"", "mostlinks", "Alphabetical", "alphabetical "})
        EXPECT_EQ(tagSummarySortOrder(other), std::nullopt);
}

TEST(TagSummaryId, isTheFoldedName) {
    EXPECT_EQ((TagSummary{"Café", 1}.id()), "cafe");
}

const std::vector<std::string> pieces{"a", "A", "b",  "1", "2", "10", "é", "É",      "e",
                                      "-", " ", "\t", "#", "ß", "日", "İ", "\u200D", "\xC3"};

class TagSummaryLaw : public ::testing::TestWithParam<const char*> {
protected:
    UserLocale locale_{GetParam()};
};

TEST_P(TagSummaryLaw, everyUseIsCountedUnderOneEntryInOrder) {
    tests::forSeeds(2000, [](Generated& generated) {
        std::vector<SavedLink> links(generated.below(12));
        std::map<std::string, std::size_t> uses;
        std::set<std::string> spellings;
        for (SavedLink& link : links) {
            for (std::size_t left = generated.below(5); left > 0; --left)
                link.tags.push_back(generated.textOf(pieces, 3));
            for (const std::string& tag : SavedLink::normalizedTags(link.tags)) {
                ++uses[text::folded(tag)];
                spellings.insert(tag);
            }
        }
        const auto summary = TagSummary::summarize(links);
        ASSERT_EQ(summary.size(), uses.size());
        for (const TagSummary& each : summary) {
            EXPECT_EQ(each.count, uses[each.id()]) << each.name;
            EXPECT_TRUE(spellings.contains(each.name)) << each.name;
        }
        EXPECT_TRUE(std::ranges::is_sorted(summary, [](const auto& a, const auto& b) {
            return text::compareNames(a.name, b.name) < 0;
        }));
    });
}

/// Sorting by the comparison itself, one pair at a time.
std::vector<TagSummary> plainlySorted(std::vector<TagSummary> list, TagSummarySortOrder order) {
    std::ranges::stable_sort(list, [order](const TagSummary& a, const TagSummary& b) {
        if (order == TagSummarySortOrder::mostLinks && a.count != b.count)
            return a.count > b.count;
        return text::compareNames(a.name, b.name) < 0;
    });
    return list;
}

TEST_P(TagSummaryLaw, sortedIsTheOrderOfTheComparison) {
    tests::forSeeds(2000, [](Generated& generated) {
        std::vector<TagSummary> list(generated.below(40));
        for (TagSummary& each : list)
            each = {generated.textOf(pieces, 4), generated.below(3)};
        for (const auto order : {TagSummarySortOrder::alphabetical, TagSummarySortOrder::mostLinks})
            EXPECT_EQ(TagSummary::sorted(list, order), plainlySorted(list, order));
    });
}

INSTANTIATE_TEST_SUITE_P(Locales, TagSummaryLaw,
                         ::testing::Values("", "en_US.UTF-8", "tr_TR.UTF-8", "sv_SE.UTF-8",
                                           "ja_JP.UTF-8"));

} // namespace
} // namespace brinmoor
