// The sheets over the library and the tags screen, by real keys and clicks.

#include "app/TabCleanup.h"
#include "platform/memory/MemoryPreferences.h"
#include "tests/screens/PanelDesk.h"
#include "tests/support/TabRecords.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using namespace testing;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class SheetsTest : public PanelDesk {
protected:
    void SetUp() override {
        SavedLink stored = link("https://a.example/", "Stored");
        stored.tags = {"spring", "sport"};
        SavedLink other = link("https://b.example/", "Other");
        other.tags = {"boats"};
        given(libraryOf({stored, other}));
        preferences.set("tabCleanupEnabled", true);
        preferences.set("tabCleanupDomains", PreferenceData{R"(["tabs.test"])"});
        model().completeOnboarding();
        panel = panels.libraryWindow(model());
        panel->makeKeyAndOrderFront();
        ASSERT_TRUE(becomesActive(*panel));
    }
    QQuickItem* root() { return viewOf(*panel).rootObject(); }
    QQuickItem* focused() { return viewOf(*panel).activeFocusItem(); }
    /// The keyboard is in the field with this hint.
    [[nodiscard]] bool inField(const QString& hint) {
        return waitUntil(
            [&] { return focused() && focused()->property("hint").toString() == hint; });
    }
    [[nodiscard]] bool onButton(const QString& text) {
        return waitUntil(
            [&] { return focused() && focused()->property("text").toString() == text; });
    }
    [[nodiscard]] bool typed(const QString& text) {
        return waitUntil(
            [&] { return focused() && focused()->property("text").toString() == text; });
    }
    void openAdd() {
        model().setShowingAdd(true);
        ASSERT_TRUE(inField(u"https://"_qs));
    }
    void openDetail() {
        model().setSelectedID(model().library().links[0].id);
        ASSERT_TRUE(typed(u"Stored"_qs));
    }
    /// Waits until the menu is there and chooses its entry by its place.
    void choose(int place) {
        ASSERT_TRUE(waitUntil([&] { return itemOf(overlay(), u"MenuEntry"_qs) != nullptr; }));
        for (int step = 0; step < place; ++step)
            desktop.press(Key::down);
        desktop.press(Key::enter);
        // It fades away; only then it can be opened anew.
        ASSERT_TRUE(waitUntil([&] { return itemOf(overlay(), u"MenuEntry"_qs) == nullptr; }));
    }
    const std::optional<TabCleanupDraft>& review() { return model().tabCleanup().cleanupReview(); }
    void openReview() {
        scripts.answer = [](const ScriptRun& run) {
            const bool isReading = runs(run, "readBrowserTabsForCleanup");
            return CannedScripts::Answer(
                isReading ? tabList("org.chromium.Chromium", {{"https://tabs.test/1", "One", 1, 1},
                                                              {"https://tabs.test/2", "Two", 1, 2}})
                          : QByteArray("1"));
        };
        model().tabCleanup().runTabCleanup();
        // A list gives the keyboard to its present row.
        ASSERT_TRUE(waitUntil(
            [&] { return focused() && focused() == itemOf(root(), u"CleanupReviewRow"_qs); }));
    }
    /// Opens a sheet below the review, which keeps the keyboard.
    void openBelow(const std::function<void()>& opening, const QString& sheet) {
        QQuickItem* before = focused();
        opening();
        ASSERT_TRUE(waitUntil([&] { return itemOf(root(), sheet) != nullptr; }));
        settle();
        EXPECT_EQ(focused(), before) << sheet.toStdString();
    }
    QQuickItem* overlay() { return viewOf(*panel).contentItem(); }

    std::unique_ptr<Panel> panel;
};

TEST_F(SheetsTest, aLinkIsAddedByTheKeyboardAlone) {
    openAdd();
    desktop.type("c");
    ASSERT_TRUE(typed(u"c"_qs));
    desktop.press(Key::escape);
    ASSERT_TRUE(waitUntil([&] { return !model().isShowingAdd(); }));
    pasteboard.copy("https://c.example/");
    openAdd();
    desktop.press(Key::tab);
    ASSERT_TRUE(onButton(u"Paste URL"_qs));
    desktop.press(Key::enter);
    ASSERT_TRUE(typed(u"https://c.example/"_qs));
    desktop.press(Key::enter);
    ASSERT_TRUE(waitUntil([&] { return !model().isShowingAdd(); }));
    EXPECT_EQ(model().library().links[0].url, "https://c.example/");
}

TEST_F(SheetsTest, aFailedAddShowsTheErrorAboveTheSheetAndGivesTheKeyboardBack) {
    openAdd();
    desktop.type("nonsense");
    ASSERT_TRUE(typed(u"nonsense"_qs));
    desktop.press(Key::enter);
    ASSERT_TRUE(waitUntil([&] { return model().error().has_value(); }));
    ASSERT_TRUE(onButton(u"OK"_qs));
    desktop.press(Key::enter);
    ASSERT_TRUE(waitUntil([&] { return !model().error().has_value(); }));
    EXPECT_TRUE(model().isShowingAdd());
    EXPECT_TRUE(typed(u"nonsense"_qs));
}

TEST_F(SheetsTest, enterInTheTagFieldMakesATagThenSaves) {
    openDetail();
    click(*panel, u"TagEditor"_qs);
    ASSERT_TRUE(inField(u"Add a tag"_qs));
    desktop.type("sea, boa");
    ASSERT_TRUE(typed(u"sea, boa"_qs));
    desktop.press(Key::enter);
    ASSERT_TRUE(typed({}));
    EXPECT_TRUE(model().selectedID().has_value());
    desktop.press(Key::enter);
    ASSERT_TRUE(waitUntil([&] { return !model().selectedID().has_value(); }));
    EXPECT_THAT(model().library().links[0].tags, ElementsAre("spring", "sport", "sea", "boa"));
}

TEST_F(SheetsTest, tabCompletesATagAndShiftTabNeverDoes) {
    openDetail();
    click(*panel, u"TagEditor"_qs);
    ASSERT_TRUE(inField(u"Add a tag"_qs));
    desktop.type("bo");
    ASSERT_TRUE(typed(u"bo"_qs));
    desktop.press(Key::tab, {"Shift"});
    ASSERT_TRUE(waitUntil([&] { return focused()->property("hint").toString() != u"Add a tag"; }));
    desktop.press(Key::tab);
    // The chips stand before the field.
    for (int chip = 0; chip < 3 && !typed(u"bo"_qs); ++chip)
        desktop.press(Key::tab);
    ASSERT_TRUE(typed(u"bo"_qs));
    desktop.press(Key::tab);
    ASSERT_TRUE(typed({}));
    EXPECT_TRUE(inField(u"Add a tag"_qs));
    desktop.press(Key::enter, {"Ctrl"});
    ASSERT_TRUE(waitUntil([&] { return !model().selectedID().has_value(); }));
    EXPECT_THAT(model().library().links[0].tags, ElementsAre("spring", "sport", "boats"));
}

TEST_F(SheetsTest, deletingIsAskedAboutWithTheKeyboardOnCancel) {
    openDetail();
    click(*panel, u"IconButton"_qs, u"More"_qs);
    choose(2);
    ASSERT_TRUE(onButton(u"Cancel"_qs));
    desktop.press(Key::enter);
    ASSERT_TRUE(onButton(u"More"_qs));
    EXPECT_EQ(titles().size(), 2U);
    click(*panel, u"IconButton"_qs, u"More"_qs);
    choose(2);
    ASSERT_TRUE(onButton(u"Cancel"_qs));
    desktop.press(Key::tab);
    ASSERT_TRUE(onButton(u"Delete"_qs));
    desktop.press(Key::enter);
    ASSERT_TRUE(waitUntil([&] { return titles().size() == 1; }));
    EXPECT_FALSE(model().selectedID().has_value());
}

TEST_F(SheetsTest, theEMailIsHandedOverByEnter) {
    model().share(model().library().links[0]);
    ASSERT_TRUE(typed(u"Stored"_qs));
    desktop.press(Key::tab);
    ASSERT_TRUE(onButton(u"Include a note"_qs));
    desktop.press(Key::space);
    desktop.type("look");
    ASSERT_TRUE(typed(u"look"_qs));
    desktop.press(Key::enter, {"Ctrl"});
    ASSERT_TRUE(waitUntil([&] { return opener.mails.size() == 1; }));
    EXPECT_EQ(opener.mails[0].body, "look\n\nStored\nhttps://a.example/");
    EXPECT_FALSE(model().sharingLink().has_value());
    EXPECT_EQ(model().library().links[0].note, "");
}

TEST_F(SheetsTest, theReviewClosesWhatIsLeftChecked) {
    openReview();
    desktop.press(Key::space);
    ASSERT_TRUE(waitUntil([&] { return review()->selected.size() == 1; }));
    desktop.press(Key::enter);
    ASSERT_TRUE(waitUntil([&] { return !notices.empty(); }));
    EXPECT_FALSE(review().has_value());
    EXPECT_EQ(lastWords(), Words("Tabs cleaned up", "1 tab closed."));
    EXPECT_THAT(scripts.runs.back().script, HasSubstr("https://tabs.test/2"));
}

TEST_F(SheetsTest, theReviewAboveASheetGivesTheKeyboardBack) {
    openAdd();
    openReview();
    desktop.press(Key::escape);
    ASSERT_TRUE(waitUntil([&] { return !review().has_value(); }));
    EXPECT_TRUE(model().isShowingAdd());
    EXPECT_TRUE(inField(u"https://"_qs));
}

TEST_F(SheetsTest, aSheetThatOpensBelowAnotherWaitsForTheKeyboard) {
    openReview();
    openBelow([&] { model().setShowingAdd(true); }, u"AddSheet"_qs);
    openBelow([&] { model().setSelectedID(model().library().links[0].id); }, u"DetailSheet"_qs);
    desktop.press(Key::escape);
    ASSERT_TRUE(waitUntil([&] { return !review().has_value(); }));
    ASSERT_TRUE(typed(u"Stored"_qs));
    desktop.press(Key::escape);
    ASSERT_TRUE(waitUntil([&] { return !model().selectedID().has_value(); }));
    EXPECT_TRUE(inField(u"https://"_qs));
}

TEST_F(SheetsTest, addingALinkWaitsUntilNoOtherSheetStands) {
    openDetail();
    model().presentAdd();
    EXPECT_FALSE(model().isShowingAdd());
    model().setSelectedID({});
    model().share(model().library().links[0]);
    model().presentAdd();
    EXPECT_FALSE(model().isShowingAdd());
    model().endSharing();
    openReview();
    model().presentAdd();
    EXPECT_FALSE(model().isShowingAdd());
    desktop.press(Key::escape);
    ASSERT_TRUE(waitUntil([&] { return !review().has_value(); }));
    model().setShowingOnboarding(true);
    model().presentAdd();
    EXPECT_FALSE(model().isShowingAdd());
    model().setShowingOnboarding(false);
    model().presentAdd();
    EXPECT_TRUE(model().isShowingAdd());
}

TEST_F(SheetsTest, theCopyOfAnEMailSaysThatItIsMade) {
    model().share(model().library().links[0]);
    ASSERT_TRUE(typed(u"Stored"_qs));
    click(*panel, u"TextButton"_qs, u"Copy email text"_qs);
    ASSERT_TRUE(
        waitUntil([&] { return itemOf(root(), u"TextButton"_qs, u"Copied"_qs) != nullptr; }));
    EXPECT_EQ(pasteboard.text(), "Stored\nhttps://a.example/");
    EXPECT_TRUE(waitUntil(
        [&] { return itemOf(root(), u"TextButton"_qs, u"Copy email text"_qs) != nullptr; }));
}

TEST_F(SheetsTest, aLongTitleIsShortenedWhileNobodyWritesInIt) {
    openDetail();
    QQuickItem* title = focused();
    title->setProperty("text", u"A long title "_qs.repeated(30));
    EXPECT_FALSE(title->property("shortened").toBool());
    desktop.press(Key::tab);
    ASSERT_TRUE(waitUntil([&] { return !title->hasActiveFocus(); }));
    EXPECT_TRUE(title->property("shortened").toBool());
    const auto parts = title->childItems();
    EXPECT_TRUE(std::ranges::any_of(parts, [](const QQuickItem* part) {
        return part->isVisible() && part->property("truncated").toBool();
    }));
}

TEST_F(SheetsTest, withNoneCheckedTheReviewStaysAndEscapeClearsIt) {
    openReview();
    click(*panel, u"TextButton"_qs, u"Select none"_qs);
    ASSERT_TRUE(waitUntil([&] { return review()->selected.empty(); }));
    const auto before = scripts.runs.size();
    desktop.press(Key::enter);
    settle();
    ASSERT_TRUE(review().has_value());
    desktop.press(Key::escape);
    EXPECT_TRUE(waitUntil([&] { return !review().has_value(); }));
    EXPECT_EQ(scripts.runs.size(), before);
}

TEST_F(SheetsTest, aTagIsRenamedAndRemovedByTheKeyboardAlone) {
    model().setSection(AppSection::tags);
    ASSERT_TRUE(waitUntil([&] { return itemOf(root(), u"TagRow"_qs) != nullptr; }));
    desktop.press(0xffbf); // F2
    ASSERT_TRUE(typed(u"boats"_qs));
    desktop.type("ships");
    ASSERT_TRUE(typed(u"ships"_qs));
    desktop.press(Key::enter);
    ASSERT_TRUE(waitUntil([&] { return model().library().links[1].tags.front() == "ships"; }));
    desktop.press(Key::down);
    desktop.press(0xffff); // Delete
    ASSERT_TRUE(onButton(u"Cancel"_qs));
    desktop.press(Key::tab);
    ASSERT_TRUE(onButton(u"Remove tag"_qs));
    desktop.press(Key::enter);
    ASSERT_TRUE(waitUntil([&] { return model().library().links[0].tags.size() == 1; }));
    EXPECT_THAT(model().library().links[0].tags, ElementsAre("spring"));
}

TEST_F(SheetsTest, aChangeOfTheLibraryLeavesTheCursorOfARenameWhereItIs) {
    model().setSection(AppSection::tags);
    ASSERT_TRUE(waitUntil([&] { return itemOf(root(), u"TagRow"_qs) != nullptr; }));
    desktop.press(0xffbf); // F2
    ASSERT_TRUE(typed(u"boats"_qs));
    desktop.type("ship");
    ASSERT_TRUE(typed(u"ship"_qs));
    model().toggleFavorite(model().library().links[0].id);
    ASSERT_TRUE(typed(u"ship"_qs));
    desktop.type("s");
    EXPECT_TRUE(typed(u"ships"_qs));
}

TEST_F(SheetsTest, aChangeOfTheLibraryUnderASheetLeavesItTheKeyboard) {
    model().setSection(AppSection::tags);
    ASSERT_TRUE(waitUntil([&] { return itemOf(root(), u"TagRow"_qs) != nullptr; }));
    desktop.press(0xffbf); // F2
    ASSERT_TRUE(typed(u"boats"_qs));
    openAdd();
    model().toggleFavorite(model().library().links[0].id);
    desktop.type("x");
    EXPECT_TRUE(inField(u"https://"_qs) && typed(u"x"_qs));
    desktop.press(Key::escape);
    EXPECT_TRUE(inField(u"Tag name"_qs));
}

TEST_F(SheetsTest, aClickOnATagShowsItsLinks) {
    model().setSection(AppSection::tags);
    ASSERT_TRUE(waitUntil([&] { return itemOf(root(), u"TagRow"_qs) != nullptr; }));
    click(*panel, u"TagRow"_qs);
    ASSERT_TRUE(waitUntil([&] { return model().section() == AppSection::library; }));
    EXPECT_EQ(model().view().selectedTag, "boats");
}

TEST_F(SheetsTest, theOrderOfTagsIsChosenInAMenu) {
    model().setSection(AppSection::tags);
    ASSERT_TRUE(waitUntil([&] { return itemOf(root(), u"TagRow"_qs) != nullptr; }));
    QMetaObject::invokeMethod(itemOf(root(), u"TagsView"_qs), "openMenu");
    choose(1);
    EXPECT_TRUE(waitUntil([&] { return preferences.text("tagSummarySortOrder") == "mostLinks"; }));
}

} // namespace
} // namespace brinmoor
