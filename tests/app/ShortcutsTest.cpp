#include "tests/app/Desk.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using testing::Desk;
using testing::settle;

constexpr std::uint32_t shiftCommand = 0x300;
constexpr std::uint32_t keyK = 40;
constexpr std::uint32_t keyN = 45;
constexpr std::uint32_t keyJ = 38;

const CaptureShortcut shiftCommandJ{keyJ, shiftCommand, "J"};
const CaptureShortcut shiftCommandN{keyN, shiftCommand, "N"};

class ShortcutsTest : public Desk {
protected:
    std::string errorBeside(CaptureAction action) {
        const auto& errors = model().shortcutErrors();
        const auto found = errors.find(action);
        return found == errors.end() ? std::string() : found->second;
    }
    bool registered(CaptureAction action, const CaptureShortcut& shortcut) {
        const auto found = hotKeys.registered.find(hotKeyId(action));
        return found != hotKeys.registered.end() && found->second.keyCode == shortcut.keyCode &&
               found->second.modifiers == shortcut.modifiers;
    }
    bool allRegistered() {
        const auto& shortcuts = model().shortcuts();
        return std::ranges::all_of(
            shortcuts, [&](const auto& entry) { return registered(entry.first, entry.second); });
    }
    void refuse(const CaptureShortcut& shortcut) {
        hotKeys.refused.insert({shortcut.keyCode, shortcut.modifiers});
    }
    std::optional<std::string> stored() { return preferences.data("captureShortcuts"); }
};

TEST_F(ShortcutsTest, aFreshUsersSixShortcutsAreRegistered) {
    EXPECT_EQ(model().shortcuts(), defaultShortcuts());
    EXPECT_TRUE(allRegistered());
    EXPECT_EQ(hotKeys.registered.size(), 6U);
    EXPECT_TRUE(model().shortcutErrors().empty());
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(ShortcutsTest, aPressStartsItsCapture) {
    pageIs("https://a.example/", "A");
    model();
    ASSERT_TRUE(hotKeys.press({keyK, shiftCommand}));
    EXPECT_TRUE(scripts.runs.empty());
    settle();
    EXPECT_EQ(lastWords().first, "Tab saved");
}

TEST_F(ShortcutsTest, aStoredMapWithSomeActionsLeavesTheOthersTheirDefaults) {
    ShortcutMap some{{CaptureAction::quick, shiftCommandJ}};
    preferences.values["captureShortcuts"] = PreferenceData{encodeShortcuts(some)};
    auto expected = defaultShortcuts();
    expected[CaptureAction::quick] = shiftCommandJ;
    EXPECT_EQ(model().shortcuts(), expected);
}

TEST_F(ShortcutsTest, brokenStoredDataGivesTheDefaults) {
    preferences.values["captureShortcuts"] = PreferenceData{"{\"quick\":"};
    EXPECT_EQ(model().shortcuts(), defaultShortcuts());
}

constexpr auto olderShortcut = R"({"keyCode":38,"modifiers":768,"character":"J"})";

TEST_F(ShortcutsTest, theOneShortcutOfAnOlderTimeIsTheQuickOnes) {
    preferences.values["captureShortcut"] = PreferenceData{olderShortcut};
    auto expected = defaultShortcuts();
    expected[CaptureAction::quick] = shiftCommandJ;
    EXPECT_EQ(model().shortcuts(), expected);
    EXPECT_TRUE(allRegistered());
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(ShortcutsTest, aBrokenShortcutOfAnOlderTimeGivesTheDefaults) {
    preferences.values["captureShortcut"] = PreferenceData{R"({"keyCode":38,"modifiers":768})"};
    EXPECT_EQ(model().shortcuts(), defaultShortcuts());
}

TEST_F(ShortcutsTest, theShortcutOfAnOlderTimeIsOverOnceThereIsAMap) {
    preferences.values["captureShortcut"] = PreferenceData{olderShortcut};
    for (const char* map : {"{}", "broken"}) {
        preferences.values["captureShortcuts"] = PreferenceData{map};
        EXPECT_EQ(model().shortcuts(), defaultShortcuts()) << map;
        endModel();
    }
}

TEST_F(ShortcutsTest, aShortcutThatAnotherProgramHoldsIsSaidBesideItsAction) {
    refuse(defaultShortcut(CaptureAction::quick));
    EXPECT_EQ(errorBeside(CaptureAction::quick), "Unavailable. Choose another shortcut.");
    EXPECT_EQ(model().shortcutErrors().size(), 1U);
    EXPECT_EQ(model().shortcuts(), defaultShortcuts());
    EXPECT_FALSE(hotKeys.press({keyK, shiftCommand}));
}

TEST_F(ShortcutsTest, aShortcutThatTheDesktopWithdrawsIsSaidToo) {
    model();
    hotKeys.withdraw(hotKeyId(CaptureAction::note));
    settle();
    EXPECT_EQ(errorBeside(CaptureAction::note), "Unavailable. Choose another shortcut.");
}

TEST_F(ShortcutsTest, aNewShortcutIsRegisteredAndStored) {
    model().configureShortcut(shiftCommandJ, CaptureAction::quick);
    EXPECT_TRUE(registered(CaptureAction::quick, shiftCommandJ));
    EXPECT_TRUE(allRegistered());
    EXPECT_EQ(decodeShortcuts(stored()), model().shortcuts());
}

TEST_F(ShortcutsTest, keepingTheSameShortcutIsNoClash) {
    model().configureShortcut(defaultShortcut(CaptureAction::quick), CaptureAction::quick);
    EXPECT_EQ(errorBeside(CaptureAction::quick), "");
    EXPECT_TRUE(allRegistered());
}

TEST_F(ShortcutsTest, aCombinationOfAnotherActionIsRefusedWithItsName) {
    model().suspendShortcuts();
    model().configureShortcut(defaultShortcut(CaptureAction::search), CaptureAction::quick);
    EXPECT_EQ(errorBeside(CaptureAction::quick), "Already used by ‘Search open tabs’.");
    EXPECT_EQ(model().shortcuts(), defaultShortcuts());
    EXPECT_TRUE(allRegistered());
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(ShortcutsTest, aCombinationThatTheSystemRefusesLeavesTheOldOne) {
    refuse(shiftCommandJ);
    model().configureShortcut(shiftCommandJ, CaptureAction::quick);
    EXPECT_EQ(errorBeside(CaptureAction::quick),
              "Unavailable. Your previous shortcut is unchanged.");
    EXPECT_EQ(model().shortcuts(), defaultShortcuts());
    EXPECT_TRUE(allRegistered());
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(ShortcutsTest, anotherActionsFailureIsSaidBesideThatAction) {
    model();
    refuse(defaultShortcut(CaptureAction::window));
    model().configureShortcut(shiftCommandJ, CaptureAction::quick);
    EXPECT_EQ(errorBeside(CaptureAction::window), "Already in use. Choose another shortcut.");
    EXPECT_TRUE(registered(CaptureAction::quick, shiftCommandJ));
    EXPECT_TRUE(stored());
}

TEST_F(ShortcutsTest, aChangeThatWorksClearsTheActionsOldError) {
    refuse(shiftCommandJ);
    model().configureShortcut(shiftCommandJ, CaptureAction::quick);
    model().configureShortcut(shiftCommandN, CaptureAction::quick);
    EXPECT_EQ(errorBeside(CaptureAction::quick), "");
}

TEST_F(ShortcutsTest, noShortcutIsRegisteredWhileOneIsRecorded) {
    model().suspendShortcuts();
    EXPECT_TRUE(hotKeys.registered.empty());
}

TEST_F(ShortcutsTest, aCancelledRecordingRegistersEverythingAgain) {
    model().suspendShortcuts();
    model().configureShortcut(std::nullopt, CaptureAction::quick);
    EXPECT_TRUE(allRegistered());
    EXPECT_EQ(stored(), std::nullopt);
}

// The memorable preset.

TEST_F(ShortcutsTest, thePresetChangesQuickAndNote) {
    model().applyMemorableShortcuts();
    auto expected = defaultShortcuts();
    expected[CaptureAction::note] = shiftCommandN;
    EXPECT_EQ(model().shortcuts(), expected);
    EXPECT_TRUE(allRegistered());
    EXPECT_EQ(decodeShortcuts(stored()), expected);
}

TEST_F(ShortcutsTest, aPresetThatClashesChangesNothing) {
    model().configureShortcut(shiftCommandN, CaptureAction::search);
    const auto before = model().shortcuts();
    model().applyMemorableShortcuts();
    EXPECT_EQ(model().error(), "The preset conflicts with another Brinmoor shortcut. Change that "
                               "shortcut first.");
    EXPECT_EQ(model().shortcuts(), before);
    EXPECT_TRUE(allRegistered());
}

TEST_F(ShortcutsTest, aPresetThatTheSystemRefusesChangesNothing) {
    refuse(shiftCommandN);
    model().applyMemorableShortcuts();
    EXPECT_EQ(model().error(),
              "One of the preset shortcuts is unavailable. Your shortcuts are unchanged.");
    EXPECT_EQ(model().shortcuts(), defaultShortcuts());
    EXPECT_TRUE(allRegistered());
    EXPECT_EQ(stored(), std::nullopt);
}

} // namespace
} // namespace brinmoor
