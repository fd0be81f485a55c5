#include "core/text/Characters.h"
#include "core/text/Fold.h"
#include "tests/core/Generated.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

namespace brinmoor::text {
namespace {

class UserLocale : public testing::Test {
protected:
    void TearDown() override { setUserLocale(""); }
};

using CompareNames = UserLocale;
using ContainsIgnoringCase = UserLocale;

TEST_F(CompareNames, numbersCountByValue) {
    EXPECT_LT(compareNames("tag2", "tag10"), 0);
    EXPECT_GT(compareNames("tag10", "tag9"), 0);
    EXPECT_EQ(compareNames("tag2", "tag2"), 0);
}

TEST_F(CompareNames, letterCaseAndAccentsCountAfterTheLetters) {
    EXPECT_LT(compareNames("apple", "Banana"), 0);
    EXPECT_LT(compareNames("cafe", "café"), 0);
    EXPECT_LT(compareNames("café", "cafeteria"), 0);
    EXPECT_NE(compareNames("Mac", "mac"), 0);
}

TEST_F(CompareNames, followsTheUsersLocale) {
    EXPECT_LT(compareNames("ö", "z"), 0);
    setUserLocale("sv_SE.UTF-8");
    EXPECT_GT(compareNames("ö", "z"), 0);
}

TEST_F(CompareNames, aLocaleThatStandsForNoneIsTheRoot) {
    for (const char* locale : {"C", "POSIX", "C.UTF-8", "xx_unknown"}) {
        setUserLocale(locale);
        EXPECT_LT(compareNames("a", "B"), 0) << locale;
        EXPECT_LT(compareNames("tag2", "tag10"), 0) << locale;
    }
}

using OrderOfNames = UserLocale;

TEST_F(OrderOfNames, givesThePlacesOfTheNames) {
    EXPECT_TRUE(orderOfNames({}).empty());
    const std::vector<std::string_view> names{"tag10", "café", "Tag2", "cafe", "tag2", "cafe"};
    EXPECT_EQ(orderOfNames(names), (std::vector<std::size_t>{3, 5, 1, 4, 2, 0}));
}

TEST_F(OrderOfNames, isThatOfTheComparison) {
    const std::vector<std::string> pieces{"a",       "A",          "b",    "1", "2", "10", "é",
                                          "e\u0301", "-",          " ",    "ß", "ö", "z",  "日",
                                          "\u200D",  "\U0001F600", "\xC3", "i", "ı", "İ",  ""};
    for (const char* locale : {"", "sv_SE.UTF-8", "tr_TR.UTF-8", "ja_JP.UTF-8", "zh_CN.UTF-8"}) {
        setUserLocale(locale);
        tests::forSeeds(500, [&](tests::Generated& generated) {
            std::vector<std::string> names(generated.below(30));
            for (std::string& name : names)
                name = generated.textOf(pieces, generated.oneIn(9) ? 80 : 5);
            if (!names.empty() && generated.oneIn(3))
                names.back() += std::string("\0x", 2);
            const std::vector<std::string_view> views(names.begin(), names.end());
            std::vector<std::size_t> expected(names.size());
            std::iota(expected.begin(), expected.end(), std::size_t{0});
            std::ranges::stable_sort(expected, [&](std::size_t a, std::size_t b) {
                return compareNames(views[a], views[b]) < 0;
            });
            EXPECT_EQ(orderOfNames(views), expected) << locale;
        });
    }
}

TEST_F(ContainsIgnoringCase, findsAPartAnywhere) {
    EXPECT_TRUE(containsIgnoringCase("Web Development", "dev"));
    EXPECT_TRUE(containsIgnoringCase("web", "WEB"));
    EXPECT_TRUE(containsIgnoringCase("anything", ""));
    EXPECT_FALSE(containsIgnoringCase("web", "webs"));
    EXPECT_FALSE(containsIgnoringCase("", "a"));
}

TEST_F(ContainsIgnoringCase, accentsAreLettersOfTheirOwn) {
    EXPECT_FALSE(containsIgnoringCase("café", "cafe"));
    EXPECT_FALSE(containsIgnoringCase("cafe\u0301", "cafe"));
    EXPECT_FALSE(containsIgnoringCase("cafe", "café"));
    EXPECT_TRUE(containsIgnoringCase("CAFÉ noir", "cafe\u0301"));
    EXPECT_TRUE(containsIgnoringCase("cafe\u0301 cafe", "cafe"));
}

TEST_F(ContainsIgnoringCase, caseIsThatOfEveryScript) {
    EXPECT_TRUE(containsIgnoringCase("ΣΊΣΥΦΟΣ", "σίσυφος"));
    EXPECT_TRUE(containsIgnoringCase("Straße", "STRASSE"));
    EXPECT_TRUE(containsIgnoringCase("ДОМ", "дом"));
}

TEST_F(ContainsIgnoringCase, dottedAndDotlessAreTwoLettersInTurkish) {
    EXPECT_TRUE(containsIgnoringCase("IDEA", "idea"));
    setUserLocale("tr_TR.UTF-8");
    EXPECT_FALSE(containsIgnoringCase("IDEA", "idea"));
    EXPECT_TRUE(containsIgnoringCase("IDEA", "ıdea"));
    EXPECT_TRUE(containsIgnoringCase("İDEA", "idea"));
}

} // namespace
} // namespace brinmoor::text
