#include "screens/TagsScreen.h"

#include "platform/memory/MemoryPreferences.h"
#include "tests/app/Desk.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using namespace testing;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TagsScreenTest : public Desk {
protected:
    void SetUp() override {
        SavedLink first = link("https://a.example/", "A");
        first.tags = {"travel", "Maps"};
        SavedLink second = link("https://b.example/", "B");
        second.tags = {"travel", "baking"};
        SavedLink archived = link("https://c.example/", "C");
        archived.tags = {"old"};
        archived.isArchived = true;
        given(libraryOf({first, second, archived}));
        model().setSection(AppSection::tags);
    }
    ~TagsScreenTest() override { endModel(); }

    static std::vector<std::string> rows(const TagsScreen& screen) {
        std::vector<std::string> shown;
        for (int row = 0; row < screen.rowCount(); ++row)
            shown.push_back(textAt(screen, row, TagsScreen::NameRole) + " " +
                            textAt(screen, row, TagsScreen::CountTextRole));
        return shown;
    }
    static std::string textAt(const TagsScreen& screen, int row, int role) {
        return screen.data(screen.index(row), role).toString().toStdString();
    }
    /// Renames the tag in this row to this text.
    static void rename(TagsScreen& screen, int row, const QString& to) {
        screen.beginRename(row);
        screen.setDraft(to);
        screen.saveRename();
    }
    const SavedLink& stored(std::size_t place) { return model().library().links.at(place); }
};

TEST_F(TagsScreenTest, everyTagIsListedWithItsCountThoseOfArchivedLinksToo) {
    const TagsScreen screen(model());
    EXPECT_THAT(rows(screen),
                ElementsAre("baking 1 link", "Maps 1 link", "old 1 link", "travel 2 links"));
    EXPECT_EQ(screen.count(), 4);
}

TEST_F(TagsScreenTest, theOrderIsRemembered) {
    {
        TagsScreen screen(model());
        EXPECT_EQ(screen.sortText(), u"Alphabetical"_qs);
        screen.sortByMostLinks();
        EXPECT_EQ(screen.sortText(), u"Most links"_qs);
        EXPECT_THAT(rows(screen),
                    ElementsAre("travel 2 links", "baking 1 link", "Maps 1 link", "old 1 link"));
    }
    EXPECT_EQ(preferences.text("tagSummarySortOrder"), "mostLinks");
    TagsScreen screen(model());
    EXPECT_TRUE(screen.byMostLinks());
    screen.sortAlphabetically();
    EXPECT_EQ(rows(screen).front(), "baking 1 link");
}

TEST_F(TagsScreenTest, anUnknownOrderIsTheAlphabet) {
    preferences.set("tagSummarySortOrder", std::string("random"));
    EXPECT_FALSE(TagsScreen(model()).byMostLinks());
}

TEST_F(TagsScreenTest, selectingATagShowsItsLinks) {
    TagsScreen screen(model());
    screen.select(1);
    EXPECT_EQ(model().section(), AppSection::library);
    EXPECT_EQ(model().view().selectedTag, "Maps");
}

TEST_F(TagsScreenTest, aRenameChangesEveryLinkAndSaysSo) {
    TagsScreen screen(model());
    screen.beginRename(3);
    EXPECT_EQ(screen.editingRow(), 3);
    EXPECT_EQ(screen.draft(), u"travel"_qs);
    screen.setDraft(u" #Journeys "_qs);
    screen.saveRename();
    EXPECT_EQ(screen.editingRow(), -1);
    EXPECT_THAT(rows(screen),
                ElementsAre("baking 1 link", "Journeys 2 links", "Maps 1 link", "old 1 link"));
    EXPECT_EQ(lastWords(), Words("Brinmoor", "Tag updated on (changed) links"));
}

TEST_F(TagsScreenTest, onlyAnotherLetterCaseClosesTheRowAndChangesNothing) {
    TagsScreen screen(model());
    rename(screen, 3, u"TRAVEL"_qs);
    EXPECT_EQ(screen.editingRow(), -1);
    EXPECT_THAT(stored(0).tags, ElementsAre("travel", "Maps"));
    EXPECT_THAT(notices, IsEmpty());
}

TEST_F(TagsScreenTest, onlyBlanksCloseTheRowAndChangeNothing) {
    TagsScreen screen(model());
    rename(screen, 3, u" # "_qs);
    EXPECT_EQ(screen.editingRow(), -1);
    EXPECT_THAT(stored(0).tags, ElementsAre("travel", "Maps"));
    EXPECT_THAT(notices, IsEmpty());
}

TEST_F(TagsScreenTest, theNameOfAnotherTagMergesThemInEachLink) {
    TagsScreen screen(model());
    rename(screen, 1, u"travel"_qs);
    EXPECT_THAT(stored(0).tags, ElementsAre("travel"));
    EXPECT_THAT(rows(screen), ElementsAre("baking 1 link", "old 1 link", "travel 2 links"));
    EXPECT_EQ(lastWords(), Words("Brinmoor", "Tag updated on 1 link"));
}

TEST_F(TagsScreenTest, aRenameThatCannotBeWrittenStaysInTheRow) {
    TagsScreen screen(model());
    breakWrites();
    rename(screen, 3, u"Journeys"_qs);
    EXPECT_EQ(screen.editingRow(), 3);
    EXPECT_EQ(screen.draft(), u"Journeys"_qs);
    EXPECT_TRUE(model().error().has_value());
}

TEST_F(TagsScreenTest, aCancelledRenameChangesNothing) {
    TagsScreen screen(model());
    screen.beginRename(0);
    screen.setDraft(u"Journeys"_qs);
    screen.cancelRename();
    EXPECT_EQ(screen.editingRow(), -1);
    screen.saveRename();
    EXPECT_EQ(rows(screen).front(), "baking 1 link");
}

TEST_F(TagsScreenTest, removingAsksInTheWordsOfTheTag) {
    TagsScreen screen(model());
    screen.askRemoval(3);
    EXPECT_TRUE(screen.asksForRemoval());
    EXPECT_EQ(screen.removalTitle(), u"Remove #travel?"_qs);
    EXPECT_EQ(
        screen.removalMessage(),
        u"The links will stay in your library. Only this tag will be removed from 2 links."_qs);
    screen.cancelRemoval();
    EXPECT_FALSE(screen.asksForRemoval());
    screen.askRemoval(0);
    EXPECT_TRUE(screen.removalMessage().endsWith(u" removed from 1 link."_qs));
    EXPECT_EQ(screen.count(), 4);
}

TEST_F(TagsScreenTest, aRemovedTagLeavesItsLinksAndCanBeTakenBack) {
    TagsScreen screen(model());
    screen.askRemoval(3);
    screen.confirmRemoval();
    EXPECT_FALSE(screen.asksForRemoval());
    EXPECT_EQ(titles().size(), 3U);
    EXPECT_THAT(rows(screen), ElementsAre("baking 1 link", "Maps 1 link", "old 1 link"));
    EXPECT_EQ(lastWords(), Words("Brinmoor", "Tag removed from (changed) links"));
    model().undoLastAction();
    EXPECT_EQ(screen.count(), 4);
}

TEST_F(TagsScreenTest, nobodyLooksNothingIsCounted) {
    model().setSection(AppSection::library);
    const TagsScreen screen(model());
    EXPECT_EQ(screen.count(), 0);
    model().setSection(AppSection::tags);
    EXPECT_EQ(screen.count(), 4);
}

} // namespace
} // namespace brinmoor
