#include "app/SavedSettings.h"

#include "platform/memory/MemoryPreferences.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(SavedSettings, aFreshUserHasCountsAndTagsOnAndTheRestOff) {
    const auto saved = SavedSettings::read(MemoryPreferences());
    EXPECT_TRUE(saved.analyticsEnabled);
    EXPECT_TRUE(saved.autoTaggingEnabled);
    EXPECT_TRUE(saved.learningEnabled);
    EXPECT_FALSE(saved.clipboardEnabled);
    EXPECT_FALSE(saved.tabCleanupEnabled);
    EXPECT_FALSE(saved.closeAfterQuickSave);
    EXPECT_EQ(saved.tabCleanupApproval, TabCleanupApproval::ask);
    EXPECT_THAT(saved.tabCleanupDomains, IsEmpty());
}

TEST(SavedSettings, aSwitchStoredAsATextHasItsFreshValue) {
    MemoryPreferences preferences;
    preferences.values = {{"analyticsEnabled", std::string("false")},
                          {"closeAfterQuickSave", std::string("true")}};
    const auto saved = SavedSettings::read(preferences);
    EXPECT_TRUE(saved.analyticsEnabled);
    EXPECT_FALSE(saved.closeAfterQuickSave);
}

TEST(SavedSettings, storedSwitchesAreRead) {
    MemoryPreferences preferences;
    preferences.values = {{"analyticsEnabled", false},
                          {"autoTaggingEnabled", false},
                          {"closeAfterQuickSave", true},
                          {"clipboardEnabled", true},
                          {"tabCleanupEnabled", true}};
    const auto saved = SavedSettings::read(preferences);
    EXPECT_FALSE(saved.analyticsEnabled);
    EXPECT_FALSE(saved.autoTaggingEnabled);
    EXPECT_TRUE(saved.closeAfterQuickSave);
    EXPECT_TRUE(saved.clipboardEnabled);
    EXPECT_TRUE(saved.tabCleanupEnabled);
}

TEST(SavedSettings, theApprovalIsMatchedToTheLetter) {
    for (const auto& [stored, read] :
         {std::pair("immediate", TabCleanupApproval::immediate),
          std::pair("Immediate", TabCleanupApproval::ask),
          std::pair("ask", TabCleanupApproval::ask), std::pair("never", TabCleanupApproval::ask)}) {
        MemoryPreferences preferences;
        preferences.values["tabCleanupApproval"] = std::string(stored);
        EXPECT_EQ(SavedSettings::read(preferences).tabCleanupApproval, read) << stored;
    }
}

TEST(SavedSettings, cleanupDomainsAreAJsonArrayOfTextsOrNone) {
    const auto domains = [](std::string bytes) {
        MemoryPreferences preferences;
        preferences.values["tabCleanupDomains"] = PreferenceData{std::move(bytes)};
        return SavedSettings::read(preferences).tabCleanupDomains;
    };
    EXPECT_THAT(domains(R"(["a.example","b.example"])"), ElementsAre("a.example", "b.example"));
    for (const char* broken : {"", "[", R"(["a",1])", R"({"a":"b"})", "null"})
        EXPECT_THAT(domains(broken), IsEmpty()) << broken;
}

TEST(SavedSettings, cleanupDomainsStoredAsATextAreNone) {
    MemoryPreferences preferences;
    preferences.values["tabCleanupDomains"] = std::string(R"(["a.example"])");
    EXPECT_THAT(SavedSettings::read(preferences).tabCleanupDomains, IsEmpty());
}

TEST(SavedAppearance, onlyCreamIsLight) {
    MemoryPreferences preferences;
    EXPECT_EQ(savedAppearance(preferences), AppAppearance::black);
    for (const auto& [stored, read] :
         {std::pair("cream", AppAppearance::cream), std::pair("black", AppAppearance::black),
          std::pair("Cream", AppAppearance::black), std::pair("neon", AppAppearance::black)}) {
        preferences.values["appAppearance"] = std::string(stored);
        EXPECT_EQ(savedAppearance(preferences), read) << stored;
    }
}

} // namespace
} // namespace brinmoor
