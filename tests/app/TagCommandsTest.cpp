#include "tests/app/Desk.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using testing::Desk;
using ::testing::ElementsAre;
using testing::Words;

class TagCommandsTest : public Desk {
protected:
    TagCommandsTest() {
        SavedLink first = link("https://a.example/", "A");
        first.tags = {"Café", "qt"};
        SavedLink second = link("https://b.example/", "B");
        second.tags = {"cafe"};
        given(libraryOf({first, second, link("https://c.example/", "C")}));
    }

    void refine(const std::string& tag) {
        LibraryFilter view = model().view();
        view.selectedTag = tag;
        model().setView(view);
    }
    std::vector<std::string> shown() {
        std::vector<std::string> titles;
        for (const SavedLink* each : model().view().visibleLinks(model().library().links))
            titles.push_back(each->title);
        return titles;
    }
};

TEST_F(TagCommandsTest, renamingTheChosenTagKeepsTheListUnderItsNewName) {
    refine("CAFÉ");
    const auto before = shown();
    ASSERT_TRUE(model().renameTag(" cafe ", " #Coffee "));
    EXPECT_EQ(model().view().selectedTag, "CAFÉ") << "the name is compared as it was given";
    refine("cafe ");
    ASSERT_TRUE(model().renameTag("coffee", "Espresso"));
    refine("espresso");
    EXPECT_EQ(shown(), before);
    ASSERT_TRUE(model().renameTag("Espresso", "#tea"));
    EXPECT_EQ(model().view().selectedTag, "tea");
    EXPECT_EQ(shown(), before);
}

TEST_F(TagCommandsTest, theWordsForManyLinksAreFixed) {
    ASSERT_TRUE(model().renameTag("cafe", "coffee"));
    EXPECT_EQ(lastWords(), Words("Brinmoor", "Tag updated on (changed) links"));
    ASSERT_TRUE(model().deleteTag("coffee"));
    EXPECT_EQ(lastWords(), Words("Brinmoor", "Tag removed from (changed) links"));
}

TEST_F(TagCommandsTest, theWordsForOneLinkHaveANumber) {
    ASSERT_TRUE(model().renameTag("QT", "qt6"));
    EXPECT_EQ(lastWords(), Words("Brinmoor", "Tag updated on 1 link"));
    ASSERT_TRUE(model().deleteTag("qt6"));
    EXPECT_EQ(lastWords(), Words("Brinmoor", "Tag removed from 1 link"));
}

TEST_F(TagCommandsTest, renamingAndRemovingCanBeUndone) {
    const Library before = model().library();
    ASSERT_TRUE(model().renameTag("cafe", "coffee"));
    model().undoLastAction();
    EXPECT_EQ(lastWords(), Words("Undone", "Rename Tag reverted."));
    EXPECT_EQ(model().library(), before);
    ASSERT_TRUE(model().deleteTag("cafe"));
    model().undoLastAction();
    EXPECT_EQ(lastWords(), Words("Undone", "Remove Tag reverted."));
    EXPECT_EQ(model().library(), before);
}

TEST_F(TagCommandsTest, removingTheChosenTagShowsAllLinksAgain) {
    refine("cafe");
    EXPECT_THAT(shown(), ElementsAre("A", "B"));
    ASSERT_TRUE(model().deleteTag("Café"));
    EXPECT_EQ(model().view().selectedTag, std::nullopt);
    EXPECT_THAT(shown(), ElementsAre("A", "B", "C"));
}

TEST_F(TagCommandsTest, anotherChosenTagStays) {
    refine("qt");
    ASSERT_TRUE(model().deleteTag("cafe"));
    ASSERT_TRUE(model().renameTag("qt6", "x") == false);
    EXPECT_EQ(model().view().selectedTag, "qt");
}

TEST_F(TagCommandsTest, aNameThatNobodyUsesOrOfHashSignsAloneChangesNothing) {
    EXPECT_FALSE(model().renameTag("unknown", "x"));
    EXPECT_FALSE(model().renameTag("cafe", " ## "));
    EXPECT_FALSE(model().renameTag(" ", "x"));
    EXPECT_FALSE(model().deleteTag("unknown"));
    EXPECT_TRUE(notices.empty());
    EXPECT_FALSE(model().hasLibraryUndo());
}

TEST_F(TagCommandsTest, aRenameThatCannotBeWrittenKeepsTheChosenTag) {
    refine("cafe");
    breakWrites();
    EXPECT_FALSE(model().renameTag("cafe", "coffee"));
    EXPECT_EQ(model().view().selectedTag, "cafe");
    EXPECT_TRUE(model().error());
}

// What the screen is set to.

TEST_F(TagCommandsTest, choosingATagShowsItInTheWholeLibrary) {
    LibraryFilter view{.filter = "Archive",
                       .query = "x",
                       .searchEverywhere = false,
                       .selectedTag = {},
                       .selectedDomain = "a.example",
                       .notesOnly = true};
    model().setView(view);
    model().setSection(AppSection::tags);
    model().selectTag("qt");
    EXPECT_EQ(model().section(), AppSection::library);
    EXPECT_EQ(
        model().view(),
        (LibraryFilter{
            .query = {}, .searchEverywhere = false, .selectedTag = "qt", .selectedDomain = {}}));
}

TEST_F(TagCommandsTest, clearingTheFiltersKeepsTheSection) {
    LibraryFilter view{.filter = "Archive",
                       .query = "x",
                       .searchEverywhere = false,
                       .selectedTag = "qt",
                       .selectedDomain = "a.example",
                       .notesOnly = true};
    model().setView(view);
    model().setSection(AppSection::tags);
    EXPECT_TRUE(model().hasRefinements());
    model().clearFilters();
    EXPECT_EQ(model().section(), AppSection::tags);
    EXPECT_EQ(
        model().view(),
        (LibraryFilter{.filter = "Archive", .query = {}, .selectedTag = {}, .selectedDomain = {}}));
    EXPECT_FALSE(model().hasRefinements());
}

// The tour.

TEST_F(TagCommandsTest, theTourIsShownUntilItIsFinished) {
    EXPECT_TRUE(model().isShowingOnboarding());
    EXPECT_FALSE(model().onboardingCompleted());
    model().completeOnboarding();
    EXPECT_FALSE(model().isShowingOnboarding());
    model().showOnboardingIfNeededForActiveAccount();
    EXPECT_FALSE(model().isShowingOnboarding());
    endModel();
    EXPECT_TRUE(model().onboardingCompleted());
    EXPECT_FALSE(model().isShowingOnboarding());
}

TEST_F(TagCommandsTest, noTourCoversALibraryThatCannotBeRead) {
    givenBytes("not json");
    EXPECT_FALSE(model().isShowingOnboarding());
    model().showOnboardingIfNeededForActiveAccount();
    EXPECT_FALSE(model().isShowingOnboarding());
}

} // namespace
} // namespace brinmoor
