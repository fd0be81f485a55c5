// What the forms over the library decide: a link typed by hand, one under edit, one on its way
// into an e-mail.

#include "screens/AddForm.h"
#include "screens/DetailForm.h"
#include "screens/EmailShareForm.h"
#include "tests/app/Desk.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using namespace testing;
using ::testing::ElementsAre;

class LinkSheetsTest : public Desk {
protected:
    void SetUp() override {
        SavedLink stored = link("https://a.example/", "Stored");
        stored.note = "For Mara";
        stored.tags = {"spring", "sport"};
        given(libraryOf({stored, link("https://b.example/", "Other")}));
    }
    ~LinkSheetsTest() override { endModel(); }

    const SavedLink& stored(std::size_t place = 0) { return model().library().links.at(place); }
    void save(LinkForm& form) {
        form.save();
        EXPECT_TRUE(waitUntil([&] { return !form.isSaving(); }));
    }
};

TEST_F(LinkSheetsTest, anAddedLinkIsStoredWithAllThatWasTypedAndTheSheetCloses) {
    AddForm form(model());
    model().setShowingAdd(true);
    ASSERT_TRUE(form.isShown());
    form.setUrl(u"https://c.example/x"_qs);
    form.setTitle(u"Tides"_qs);
    form.setNote(u"A note"_qs);
    form.setTagInput(u"sea, boats"_qs);
    save(form);
    EXPECT_FALSE(form.isShown());
    EXPECT_FALSE(model().isShowingAdd());
    EXPECT_EQ(stored().url, "https://c.example/x");
    EXPECT_EQ(stored().title, "Tides");
    EXPECT_EQ(stored().note, "A note");
    EXPECT_EQ(stored().collection, "Inbox");
    EXPECT_THAT(stored().tags, ElementsAre("sea", "boats"));
}

TEST_F(LinkSheetsTest, aFailedAddKeepsTheSheetOpenWithWhatWasTypedAndShowsTheError) {
    AddForm form(model());
    model().setShowingAdd(true);
    form.setUrl(u"nonsense"_qs);
    form.setNote(u"A note"_qs);
    save(form);
    EXPECT_TRUE(form.isShown());
    EXPECT_EQ(form.url(), u"nonsense"_qs);
    EXPECT_EQ(form.note(), u"A note"_qs);
    EXPECT_EQ(model().error(), "Enter a complete web address beginning with https:// or http://.");
}

TEST_F(LinkSheetsTest, aWriteThatFailsKeepsTheSheetOpen) {
    AddForm form(model());
    model().setShowingAdd(true);
    form.setUrl(u"https://c.example/"_qs);
    breakWrites();
    save(form);
    EXPECT_TRUE(form.isShown());
    EXPECT_TRUE(model().error().has_value());
}

TEST_F(LinkSheetsTest, theAddSheetBeginsEmptyEachTime) {
    AddForm form(model());
    model().setShowingAdd(true);
    form.setUrl(u"https://c.example/"_qs);
    form.addSuggestion(u"sea"_qs);
    form.setTagInput(u"bo"_qs);
    form.cancel();
    EXPECT_FALSE(form.isShown());
    model().setShowingAdd(true);
    EXPECT_EQ(form.url(), QString());
    EXPECT_TRUE(form.tags().isEmpty());
    EXPECT_EQ(form.tagInput(), QString());
}

TEST_F(LinkSheetsTest, theCopiedTextIsPastedAsTheAddress) {
    AddForm form(model());
    pasteboard.copy(" https://c.example/x\n");
    form.pasteURL();
    EXPECT_EQ(form.url(), u"https://c.example/x"_qs);
    pasteboard.copyPicture();
    form.pasteURL();
    EXPECT_EQ(form.url(), u"https://c.example/x"_qs);
}

TEST_F(LinkSheetsTest, theTagsOfTheLibraryAreSuggested) {
    AddForm form(model());
    model().setShowingAdd(true);
    form.setTagInput(u"sp"_qs);
    EXPECT_EQ(form.suggestions(), QStringList({u"sport"_qs, u"spring"_qs}));
}

TEST_F(LinkSheetsTest, theSelectedLinkIsEditedInACopyUntilItIsSaved) {
    DetailForm form(model());
    EXPECT_FALSE(form.isShown());
    model().setSelectedID(stored().id);
    ASSERT_TRUE(form.isShown());
    EXPECT_EQ(form.title(), u"Stored"_qs);
    EXPECT_EQ(form.savedFrom(), u"Saved from Chromium"_qs);
    form.setTitle(u"Tides"_qs);
    form.setTagInput(u"sea"_qs);
    EXPECT_EQ(stored().title, "Stored");
    save(form);
    EXPECT_FALSE(form.isShown());
    EXPECT_EQ(model().selectedID(), std::nullopt);
    EXPECT_EQ(stored().title, "Tides");
    EXPECT_THAT(stored().tags, ElementsAre("spring", "sport", "sea"));
}

TEST_F(LinkSheetsTest, aCancelledEditChangesNothing) {
    DetailForm form(model());
    model().setSelectedID(stored().id);
    form.setNote(u"Other words"_qs);
    form.cancel();
    EXPECT_FALSE(form.isShown());
    EXPECT_EQ(stored().note, "For Mara");
    model().setSelectedID(stored().id);
    EXPECT_EQ(form.note(), u"For Mara"_qs);
}

TEST_F(LinkSheetsTest, aFailedUpdateKeepsTheSheetOpen) {
    DetailForm form(model());
    model().setSelectedID(stored().id);
    form.setTitle(u"Tides"_qs);
    breakWrites();
    save(form);
    EXPECT_TRUE(form.isShown());
    EXPECT_EQ(form.title(), u"Tides"_qs);
    EXPECT_TRUE(model().error().has_value());
}

TEST_F(LinkSheetsTest, aStarThatWasSetMeanwhileStays) {
    DetailForm form(model());
    model().setSelectedID(stored().id);
    model().toggleFavorite(stored().id);
    form.setTitle(u"Tides"_qs);
    save(form);
    EXPECT_TRUE(stored().isFavorite);
    EXPECT_EQ(stored().title, "Tides");
}

TEST_F(LinkSheetsTest, whatWasTypedStaysWhenTheLibraryChanges) {
    DetailForm form(model());
    model().setSelectedID(stored().id);
    form.setTitle(u"Tides"_qs);
    model().toggleFavorite(stored(1).id);
    EXPECT_EQ(form.title(), u"Tides"_qs);
}

TEST_F(LinkSheetsTest, archivingAndRestoringCloseTheSheet) {
    DetailForm form(model());
    model().setSelectedID(stored().id);
    EXPECT_FALSE(form.isArchived());
    form.toggleArchived();
    EXPECT_FALSE(form.isShown());
    EXPECT_TRUE(stored().isArchived);
    model().setSelectedID(stored().id);
    EXPECT_TRUE(form.isArchived());
    form.toggleArchived();
    EXPECT_FALSE(stored().isArchived);
}

TEST_F(LinkSheetsTest, aLinkIsDeletedOnlyAfterAQuestion) {
    DetailForm form(model());
    model().setSelectedID(stored().id);
    form.askDelete();
    EXPECT_TRUE(form.confirmingDelete());
    form.cancelDelete();
    EXPECT_FALSE(form.confirmingDelete());
    EXPECT_EQ(titles().size(), 2U);
    form.askDelete();
    form.confirmDelete();
    EXPECT_FALSE(form.isShown());
    EXPECT_THAT(titles(), ElementsAre("Other"));
    model().undoLastAction();
    EXPECT_THAT(titles(), ElementsAre("Stored", "Other"));
}

TEST_F(LinkSheetsTest, openingAndCopyingTheLinkLeaveTheSheetOpen) {
    DetailForm form(model());
    model().setSelectedID(stored().id);
    form.open();
    form.copyLink();
    EXPECT_THAT(opener.opened, ElementsAre("https://a.example/"));
    EXPECT_EQ(pasteboard.text(), "https://a.example/");
    EXPECT_TRUE(form.isShown());
}

TEST_F(LinkSheetsTest, aLinkThatGoesTakesItsSheetAlong) {
    DetailForm form(model());
    model().setSelectedID(stored().id);
    const SavedLink gone = stored();
    model().deleteLink(gone);
    EXPECT_FALSE(form.isShown());
}

TEST_F(LinkSheetsTest, theEMailBeginsWithTheLinksTitleAndACopyOfItsNoteLeftOut) {
    EmailShareForm form(model());
    model().share(stored());
    ASSERT_TRUE(form.isShown());
    EXPECT_EQ(form.subject(), u"Stored"_qs);
    EXPECT_EQ(form.note(), u"For Mara"_qs);
    EXPECT_FALSE(form.includeNote());
    form.copyText();
    EXPECT_EQ(pasteboard.text(), "Stored\nhttps://a.example/");
    EXPECT_TRUE(form.isShown());
}

TEST_F(LinkSheetsTest, theNoteOfTheEMailNeverReachesTheLibrary) {
    EmailShareForm form(model());
    model().share(stored());
    form.setIncludeNote(true);
    form.setNote(u" Look! \n"_qs);
    form.copyText();
    EXPECT_EQ(pasteboard.text(), "Look!\n\nStored\nhttps://a.example/");
    EXPECT_EQ(stored().note, "For Mara");
    form.setNote(u" \n"_qs);
    form.copyText();
    EXPECT_EQ(pasteboard.text(), "Stored\nhttps://a.example/");
}

TEST_F(LinkSheetsTest, theMailProgramGetsTheSubjectOnOneLineAndTheSheetCloses) {
    EmailShareForm form(model());
    model().share(stored());
    form.setSubject(u" For\nthe weekend "_qs);
    form.openMail();
    EXPECT_THAT(opener.mails, ElementsAre(MemorySystemOpener::Mail{"For the weekend",
                                                                   "Stored\nhttps://a.example/"}));
    EXPECT_FALSE(form.isShown());
    EXPECT_FALSE(model().sharingLink().has_value());
}

TEST_F(LinkSheetsTest, withoutAMailProgramTheSheetStaysAndSaysSo) {
    opener.takes = false;
    EmailShareForm form(model());
    model().share(stored());
    form.openMail();
    EXPECT_TRUE(form.isShown());
    EXPECT_EQ(form.error(), u"Mail isn’t available. Set up an email app, or copy this draft."_qs);
    form.cancel();
    model().share(stored(1));
    EXPECT_EQ(form.error(), QString());
    EXPECT_EQ(form.subject(), u"Other"_qs);
}

} // namespace
} // namespace brinmoor
