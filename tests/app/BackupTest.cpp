#include "tests/app/Desk.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using testing::Desk;
using ::testing::ElementsAre;
using ::testing::StartsWith;
using testing::Words;

class BackupTest : public Desk {
protected:
    [[nodiscard]] std::string place() const { return folder.path("backup.json"); }
    void backupIs(const Library& library) { ASSERT_TRUE(LibraryFile(place()).save(library).ok()); }
    void import() {
        model().importLibrary();
        files.answer(place());
    }
};

TEST_F(BackupTest, anExportIsTheLibraryInTheChosenPlace) {
    given(libraryOf({link("https://a.example/", "A")}));
    model().exportLibrary();
    EXPECT_THAT(files.suggested, ElementsAre("Brinmoor-backup.json"));
    files.answer(place());
    EXPECT_EQ(LibraryFile(place()).load().value(), model().library());
    EXPECT_EQ(lastWords(), Words("Brinmoor", "Library exported"));
}

TEST_F(BackupTest, aCancelledDialogDoesNothing) {
    model().exportLibrary();
    files.answer(std::nullopt);
    model().importLibrary();
    files.answer(std::nullopt);
    EXPECT_TRUE(notices.empty());
    EXPECT_EQ(model().error(), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(libraryPath()));
}

TEST_F(BackupTest, anExportThatCannotBeWrittenSaysSo) {
    std::filesystem::create_directories(place() + "/in the way");
    model().exportLibrary();
    files.answer(place());
    EXPECT_THAT(*model().error(), StartsWith("Export failed: "));
    EXPECT_TRUE(notices.empty());
}

TEST_F(BackupTest, importedLinksStandInFrontInTheOrderOfTheBackup) {
    given(libraryOf({link("https://mine.example/", "Mine")}));
    SavedLink first = link("https://one.example/", "One");
    first.isArchived = true;
    first.isFavorite = true;
    first.importance = LinkImportance::important;
    first.tags = {"t"};
    first.note = "n";
    first.collection = "Elsewhere";
    const Library backup = libraryOf({first, link("https://two.example/", "Two")});
    backupIs(backup);
    import();
    EXPECT_THAT(titles(), ElementsAre("One", "Two", "Mine"));
    SavedLink expected = first;
    expected.id = model().library().links.front().id;
    EXPECT_NE(expected.id, first.id);
    EXPECT_EQ(model().library().links.front(), expected);
    EXPECT_THAT(model().library().collections,
                ElementsAre("Inbox", "Inspiration", "Read later", "Elsewhere"));
    EXPECT_EQ(lastWords(), Words("Brinmoor", "Imported 2 links"));
    EXPECT_EQ(counted(UsageEvent::linksSaved), 2);
}

TEST_F(BackupTest, anImportIsUndoneInOneStep) {
    given(libraryOf({link("https://mine.example/", "Mine")}));
    const Library before = model().library();
    backupIs(libraryOf({link("https://one.example/", "One"), link("https://two.example/", "Two")}));
    import();
    model().undoLastAction();
    EXPECT_EQ(lastWords(), Words("Undone", "Import Links reverted."));
    EXPECT_EQ(model().library(), before);
}

TEST_F(BackupTest, theLibraryKeepsItsOwnVersionOfAKnownLink) {
    SavedLink mine = link("https://a.example/", "Mine");
    mine.note = "My note";
    given(libraryOf({mine}));
    backupIs(libraryOf({link("https://A.EXAMPLE", "Theirs"), link("https://b.example/", "B")}));
    import();
    EXPECT_THAT(titles(), ElementsAre("B", "Mine"));
    EXPECT_EQ(lastWords().second, "Imported 1 links");
}

TEST_F(BackupTest, itsOwnExportImportsNothingAndKeepsTheUndo) {
    given(libraryOf({link("https://a.example/", "A"), link("https://b.example/", "B")}));
    model().deleteLink(model().library().links.front());
    model().exportLibrary();
    files.answer(place());
    import();
    EXPECT_EQ(lastWords(), Words("Brinmoor", "Imported 0 links"));
    model().undoLastAction();
    EXPECT_EQ(lastWords(), Words("Undone", "Delete Link reverted."));
}

TEST_F(BackupTest, linksWithTheSameIdInABackupDoNotCollide) {
    SavedLink first = link("https://one.example/", "One");
    SavedLink second = link("https://two.example/", "Two");
    second.id = first.id;
    backupIs(libraryOf({first, second}));
    import();
    ASSERT_EQ(model().library().links.size(), 2);
    EXPECT_NE(model().library().links[0].id, model().library().links[1].id);
}

TEST_F(BackupTest, theNamesOfTheSectionsAreNoCollectionsUnlessALinkHasOne) {
    Library backup;
    backup.collections = {"Archive", "All links", "Favorites", "New", "Inbox"};
    backupIs(backup);
    import();
    EXPECT_THAT(model().library().collections,
                ElementsAre("Inbox", "Inspiration", "Read later", "New"));
    SavedLink archived = link("https://a.example/", "A");
    archived.collection = "Archive";
    backupIs(libraryOf({archived}));
    import();
    EXPECT_THAT(model().library().collections,
                ElementsAre("Inbox", "Inspiration", "Read later", "New", "Archive"));
}

TEST_F(BackupTest, aBadBackupChangesNothing) {
    given(libraryOf({link("https://a.example/", "A")}));
    const Library before = model().library();
    for (const std::string bytes :
         {"", "not json", R"({"version":2,"links":[],"collections":[]})", "{\"version\":1"}) {
        testing::writeBytes(place(), bytes);
        model().dismissError();
        import();
        EXPECT_THAT(*model().error(), StartsWith("This backup couldn’t be imported. ")) << bytes;
        EXPECT_EQ(model().library(), before);
    }
    EXPECT_TRUE(notices.empty());
}

TEST_F(BackupTest, withALockedLibraryAnImportIsRefusedAndAnExportRuns) {
    givenBytes("not json");
    backupIs(libraryOf({link("https://a.example/", "A")}));
    import();
    EXPECT_THAT(*model().error(), StartsWith("Your library couldn’t be opened. Restore"));
    EXPECT_EQ(fileBytes(), "not json");
    model().exportLibrary();
    files.answer(place());
    EXPECT_EQ(LibraryFile(place()).load().value(), Library());
    EXPECT_EQ(lastWords(), Words("Brinmoor", "Library exported"));
}

TEST_F(BackupTest, anAnswerAfterTheModelIsGoneTouchesNothing) {
    backupIs(libraryOf({link("https://a.example/", "A")}));
    model().importLibrary();
    endModel();
    files.answer(place());
    EXPECT_FALSE(std::filesystem::exists(libraryPath()));
}

TEST_F(BackupTest, anImportThatCannotBeWrittenChangesNothing) {
    model();
    backupIs(libraryOf({link("https://a.example/", "A")}));
    breakWrites();
    import();
    EXPECT_THAT(*model().error(), StartsWith("Couldn’t write to your library. "));
    EXPECT_TRUE(model().library().links.empty());
    EXPECT_TRUE(notices.empty());
}

} // namespace
} // namespace brinmoor
