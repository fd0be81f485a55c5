// What the model does for the search of open tabs and for the cleanup's shortcut.

#include "app/TabCleanup.h"
#include "browser/TabSearchModel.h"
#include "tests/app/Desk.h"
#include "tests/support/TabRecords.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using testing::Desk;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::PretendedTab;
using testing::settle;
using testing::Words;

constexpr auto chromiumID = "org.chromium.Chromium";

class TabSearchTest : public Desk {
protected:
    /// Opens the search on a browser that shows this page and saves it from there.
    void saveFromSearch(const PretendedTab& tab) {
        scripts.answer = [tab](const ScriptRun&) {
            return testing::CannedScripts::Answer(testing::tabList(chromiumID, {tab}));
        };
        search().refresh();
        settle();
        search().saveTab(search().tabs().at(0));
        settle();
    }
    TabSearchModel& search() { return model().tabSearch(); }
};

TEST_F(TabSearchTest, savesATabWithoutReadingItsPage) {
    saveFromSearch({"https://a.example/x", "A · Site"});
    EXPECT_EQ(scripts.runs.size(), 1U);
    ASSERT_EQ(model().library().links.size(), 1U);
    const SavedLink& saved = model().library().links[0];
    EXPECT_EQ(saved.url, "https://a.example/x");
    EXPECT_EQ(saved.title, "A · Site");
    EXPECT_EQ(saved.browser, "Chromium");
    EXPECT_EQ(saved.collection, "Inbox");
    EXPECT_EQ(saved.iconURL, std::nullopt);
    EXPECT_EQ(search().message(), "Saved to your library.");
    EXPECT_EQ(lastWords().first, "Tab saved");
}

TEST_F(TabSearchTest, suggestsTagsForTheTab) {
    auto known = link("https://b.example/", "Other");
    known.tags = {"garden"};
    given(libraryOf({known}));
    saveFromSearch({"https://a.example/x", "My garden in spring"});
    EXPECT_THAT(model().library().links.at(0).tags, ElementsAre("garden"));
}

TEST_F(TabSearchTest, savesAKnownTabOnce) {
    given(libraryOf({link("https://a.example/", "Stored")}));
    saveFromSearch({"https://A.example", "Fresh"});
    EXPECT_EQ(model().library().links.size(), 1U);
    EXPECT_EQ(lastWords(), Words("Already saved", "Already in your library. No duplicate added."));
    EXPECT_EQ(search().message(), "Saved to your library.");
}

TEST_F(TabSearchTest, refusesAnAddressThatCannotBeSaved) {
    saveFromSearch({"https://me@a.example/", "A"});
    EXPECT_THAT(model().library().links, IsEmpty());
    EXPECT_EQ(lastWords(),
              Words("No tabs to save",
                    "Open a web page first. Empty tabs and browser settings can’t be saved."));
    EXPECT_TRUE(notices.back().isError);
    EXPECT_EQ(search().message(),
              "Couldn’t save this tab. Check the Brinmoor notification for details.");
}

TEST_F(TabSearchTest, tellsOfAFailedWrite) {
    (void)model();
    breakWrites();
    saveFromSearch({"https://a.example/", "A"});
    EXPECT_EQ(search().message(),
              "Couldn’t save this tab. Check the Brinmoor notification for details.");
    EXPECT_EQ(lastWords().first, "Couldn’t save your tab");
}

TEST_F(TabSearchTest, theShortcutOfDuplicatesClosesThem) {
    scripts.answer = [](const ScriptRun& run) {
        return testing::CannedScripts::Answer(
            testing::runs(run, "closeBrowserTabs")
                ? QByteArray("1\n")
                : testing::tabList(chromiumID, {{"https://a.example/", "A", 1, 1},
                                                {"https://a.example/", "A", 1, 2}}));
    };
    press(CaptureAction::duplicates);
    EXPECT_EQ(lastWords(), Words("Duplicate tabs cleaned up", "1 tab closed."));
    EXPECT_EQ(model().toast(), notices.back());
    EXPECT_FALSE(model().isCapturing());
}

TEST_F(TabSearchTest, theShortcutOfSearchOnlyOpensThePanel) {
    int shown = 0;
    model().showTabSearch = [&] { ++shown; };
    press(CaptureAction::search);
    EXPECT_EQ(shown, 1);
    EXPECT_THAT(scripts.runs, IsEmpty());
}

TEST_F(TabSearchTest, aModelThatGoesDuringAReadingIsNoHarm) {
    scripts.hold = testing::CannedScripts::Hold::everything;
    search().refresh();
    model().tabCleanup().closeDuplicateTabs();
    settle();
    endModel();
    scripts.release();
    settle();
    EXPECT_THAT(notices, IsEmpty());
}

} // namespace
} // namespace brinmoor
