#include "browser/TabSearchModel.h"
#include "tests/road/Road.h"

#include <gmock/gmock.h>

namespace brinmoor::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr xcb_keycode_t enterKey = 36;
constexpr xcb_keycode_t escapeKey = 9;
constexpr xcb_keycode_t tabKey = 23;
constexpr xcb_keycode_t downKey = 116;

class PanelsRoad : public Road {
protected:
    void openNote(const std::string& address) {
        shell();
        browse({address});
        press(RoadKey::note);
        ASSERT_TRUE(waitUntil([&] { return shell().captureEditor() != nullptr; }));
        ASSERT_TRUE(waitUntil([&] { return !browserIsInFront(); }));
    }
    void openSelection() {
        shell();
        browse({"http://chosen.test/1", "http://chosen.test/2", "http://chosen.test/3"});
        press(RoadKey::selected);
        ASSERT_TRUE(waitUntil([&] { return shell().tabSelectionPanel() != nullptr; }));
        ASSERT_TRUE(waitUntil([&] { return !browserIsInFront(); }));
    }
};

TEST_F(PanelsRoad, aNoteAndTagsTypedAtTheKeyboardAreSavedAndTheTabCloses) {
    givenPreference("closeAfterQuickSave", true);
    openNote("http://note.test/page");
    type("for the harbour");
    tap(tabKey);
    type("walks,sea");
    picture("note");
    tapWithControl(enterKey);
    EXPECT_EQ(noticeWith("Saved & closed"),
              Words("Saved & closed", "Your note and tags are safely in your library."));
    const SavedLink saved = stored().links.at(0);
    EXPECT_EQ(saved.note, "for the harbour");
    EXPECT_THAT(saved.tags, ElementsAre("walks", "sea"));
    EXPECT_FALSE(isOpen("http://note.test/page"));
    EXPECT_EQ(shell().captureEditor(), nullptr);
}

TEST_F(PanelsRoad, escapeLeavesTheTabOpenAndSavesNothing) {
    givenPreference("closeAfterQuickSave", true);
    openNote("http://note.test/cancelled");
    type("never mind");
    tap(escapeKey);
    ASSERT_TRUE(waitUntil([&] { return shell().captureEditor() == nullptr; }));
    EXPECT_EQ(model().draft(), std::nullopt);
    EXPECT_TRUE(isOpen("http://note.test/cancelled"));
    EXPECT_THAT(storedTitles(), IsEmpty());
}

TEST_F(PanelsRoad, theKeyboardGoesBackToTheBrowserWhenTheNoteIsDone) {
    openNote("http://note.test/back");
    tapWithControl(enterKey);
    noticeWith("Link saved");
    EXPECT_TRUE(waitUntil([&] { return browserIsInFront(); }));
}

TEST_F(PanelsRoad, pressingNoteAgainLosesNothingTyped) {
    openNote("http://note.test/twice");
    type("kept");
    Panel* panel = shell().captureEditor();
    putBrowserInFront();
    press(RoadKey::note);
    ASSERT_TRUE(waitUntil([&] { return !browserIsInFront(); }));
    EXPECT_EQ(shell().captureEditor(), panel);
    type(" words");
    tapWithControl(enterKey);
    noticeWith("Link saved");
    EXPECT_EQ(stored().links.at(0).note, "kept words");
}

TEST_F(PanelsRoad, chosenTabsAreSavedByTheKeyboard) {
    openSelection();
    picture("selection");
    tap(downKey);
    tap(XKey::space);
    tap(enterKey);
    noticeWith("2 tabs saved");
    EXPECT_THAT(storedTitles(), ElementsAre("Page /1", "Page /3"));
    EXPECT_TRUE(waitUntil([&] { return browserIsInFront(); }));
}

TEST_F(PanelsRoad, aCancelledSelectionSavesNothingAndGivesTheFrontBack) {
    openSelection();
    tap(escapeKey);
    ASSERT_TRUE(waitUntil([&] { return shell().tabSelectionPanel() == nullptr; }));
    EXPECT_TRUE(waitUntil([&] { return browserIsInFront(); }));
    EXPECT_THAT(storedTitles(), IsEmpty());
}

TEST_F(PanelsRoad, theShortcutsWorkWhileTheSearchOfOpenTabsHasTheKeyboard) {
    shell();
    browse({"http://front.test/page"});
    press(RoadKey::search);
    ASSERT_TRUE(waitUntil([&] { return shell().tabSearchPanel() != nullptr; }));
    ASSERT_TRUE(waitUntil([&] { return !model().tabSearch().tabs().empty(); }));
    type("front");
    ASSERT_TRUE(waitUntil([&] { return model().tabSearch().query() == "front"; }));
    press(RoadKey::search);
    EXPECT_TRUE(waitUntil([&] { return model().tabSearch().query().empty(); })) << "starts anew";
    EXPECT_TRUE(shell().tabSearchPanel()->isVisible());
    press(RoadKey::quick);
    noticeWith("Tab saved");
    EXPECT_EQ(stored().links.at(0).url, "http://front.test/page");
    tap(escapeKey);
    EXPECT_TRUE(waitUntil([&] { return !shell().tabSearchPanel()->isVisible(); }));
    EXPECT_TRUE(waitUntil([&] { return browserIsInFront(); }));
}

} // namespace
} // namespace brinmoor::testing
