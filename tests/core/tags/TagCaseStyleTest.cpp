#include "core/tags/TagCaseStyle.h"

#include <gtest/gtest.h>

namespace brinmoor {
namespace {

using enum TagCaseStyle;

struct Habit {
    std::string_view input;
    TagCaseStyle style;
};

TEST(TagCaseStyle, theFirstCasedCharacterDecides) {
    for (const auto& [input, style] : {Habit{"iOS", lowercase},
                                       {"Mac", leadingUppercase},
                                       {"MAC", leadingUppercase},
                                       {"9Lives", leadingUppercase},
                                       {"3d", lowercase},
                                       {" \n#dev", lowercase},
                                       {"ßen", lowercase},
                                       {"Éclair", leadingUppercase},
                                       {"E\u0301clair", leadingUppercase},
                                       {"日本a", lowercase},
                                       {"ǅ", lowercase}})
        EXPECT_EQ(tagCaseStyleMatching(input), style) << input;
}

TEST(TagCaseStyle, noCasedCharacterPreserves) {
    for (const std::string_view input : {"", "  ", "2024", "++", "日本"})
        EXPECT_EQ(tagCaseStyleMatching(input), preserve) << input;
}

TEST(TagCaseStyle, theHabitOfMostTagsWins) {
    EXPECT_EQ(tagCaseStyleInferred({}), preserve);
    EXPECT_EQ(tagCaseStyleInferred({"2024", "7"}), preserve);
    EXPECT_EQ(tagCaseStyleInferred({"dev", "Mac"}), preserve);
    EXPECT_EQ(tagCaseStyleInferred({"dev", "Mac", "web", "1"}), lowercase);
    EXPECT_EQ(tagCaseStyleInferred({"AI", "Mac", "web"}), leadingUppercase);
}

TEST(TagCaseStyle, lowercaseLowersTheWholeTag) {
    EXPECT_EQ(apply(lowercase, "3D Printing"), "3d printing");
    EXPECT_EQ(apply(lowercase, "ÄÖ"), "äö");
}

TEST(TagCaseStyle, leadingUppercaseRaisesTheFirstLetterAndLowersNothing) {
    EXPECT_EQ(apply(leadingUppercase, "#dev tools"), "#Dev tools");
    EXPECT_EQ(apply(leadingUppercase, "dEV"), "DEV");
    EXPECT_EQ(apply(leadingUppercase, "AI"), "AI");
    EXPECT_EQ(apply(leadingUppercase, "2024"), "2024");
    EXPECT_EQ(apply(leadingUppercase, "1. école"), "1. École");
    EXPECT_EQ(apply(leadingUppercase, "ßa"), "SSa");
    EXPECT_EQ(apply(leadingUppercase, "日本 web"), "日本 web");
}

TEST(TagCaseStyle, preserveLeavesTheTag) {
    EXPECT_EQ(apply(preserve, "dEV tools"), "dEV tools");
}

} // namespace
} // namespace brinmoor
