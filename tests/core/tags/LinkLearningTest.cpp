#include "core/tags/LinkLearning.h"

#include "core/library/Library.h"
#include "tests/core/Generated.h"
#include "tests/core/UserLocale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace brinmoor {
namespace {

using tests::Generated;

constexpr auto important = LinkImportance::important;
constexpr auto notNeeded = LinkImportance::notNeeded;

const ImportanceSuggestion prompt{
    std::nullopt, "Is this worth keeping? Label a few links to teach Brinmoor what matters."};
const ImportanceSuggestion mixed{std::nullopt,
                                 "Your choices on similar links are mixed. You decide."};

ImportanceSuggestion learned(LinkImportance importance, int count) {
    return {importance, "Based on " + std::to_string(count) +
                            " links you labeled with the same website or tags."};
}

SavedLink link(std::string url, std::vector<std::string> tags = {}) {
    static unsigned made = 0;
    ++made;
    SavedLink result;
    for (unsigned at = 0; at < 4; ++at)
        result.id.bytes[at] = static_cast<std::uint8_t>(made >> (8 * at));
    result.url = std::move(url);
    result.tags = std::move(tags);
    return result;
}

SavedLink labelled(std::string url, LinkImportance importance, std::vector<std::string> tags = {}) {
    SavedLink result = link(std::move(url), std::move(tags));
    result.importance = importance;
    return result;
}

/// Links of one site, so many important, so many not needed.
std::vector<SavedLink> votes(int forIt, int against) {
    std::vector<SavedLink> examples;
    for (int at = 0; at < forIt + against; ++at)
        examples.push_back(labelled("https://site.example/" + std::to_string(at),
                                    at < forIt ? important : notNeeded));
    return examples;
}

const SavedLink asked = link("https://site.example/new");

TEST(LinkLearning, theUsersOwnLabelComesFirst) {
    SavedLink marked = labelled("https://site.example/new", notNeeded);
    marked.isFavorite = true;
    marked.note = "note";
    EXPECT_EQ(LinkLearning::suggest(marked, votes(9, 0)),
              (ImportanceSuggestion{notNeeded, "You marked this link not needed."}));
    marked.importance = important;
    EXPECT_EQ(LinkLearning::suggest(marked, votes(0, 9)),
              (ImportanceSuggestion{important, "You marked this link important."}));
}

TEST(LinkLearning, thenTheFavoriteMarkThenTheNote) {
    SavedLink marked = asked;
    marked.isFavorite = true;
    marked.note = "note";
    EXPECT_EQ(LinkLearning::suggest(marked, votes(0, 9)),
              (ImportanceSuggestion{important, "You favorited this link."}));
    marked.isFavorite = false;
    EXPECT_EQ(LinkLearning::suggest(marked, votes(0, 9)),
              (ImportanceSuggestion{important, "You saved a note with this link."}));
}

TEST(LinkLearning, aNoteOfBlanksDoesntCount) {
    SavedLink marked = asked;
    for (const char* note : {"", " ", "\n\r\n\t", "\u00A0\u2029"}) {
        marked.note = note;
        EXPECT_EQ(LinkLearning::suggest(marked, {}), prompt);
        EXPECT_EQ(LinkLearning::suggest(marked, votes(0, 3)), learned(notNeeded, 3));
    }
}

TEST(LinkLearning, needs3LinksAndFourInFiveOfOneLabel) {
    struct Row {
        int forIt, against;
        ImportanceSuggestion expected;
    };
    const Row rows[]{{0, 0, prompt},
                     {1, 0, prompt},
                     {2, 0, prompt},
                     {1, 1, prompt},
                     {3, 0, learned(important, 3)},
                     {0, 3, learned(notNeeded, 3)},
                     {2, 1, mixed},
                     {1, 2, mixed},
                     {4, 0, learned(important, 4)},
                     {3, 1, mixed},
                     {2, 2, mixed},
                     {1, 3, mixed},
                     {0, 4, learned(notNeeded, 4)},
                     {4, 1, learned(important, 5)},
                     {1, 4, learned(notNeeded, 5)},
                     {7, 2, mixed},
                     {8, 2, learned(important, 10)},
                     {2, 8, learned(notNeeded, 10)},
                     {11, 3, mixed},
                     {12, 3, learned(important, 15)},
                     {799, 201, mixed},
                     {800, 200, learned(important, 1000)},
                     {200, 800, learned(notNeeded, 1000)},
                     {201, 799, mixed}};
    for (const Row& row : rows)
        EXPECT_EQ(LinkLearning::suggest(asked, votes(row.forIt, row.against)), row.expected)
            << row.forIt << " against " << row.against;
}

TEST(LinkLearning, aCopyOfTheLinkCantVoteForItself) {
    auto examples = votes(2, 0);
    SavedLink sameId = labelled("https://site.example/other", important);
    sameId.id = asked.id;
    examples.push_back(sameId);
    examples.push_back(labelled("HTTPS://SITE.example/new", important));
    EXPECT_EQ(LinkLearning::suggest(asked, examples), prompt);
    examples.push_back(labelled("https://site.example/New", important));
    EXPECT_EQ(LinkLearning::suggest(asked, examples), learned(important, 3));
}

TEST(LinkLearning, linksOfOneIdentityAreOneVoteThatOfTheFirst) {
    auto examples = votes(2, 0);
    examples.push_back(labelled("https://site.example/twice", important));
    examples.push_back(labelled("https://SITE.example/twice", notNeeded));
    EXPECT_EQ(LinkLearning::suggest(asked, examples), learned(important, 3));
    std::reverse(examples.begin(), examples.end());
    EXPECT_EQ(LinkLearning::suggest(asked, examples), mixed);
}

TEST(LinkLearning, theFirstOfAnIdentityIsTheFirstComparableOne) {
    auto examples = votes(2, 0);
    // Neither of these may vote, so the third speaks for the address.
    examples.push_back(link("https://site.example/twice"));
    SavedLink own = labelled("https://site.example/twice", notNeeded);
    own.id = asked.id;
    examples.push_back(own);
    examples.push_back(labelled("https://site.example/twice", important));
    EXPECT_EQ(LinkLearning::suggest(asked, examples), learned(important, 3));
}

TEST(LinkLearning, anExampleWithoutALabelIsIgnored) {
    std::vector<SavedLink> examples;
    for (int at = 0; at < 9; ++at) {
        examples.push_back(link("https://site.example/" + std::to_string(at)));
        examples.back().isFavorite = true;
        examples.back().note = "note";
    }
    EXPECT_EQ(LinkLearning::suggest(asked, examples), prompt);
}

/// What three important links with this address and these tags make of the asked one.
ImportanceSuggestion afterThree(const SavedLink& link, const std::string& host,
                                const std::vector<std::string>& tags) {
    std::vector<SavedLink> examples;
    for (int at = 0; at < 3; ++at)
        examples.push_back(labelled("https://" + host + "/" + std::to_string(at), important, tags));
    return LinkLearning::suggest(link, examples);
}

TEST(LinkLearning, theSiteAloneOrATagAloneIsEnough) {
    const SavedLink tagged = link("https://site.example/new", {"one", "Café"});
    EXPECT_EQ(afterThree(tagged, "site.example", {}), learned(important, 3));
    EXPECT_EQ(afterThree(tagged, "www.SITE.example", {"two"}), learned(important, 3));
    EXPECT_EQ(afterThree(tagged, "other.example", {"two", "ONE"}), learned(important, 3));
    EXPECT_EQ(afterThree(tagged, "other.example", {"cafe"}), learned(important, 3));
    EXPECT_EQ(afterThree(tagged, "other.example", {"caf", "two"}), prompt);
    EXPECT_EQ(afterThree(tagged, "other.example", {}), prompt);
    EXPECT_EQ(afterThree(link("https://site.example/new"), "other.example", {""}), prompt);
}

TEST(LinkLearning, sitesCompareByPlainLowerCaseAndNotByFolding) {
    // No host: the domain is the text itself.
    const SavedLink plain = link("Caf\u00E9");
    std::vector<SavedLink> examples{labelled("caf\u00E9", important),
                                    labelled("CAF\u00C9", important),
                                    labelled("cAF\u00C9", important)};
    EXPECT_EQ(LinkLearning::suggest(plain, examples), learned(important, 3));
    for (SavedLink& example : examples)
        example.url.replace(3, 2, "e");
    EXPECT_EQ(LinkLearning::suggest(plain, examples), prompt);
}

TEST(LinkLearning, tagsAreTakenAsTheyStand) {
    const SavedLink tagged = link("https://site.example/new", {"#tag"});
    EXPECT_EQ(afterThree(tagged, "other.example", {"tag"}), prompt);
    EXPECT_EQ(afterThree(tagged, "other.example", {"#TAG"}), learned(important, 3));
    EXPECT_EQ(afterThree(link("https://site.example/new", {""}), "other.example", {""}),
              learned(important, 3));
}

TEST(LinkLearning, tagsFoldUnderTheUsersLocale) {
    const SavedLink tagged = link("https://site.example/new", {"TITLE"});
    EXPECT_EQ(afterThree(tagged, "other.example", {"title"}), learned(important, 3));
    const tests::UserLocale turkish("tr_TR.UTF-8");
    EXPECT_EQ(afterThree(tagged, "other.example", {"title"}), prompt);
}

/// The rules in plain words, group by group.
ImportanceSuggestion plainly(const SavedLink& link, const std::vector<SavedLink>& examples) {
    std::map<std::string, LinkImportance> groups;
    for (const SavedLink& example : examples) {
        bool isComparable = text::folded(example.domain()) == text::folded(link.domain());
        for (const std::string& tag : example.tags)
            for (const std::string& own : link.tags)
                isComparable |= text::folded(tag) == text::folded(own);
        const std::string identity = Library::identity(example.url);
        if (isComparable && example.id != link.id && example.importance &&
            identity != Library::identity(link.url))
            groups.try_emplace(identity, *example.importance);
    }
    const auto all = static_cast<int>(groups.size());
    const auto forIt = static_cast<int>(
        std::ranges::count_if(groups, [](const auto& group) { return group.second == important; }));
    if (all < 3)
        return prompt;
    if (5 * std::max(forIt, all - forIt) < 4 * all)
        return mixed;
    return learned(forIt > all - forIt ? important : notNeeded, all);
}

TEST(LinkLearning, isWhatTheRulesSayInPlainWords) {
    const std::vector<std::string> hosts{"a.example", "www.a.example", "A.example", "b.example"};
    const std::vector<std::string> tags{"x", "X", "é", "e", "y", "z"};
    const auto anyLink = [&](Generated& generated) {
        SavedLink made =
            link("https://" + generated.oneOf(hosts) + "/" + std::to_string(generated.below(8)));
        for (std::size_t left = generated.below(3); left > 0; --left)
            made.tags.push_back(generated.oneOf(tags));
        return made;
    };
    std::map<std::string, int> seen;
    tests::forSeeds(5000, [&](Generated& generated) {
        const SavedLink link = anyLink(generated);
        std::vector<SavedLink> examples;
        const std::size_t doubt = 2 + generated.below(9);
        for (std::size_t left = generated.below(16); left > 0; --left) {
            examples.push_back(anyLink(generated));
            if (!generated.oneIn(6))
                examples.back().importance = generated.oneIn(doubt) ? notNeeded : important;
            if (generated.oneIn(20))
                examples.back().id = link.id;
        }
        const auto suggestion = LinkLearning::suggest(link, examples);
        EXPECT_EQ(suggestion, plainly(link, examples));
        ++seen[suggestion.reason.substr(0, 5)];
    });
    for (const char* begin : {"Is th", "Your ", "Based"})
        EXPECT_GT(seen[begin], 200) << begin;
}

} // namespace
} // namespace brinmoor
