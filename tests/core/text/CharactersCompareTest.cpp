#include "core/text/Characters.h"
#include "core/text/Fold.h"

#include <gtest/gtest.h>

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
