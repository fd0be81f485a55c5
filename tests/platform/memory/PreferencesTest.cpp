#include "platform/memory/MemoryPreferences.h"

#include <gmock/gmock.h>

using namespace brinmoor;

TEST(Preferences, absentIsNotFalse) {
    MemoryPreferences preferences;
    EXPECT_TRUE(preferences.boolean("analyticsEnabled", true));
    EXPECT_FALSE(preferences.boolean("clipboardEnabled"));
    preferences.set("analyticsEnabled", false);
    EXPECT_FALSE(preferences.boolean("analyticsEnabled", true));
    preferences.set("analyticsEnabled", std::nullopt);
    EXPECT_TRUE(preferences.boolean("analyticsEnabled", true));
}

TEST(Preferences, aTextIsNeverReadAsABoolean) {
    MemoryPreferences preferences;
    preferences.set("analyticsEnabled", std::string("false"));
    preferences.set("clipboardEnabled", std::string("true"));
    EXPECT_TRUE(preferences.boolean("analyticsEnabled", true));
    EXPECT_FALSE(preferences.boolean("clipboardEnabled"));
}

TEST(Preferences, noTypeIsReadAsAnother) {
    MemoryPreferences preferences;
    preferences.set("boolean", true);
    preferences.set("text", std::string("ask"));
    preferences.set("data", PreferenceData{"[]"});
    EXPECT_EQ(preferences.text("boolean"), std::nullopt);
    EXPECT_EQ(preferences.text("data"), std::nullopt);
    EXPECT_EQ(preferences.data("text"), std::nullopt);
    EXPECT_EQ(preferences.text("text"), "ask");
    EXPECT_EQ(preferences.data("data"), "[]");
    EXPECT_TRUE(preferences.boolean("boolean"));
}

TEST(MemoryPreferences, aValueThatCannotBeWrittenStaysInForce) {
    MemoryPreferences preferences;
    preferences.writesSucceed = false;
    EXPECT_FALSE(preferences.set("clipboardEnabled", true));
    EXPECT_TRUE(preferences.boolean("clipboardEnabled"));
}

TEST(MemoryPreferences, onlyObserversOfTheChangedKeyAreTold) {
    MemoryPreferences preferences;
    int appearance = 0;
    int other = 0;
    const auto first = preferences.observe("appAppearance", [&] { ++appearance; });
    const auto second = preferences.observe("tagSummarySortOrder", [&] { ++other; });
    preferences.set("appAppearance", std::string("cream"));
    preferences.set("appAppearance", std::string("cream"));
    EXPECT_EQ(appearance, 1);
    EXPECT_EQ(other, 0);
}
