#include "core/tags/TagCompletion.h"

#include <gmock/gmock.h>

namespace brinmoor::TagCompletion {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::vector<std::string> known{"reading", "Design", "café", "spread"};

TEST(TagCompletion, aLimitBelowOneOffersNothing) {
    EXPECT_THAT(matches("re", {}, known, 0), IsEmpty());
    EXPECT_THAT(matches("", {}, known, -1), IsEmpty());
}

TEST(TagCompletion, anEmptyInputOffersTheFirstUnselectedAsTheyStand) {
    EXPECT_THAT(matches("", {}, known, 2), ElementsAre("reading", "Design"));
    EXPECT_THAT(matches(" \t", {"READING"}, known, 2), ElementsAre("Design", "café"));
}

TEST(TagCompletion, aMatchAnywhereCountsAndTheOrderStays) {
    EXPECT_THAT(matches("ea", {}, known, 6), ElementsAre("reading", "spread"));
    EXPECT_THAT(matches("ea", {}, known, 1), ElementsAre("reading"));
}

TEST(TagCompletion, offersInTheLetterCaseOfTheInput) {
    EXPECT_THAT(matches("Re", {}, {"reading"}, 6), ElementsAre("Reading"));
    EXPECT_THAT(matches("re", {}, {"Reading"}, 6), ElementsAre("reading"));
    EXPECT_THAT(matches("3d", {}, {"3D Printing"}, 6), ElementsAre("3d printing"));
    EXPECT_THAT(matches("3", {}, {"3D Printing"}, 6), ElementsAre("3D Printing"));
}

TEST(TagCompletion, theSearchTellsAccentsApart) {
    EXPECT_THAT(matches("cafe", {}, known, 6), IsEmpty());
    EXPECT_THAT(matches("CAFÉ", {}, known, 6), ElementsAre("Café"));
}

TEST(TagCompletion, aSelectedTagHidesWhatFoldsLikeIt) {
    EXPECT_THAT(matches("", {"Café"}, {"cafe", "CAFÉ", "tea"}, 6), ElementsAre("tea"));
}

TEST(TagCompletion, aSuggestionEqualToTheInputStays) {
    EXPECT_THAT(matches("reading", {}, known, 6), ElementsAre("reading"));
}

TEST(TagCompletion, lineEndsBelongToTheQuery) {
    EXPECT_THAT(matches("reading\n", {}, known, 6), IsEmpty());
}

TEST(TagCompletion, theFirstMatchIsAbsentWithoutInputOrMatch) {
    EXPECT_EQ(firstMatch("  ", {}, known), std::nullopt);
    EXPECT_EQ(firstMatch("", {}, known), std::nullopt);
    EXPECT_EQ(firstMatch("zzz", {}, known), std::nullopt);
    EXPECT_EQ(firstMatch(" ea ", {}, known), "reading");
}

} // namespace
} // namespace brinmoor::TagCompletion
