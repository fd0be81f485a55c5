#include "core/tags/LinkAutoTagging.h"

#include "core/tags/TitleWords.h"
#include "core/text/Fold.h"
#include "tests/core/tags/GeneratedLinks.h"
#include "tests/core/tags/PlainTagging.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace brinmoor::LinkAutoTagging {
namespace {

using tests::Generated;
using tests::GeneratedLinks;
namespace Plain = tests::PlainTagging;

constexpr int all = 1000;

TEST(LinkAutoTaggingLaws, theFastOneGivesWhatThePlainOneGives) {
    std::size_t tagged = 0;
    tests::forSeeds(4000, [&](Generated& generated) {
        GeneratedLinks world(generated);
        const SavedLink link = world.link();
        const auto examples = world.links(generated.below(40));
        const auto expected = Plain::suggestions(link, examples, all);
        EXPECT_EQ(suggestions(link, examples, all), expected) << link.title;
        tagged += expected.empty() ? 0 : 1;
    });
    EXPECT_GT(tagged, 1000U) << "the generated worlds hold too little to compare";
}

TEST(LinkAutoTaggingLaws, theFastOneGivesWhatThePlainOneGivesForLargeLibraries) {
    tests::forSeeds(6, [&](Generated& generated) {
        GeneratedLinks world(generated);
        const auto examples = world.links(1500);
        for (int i = 0; i < 10; ++i) {
            const SavedLink link = world.link();
            EXPECT_EQ(suggestions(link, examples, all), Plain::suggestions(link, examples, all));
        }
    });
}

TEST(LinkAutoTaggingLaws, theSameHoldsInTurkish) {
    text::setUserLocale("tr_TR.UTF-8");
    tests::forSeeds(500, [&](Generated& generated) {
        GeneratedLinks world(generated);
        const SavedLink link = world.link();
        const auto examples = world.links(30);
        EXPECT_EQ(suggestions(link, examples, all), Plain::suggestions(link, examples, all));
    });
    text::setUserLocale("");
}

TEST(LinkAutoTaggingLaws, aSmallerLimitGivesTheBeginning) {
    tests::forSeeds(300, [&](Generated& generated) {
        GeneratedLinks world(generated);
        const SavedLink link = world.link();
        const auto examples = world.links(40);
        const auto whole = suggestions(link, examples, all);
        for (int limit = 0; limit < 5; ++limit) {
            auto expected = whole;
            expected.resize(std::min(whole.size(), static_cast<std::size_t>(limit)));
            EXPECT_EQ(suggestions(link, examples, limit), expected);
        }
    });
}

/// Copies of one page and spellings of one tag are told apart by their order, so neither is here.
TEST(LinkAutoTaggingLaws, theOrderOfTheExamplesDecidesNothing) {
    tests::forSeeds(300, [&](Generated& generated) {
        GeneratedLinks world(generated);
        auto examples = world.links(40);
        for (std::size_t i = 0; i < examples.size(); ++i) {
            examples[i].url += "/" + std::to_string(i);
            for (std::string& tag : examples[i].tags)
                tag = text::folded(tag);
        }
        const SavedLink link = world.link();
        const auto expected = suggestions(link, examples, all);
        std::shuffle(examples.begin(), examples.end(), generated.engine());
        EXPECT_EQ(suggestions(link, examples, all), expected);
    });
}

TEST(LinkAutoTaggingLaws, wordsCompareAsThePlainOnesDo) {
    const std::vector<std::string> letters{"a", "b", "s", "e", "d", "i", "n", "g", "日", "д"};
    tests::forSeeds(100000, [&](Generated& generated) {
        const std::string a = generated.textOf(letters, 9);
        std::string b = generated.textOf(letters, 9);
        if (generated.oneIn(2)) {
            b = a;
            b.insert(generated.below(2) * b.size(), generated.textOf(letters, 1));
        }
        if (a.empty() || b.empty())
            return;
        EXPECT_EQ(stem(a), Plain::stem(a));
        EXPECT_EQ(oneEditApart(a, b), Plain::oneEditApart(a, b)) << a << " " << b;
        for (const auto shortWords : {ShortWords::matchWhenEqual, ShortWords::neverMatch}) {
            const bool allow = shortWords == ShortWords::matchWhenEqual;
            EXPECT_EQ(fuzzyMatch(Word(a), Word(b), shortWords), Plain::fuzzyMatch(a, b, allow))
                << a << " " << b;
        }
    });
}

TEST(LinkAutoTaggingLaws, tokensBeginWhereTheyAreMetOneByOne) {
    const std::vector<std::string> pieces{"a", "z",  "09", "word",   " ",   "·",
                                          "-", "日", "д",  "@[`{/:", "\xFF"};
    tests::forSeeds(20000, [&](Generated& generated) {
        const std::string text = generated.textOf(pieces, 40);
        std::vector<std::string> met;
        std::vector<std::size_t> starts;
        findTokens(text, starts);
        for (std::size_t at : starts)
            met.emplace_back(nextToken(text, at));
        EXPECT_EQ(met, tokens(text)) << text;
    });
}

} // namespace
} // namespace brinmoor::LinkAutoTagging
