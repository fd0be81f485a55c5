#include "tests/app/Desk.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using testing::Desk;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::settle;
using testing::Words;

using DraftsTest = Desk;

// The note panel.

TEST_F(DraftsTest, theNoteShortcutOpensTheEditorWithSuggestedTags) {
    auto known = link("https://b.example/", "Other");
    known.tags = {"garden"};
    given(libraryOf({known}));
    pageIs("https://a.example/x", "My garden in spring");
    press(CaptureAction::note);
    ASSERT_EQ(editors.size(), 1U);
    EXPECT_EQ(editors[0].action, CaptureAction::note);
    EXPECT_THAT(editors[0].link.tags, ElementsAre("garden"));
    EXPECT_EQ(model().library().links.size(), 1U);
    EXPECT_FALSE(model().isCapturing());
}

TEST_F(DraftsTest, pressingNoteAgainBringsTheSameDraftForwardAndReadsNothing) {
    pageIs("https://a.example/x", "A");
    press(CaptureAction::note);
    for (const auto action : {CaptureAction::note, CaptureAction::quick, CaptureAction::window})
        press(action);
    EXPECT_EQ(scripts.runs.size(), 1U);
    ASSERT_EQ(editors.size(), 4U);
    EXPECT_EQ(editors[3], editors[0]);
}

TEST_F(DraftsTest, aKnownPageStartsFromTheStoredLink) {
    auto known = link("https://a.example/", "Stored title");
    known.note = "mine";
    known.tags = {"kept"};
    known.collection = "Read later";
    given(libraryOf({known}));
    pageIs("https://A.example", "Fresh title", R"({"iconURL":"https://a.example/i"})");
    press(CaptureAction::note);
    auto expected = known;
    expected.iconURL = "https://a.example/i";
    EXPECT_EQ(editors.at(0).link, expected);
}

TEST_F(DraftsTest, aKnownPageWithAGenericTitleStartsWithTheFreshOne) {
    given(libraryOf({link("https://a.example/", "Instagram")}));
    pageIs("https://a.example/", "Fresh title");
    press(CaptureAction::note);
    EXPECT_EQ(editors.at(0).link.title, "Fresh title");
}

TEST_F(DraftsTest, aSecondDraftIsDroppedForTheOneThatStandsOpen) {
    model().beginDraft(link("https://a.example/", "A"), CaptureAction::quick, {});
    model().beginDraft(link("https://b.example/", "B"), CaptureAction::quick, {});
    ASSERT_EQ(editors.size(), 2U);
    EXPECT_EQ(editors[1].link.title, "A");
}

TEST_F(DraftsTest, aSavedNoteIsInTheLibraryAndThePanelCloses) {
    pageIs("https://a.example/", "A");
    press(CaptureAction::note);
    auto edited = editors.at(0).link;
    edited.note = "why";
    edited.tags = {"one", "#two"};
    EXPECT_TRUE(saved(edited));
    const SavedLink& stored = model().library().links.at(0);
    EXPECT_EQ(stored.note, "why");
    EXPECT_THAT(stored.tags, ElementsAre("one", "two"));
    EXPECT_EQ(model().draft(), std::nullopt);
    EXPECT_EQ(editorsClosed, 1);
    EXPECT_EQ(lastWords(), Words("Link saved", "Your note and tags are safely in your library."));
}

TEST_F(DraftsTest, theTabClosesOnlyAfterTheNoteIsSaved) {
    preferences.values["closeAfterQuickSave"] = true;
    pageIs("https://a.example/", "A");
    press(CaptureAction::note);
    EXPECT_EQ(scripts.runs.size(), 1U);
    EXPECT_TRUE(saved(editors.at(0).link));
    EXPECT_EQ(scripts.runs.size(), 2U);
    EXPECT_EQ(lastWords(),
              Words("Saved & closed", "Your note and tags are safely in your library."));
}

TEST_F(DraftsTest, aTabThatChangedWhileTheNoteWasWrittenStaysOpen) {
    preferences.values["closeAfterQuickSave"] = true;
    closeAnswer = "false";
    pageIs("https://a.example/", "A");
    press(CaptureAction::note);
    EXPECT_TRUE(saved(editors.at(0).link));
    EXPECT_EQ(lastWords(),
              Words("Saved · tab left open",
                    "The tab changed or couldn’t be closed safely. Your note and tags are saved."));
}

TEST_F(DraftsTest, cancellingThePanelLeavesTheTabOpenAndSavesNothing) {
    preferences.values["closeAfterQuickSave"] = true;
    pageIs("https://a.example/", "A");
    press(CaptureAction::note);
    model().discardDraft();
    settle();
    EXPECT_EQ(scripts.runs.size(), 1U);
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_TRUE(notices.empty());
}

TEST_F(DraftsTest, anInvalidAddressKeepsThePanelOpen) {
    model().beginDraft(link("no address", "A"), CaptureAction::note, {});
    EXPECT_FALSE(saved(editors.at(0).link));
    EXPECT_EQ(lastWords(), Words("Couldn’t save this link", "The web address is invalid."));
    EXPECT_TRUE(notices.back().isError);
    EXPECT_EQ(editorsClosed, 0);
    EXPECT_TRUE(model().draft());
}

TEST_F(DraftsTest, aFailedWriteKeepsThePanelAndAllThatWasTyped) {
    model();
    breakWrites();
    pageIs("https://a.example/", "A");
    press(CaptureAction::note);
    EXPECT_FALSE(saved(editors.at(0).link));
    EXPECT_EQ(lastWords().first, "Couldn’t save your tab");
    EXPECT_EQ(editorsClosed, 0);
    EXPECT_TRUE(model().draft());
}

// The tab selection.

class TabSelectionTest : public Desk {
protected:
    TabSelectionTest() {
        tabsAre({entry("https://a.example/1", "One"), entry("https://a.example/2", "Two"),
                 entry("https://a.example/3", "Three")});
    }
};

TEST_F(TabSelectionTest, opensWithEveryTabOfTheWindowChosen) {
    press(CaptureAction::selected);
    ASSERT_EQ(selections.size(), 1U);
    EXPECT_EQ(selections[0].links.size(), 3U);
    EXPECT_EQ(selections[0].selected.size(), 3U);
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_FALSE(model().isCapturing());
}

TEST_F(TabSelectionTest, savesTheChosenTabsInBrowserOrder) {
    press(CaptureAction::selected);
    const auto& links = selections.at(0).links;
    model().updateTabSelection({links[2].id, links[0].id});
    model().saveTabSelection();
    EXPECT_THAT(titles(), ElementsAre("One", "Three"));
    EXPECT_EQ(selectionsClosed, 1);
    EXPECT_EQ(model().tabSelection(), std::nullopt);
    EXPECT_EQ(lastWords().first, "2 tabs saved");
}

TEST_F(TabSelectionTest, withNothingChosenThePanelStays) {
    press(CaptureAction::selected);
    model().updateTabSelection({});
    model().saveTabSelection();
    EXPECT_EQ(selectionsClosed, 0);
    EXPECT_TRUE(model().tabSelection());
    EXPECT_THAT(titles(), IsEmpty());
}

TEST_F(TabSelectionTest, withoutADraftNothingHappens) {
    model().updateTabSelection({clock.newUuid()});
    model().saveTabSelection();
    EXPECT_EQ(model().tabSelection(), std::nullopt);
    EXPECT_EQ(selectionsClosed, 0);
}

TEST_F(TabSelectionTest, aCancelledSelectionSavesNothing) {
    press(CaptureAction::selected);
    model().discardTabSelection();
    model().saveTabSelection();
    EXPECT_THAT(titles(), IsEmpty());
}

// A link that is typed in.

class AddingTest : public DraftsTest {
protected:
    bool add(const std::string& note, const std::vector<std::string>& tags) {
        std::optional<bool> added;
        auto task = [&]() -> QCoro::Task<> {
            added = co_await model().add("https://a.example/", "A", "Inbox", note, tags);
        };
        task();
        settle();
        return added.value_or(false);
    }
    std::vector<std::int64_t> counts() {
        return {counted(UsageEvent::linksSaved), counted(UsageEvent::noteSaved),
                counted(UsageEvent::tagsSaved)};
    }
};

TEST_F(AddingTest, countsTheLinkItsNoteAndItsTagsOnce) {
    EXPECT_TRUE(add("why", {"one", "two"}));
    EXPECT_THAT(counts(), ElementsAre(1, 1, 1));
    EXPECT_TRUE(add("why", {"one", "two"}));
    EXPECT_THAT(counts(), ElementsAre(1, 1, 1)) << "it is known already";
}

TEST_F(AddingTest, countsNoNoteAndNoTagsWhereThereAreNone) {
    EXPECT_TRUE(add("", {" # "}));
    EXPECT_THAT(counts(), ElementsAre(1, 0, 0));
}

TEST_F(AddingTest, countsNothingThatCannotBeWritten) {
    model();
    breakWrites();
    EXPECT_FALSE(add("why", {"one"}));
    EXPECT_THAT(counts(), ElementsAre(0, 0, 0));
}

} // namespace
} // namespace brinmoor
