#include "tests/app/Desk.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using testing::CannedScripts;
using testing::Desk;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::settle;
using testing::Words;

using CaptureFlowTest = Desk;

const Words tabSaved("Tab saved", "Ready in your library whenever you need it.");
const Words alreadySaved("Already saved", "Already in your library. No duplicate added.");

TEST_F(CaptureFlowTest, aPageIsSavedWithItsTitleAndIcon) {
    pageIs("https://a.example/x", "Tab", R"({"ogTitle":"Page","iconURL":"/i.png"})");
    press(CaptureAction::quick);
    const SavedLink& stored = model().library().links.at(0);
    EXPECT_EQ(stored.title, "Page");
    EXPECT_EQ(stored.iconURL, "https://a.example/i.png");
    EXPECT_EQ(lastWords(), tabSaved);
    EXPECT_FALSE(notices.back().isError);
    EXPECT_TRUE(model().hasLibraryUndo());
    EXPECT_FALSE(model().isCapturing());
}

TEST_F(CaptureFlowTest, aNewLinkGetsTagsFromTheUsersOwnLinks) {
    auto known = link("https://b.example/", "Other");
    known.tags = {"garden"};
    given(libraryOf({known}));
    pageIs("https://a.example/x", "My garden in spring");
    press(CaptureAction::quick);
    EXPECT_THAT(model().library().links.at(0).tags, ElementsAre("garden"));
}

TEST_F(CaptureFlowTest, noTagsAreSuggestedWhileThatIsSwitchedOff) {
    auto known = link("https://b.example/", "Other");
    known.tags = {"garden"};
    given(libraryOf({known}));
    preferences.values["autoTaggingEnabled"] = false;
    pageIs("https://a.example/x", "My garden in spring");
    press(CaptureAction::quick);
    EXPECT_TRUE(model().library().links.at(0).tags.empty());
}

TEST_F(CaptureFlowTest, tabsOfAWholeWindowGetNoSuggestedTags) {
    auto known = link("https://b.example/", "Other");
    known.tags = {"garden"};
    given(libraryOf({known}));
    pageIs("https://a.example/x", "My garden in spring");
    press(CaptureAction::window);
    EXPECT_TRUE(model().library().links.at(0).tags.empty());
}

TEST_F(CaptureFlowTest, twoQuickPressesReadTheTabOnce) {
    pageIs("https://a.example/", "A");
    scripts.hold = CannedScripts::Hold::everything;
    model().capture(CaptureAction::quick);
    EXPECT_TRUE(model().isCapturing());
    model().capture(CaptureAction::quick);
    scripts.release();
    settle();
    EXPECT_EQ(scripts.runs.size(), 1U);
    EXPECT_FALSE(model().isCapturing());
}

TEST_F(CaptureFlowTest, aKnownPageKeepsItsNoteTagsAndPlace) {
    auto known = link("https://a.example/", "A real title");
    known.note = "mine";
    known.tags = {"kept"};
    given(libraryOf({link("https://b.example/", "B"), known}));
    pageIs("https://A.example", "Another title");
    press(CaptureAction::quick);
    EXPECT_EQ(lastWords(), alreadySaved);
    EXPECT_EQ(model().library().links.at(1), known);
    EXPECT_EQ(model().library().links.size(), 2U);
}

TEST_F(CaptureFlowTest, aKnownPageWithAGenericTitleIsHealed) {
    given(libraryOf({link("https://a.example/", "Log in to A")}));
    pageIs("https://a.example/", "A real title", R"({"iconURL":"https://a.example/i"})");
    press(CaptureAction::quick);
    EXPECT_EQ(lastWords(), alreadySaved);
    EXPECT_THAT(titles(), ElementsAre("A real title"));
    EXPECT_EQ(model().library().links.at(0).iconURL, "https://a.example/i");
}

TEST_F(CaptureFlowTest, aGenericTitleNeverReplacesARealOne) {
    given(libraryOf({link("https://a.example/", "A real title")}));
    pageIs("https://a.example/", "Log in to A");
    press(CaptureAction::quick);
    EXPECT_THAT(titles(), ElementsAre("A real title"));
}

TEST_F(CaptureFlowTest, aWindowOfFiveTabsWithTwoKnownSavesThreeInTabOrder) {
    given(libraryOf({link("https://a.example/2", "Two"), link("https://a.example/4", "Four")}));
    tabsAre({entry("https://a.example/1", "One"), entry("https://a.example/2", "Two"),
             entry("https://a.example/3", "Three"), entry("https://a.example/4", "Four"),
             entry("https://a.example/5", "Five")});
    press(CaptureAction::window);
    EXPECT_EQ(lastWords(), Words("3 tabs saved", "Ready in your library whenever you need it."));
    EXPECT_THAT(titles(), ElementsAre("One", "Three", "Five", "Two", "Four"));
    EXPECT_EQ(counted(UsageEvent::linksSaved), 3);
}

TEST_F(CaptureFlowTest, aWindowOfKnownTabsIsAlreadySaved) {
    given(libraryOf({link("https://a.example/1", "One"), link("https://a.example/2", "Two")}));
    tabsAre({entry("https://a.example/1", "One"), entry("https://a.example/2", "Two")});
    press(CaptureAction::window);
    EXPECT_EQ(lastWords(), alreadySaved);
    EXPECT_EQ(counted(UsageEvent::linksSaved), 0);
}

// Closing the tab.

TEST_F(CaptureFlowTest, theTabIsClosedAfterTheSaveWhenThatIsWanted) {
    preferences.values["closeAfterQuickSave"] = true;
    pageIs("https://a.example/", "A");
    press(CaptureAction::quick);
    ASSERT_EQ(notices.size(), 2U);
    EXPECT_EQ(notices[0].title, "Tab saved");
    EXPECT_EQ(lastWords(), Words("Saved & closed", "Ready in your library whenever you need it."));
    EXPECT_THAT(scripts.runs.at(1).script, HasSubstr("\"tabID\":\"7\""));
    EXPECT_FALSE(model().isCapturing());
}

TEST_F(CaptureFlowTest, aDuplicatesTabIsClosedLikeANewOne) {
    preferences.values["closeAfterQuickSave"] = true;
    given(libraryOf({link("https://a.example/", "A")}));
    pageIs("https://a.example/", "A");
    press(CaptureAction::quick);
    EXPECT_EQ(lastWords().first, "Saved & closed");
}

TEST_F(CaptureFlowTest, aTabThatChangedStaysOpenAndThatIsSaid) {
    preferences.values["closeAfterQuickSave"] = true;
    closeAnswer = "false";
    pageIs("https://a.example/", "A");
    press(CaptureAction::quick);
    EXPECT_EQ(lastWords(),
              Words("Saved · tab left open",
                    "The tab changed or couldn’t be closed safely. Your link is saved."));
    EXPECT_EQ(model().library().links.size(), 1U);
}

TEST_F(CaptureFlowTest, aTabThatCouldNotBeIdentifiedStaysOpen) {
    preferences.values["closeAfterQuickSave"] = true;
    tabsAre({R"({"url":"https://a.example/","title":"A","metadata":{}})"});
    press(CaptureAction::quick);
    EXPECT_EQ(lastWords().first, "Saved · tab left open");
    EXPECT_EQ(scripts.runs.size(), 1U);
}

TEST_F(CaptureFlowTest, aWindowsTabsAreNeverClosed) {
    preferences.values["closeAfterQuickSave"] = true;
    pageIs("https://a.example/", "A");
    press(CaptureAction::window);
    EXPECT_EQ(scripts.runs.size(), 1U);
    EXPECT_THAT(scripts.runs.at(0).script, HasSubstr("\"prepareClose\":false"));
}

TEST_F(CaptureFlowTest, nothingIsClosedThatWasNotSaved) {
    preferences.values["closeAfterQuickSave"] = true;
    model();
    breakWrites();
    pageIs("https://a.example/", "A");
    press(CaptureAction::quick);
    EXPECT_EQ(scripts.runs.size(), 1U);
    EXPECT_EQ(lastWords().first, "Couldn’t save your tab");
    EXPECT_FALSE(model().isCapturing());
}

TEST_F(CaptureFlowTest, aPressIsDroppedUntilTheTabHasBeenHandled) {
    preferences.values["closeAfterQuickSave"] = true;
    pageIs("https://a.example/", "A");
    scripts.hold = CannedScripts::Hold::operations;
    model().capture(CaptureAction::quick);
    settle();
    EXPECT_TRUE(model().isCapturing());
    model().capture(CaptureAction::window);
    scripts.release();
    settle();
    EXPECT_EQ(scripts.runs.size(), 2U);
    EXPECT_FALSE(model().isCapturing());
}

// Failures.

TEST_F(CaptureFlowTest, aFailureOfTheBridgeSpeaksItsOwnWords) {
    workspace.running.clear();
    workspace.front.reset();
    press(CaptureAction::quick);
    EXPECT_EQ(lastWords(), Words("No browser found",
                                 "Open a page in Safari or Chrome, then try your shortcut again."));
    EXPECT_TRUE(notices.back().isError);
    EXPECT_FALSE(model().isCapturing());
}

TEST_F(CaptureFlowTest, refusedAccessOffersTheWayToGrantIt) {
    scripts.answer = [](const ScriptRun& run) {
        return CannedScripts::Answer(failure(
            CaptureFailure(CaptureError{CaptureError::Cause::permission, run.browserName})));
    };
    press(CaptureAction::quick);
    EXPECT_EQ(lastWords(),
              Words("Browser access needed",
                    "Allow Brinmoor to read tabs from Chromium in macOS Automation settings."));
    EXPECT_TRUE(notices.back().opensAutomationSettings);
}

TEST_F(CaptureFlowTest, anyOtherFailureIsSaidPlainly) {
    scripts.answer = [](const ScriptRun&) { return CannedScripts::Answer(QByteArray("no json")); };
    press(CaptureAction::quick);
    EXPECT_EQ(lastWords(), Words("Couldn’t capture this tab",
                                 "Try again with a web page open in your browser."));
    EXPECT_TRUE(notices.back().isError);
    EXPECT_FALSE(model().isCapturing());
}

TEST_F(CaptureFlowTest, theModelMayEndWhileACaptureRuns) {
    pageIs("https://a.example/", "A");
    scripts.hold = CannedScripts::Hold::everything;
    model().capture(CaptureAction::quick);
    endModel();
    scripts.release();
    settle();
    EXPECT_TRUE(notices.empty());
    EXPECT_FALSE(std::filesystem::exists(libraryPath()));
}

TEST_F(CaptureFlowTest, theModelMayEndWhileATabIsBeingClosed) {
    preferences.values["closeAfterQuickSave"] = true;
    pageIs("https://a.example/", "A");
    scripts.hold = CannedScripts::Hold::operations;
    model().capture(CaptureAction::quick);
    settle();
    endModel();
    scripts.release();
    settle();
    EXPECT_EQ(notices.size(), 1U);
}

} // namespace
} // namespace brinmoor
