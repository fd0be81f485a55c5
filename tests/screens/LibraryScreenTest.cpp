#include "screens/AppRoot.h"
#include "tests/screens/LibraryDesk.h"

namespace brinmoor {
namespace {

using namespace testing;

constexpr std::uint32_t letterE = 0x65;
constexpr std::uint32_t digitThree = 0x33;

class LibraryScreenTest : public LibraryDesk {
protected:
    LibrarySearch& search() { return *screen().search(); }
    /// A question over the window is answered by the button with this text.
    void answer(const QString& button) { clickOn(u"BaseButton"_qs, button); }
    void openRowMenu(const QString& title) {
        static_cast<void>(view().grabWindow()); // every row has its place
        const QPoint place = middleOf(row(title));
        desktop.clickButton(3, place.x(), place.y());
        ASSERT_TRUE(appears(u"MenuEntry"_qs, u"Open in browser"_qs));
    }
};

TEST_F(LibraryScreenTest, typingFindsAndEscapeEndsTheSearch) {
    openLibrary();
    model().focusSearch();
    ASSERT_TRUE(
        waitUntil([&] { return seen(u"SearchField"_qs)->property("inputFocused").toBool(); }));
    desktop.type("bread");
    EXPECT_TRUE(waitUntil([&] { return rows() == QStringList{u"Bread"_qs}; }));
    EXPECT_TRUE(waitUntil([&] {
        QQuickItem* heading = seen(u"DayHeading"_qs);
        return heading && heading->property("section").toString() == u"Best matches";
    }));
    desktop.press(Key::escape);
    EXPECT_TRUE(waitUntil([&] { return rows().size() == 3; }));
    EXPECT_EQ(search().query(), QString());
}

TEST_F(LibraryScreenTest, fromASearchTheKeyboardComesToItsFirstResultThoughItWasInTheListBefore) {
    openLibrary();
    const QStringList titles = rows();
    for (qsizetype steps = 1; steps <= titles.size(); ++steps)
        for (const char* query : {"a", "bread"}) {
            for (qsizetype step = 0; step < steps; ++step)
                desktop.press(Key::down);
            ASSERT_TRUE(currentIs(titles[steps - 1]));
            model().focusSearch();
            ASSERT_TRUE(waitUntil(
                [&] { return seen(u"SearchField"_qs)->property("inputFocused").toBool(); }));
            desktop.type(query);
            ASSERT_TRUE(waitUntil([&] { return search().query() == QLatin1String(query); }));
            desktop.press(Key::down);
            EXPECT_TRUE(currentIs(u"Bread"_qs)) << steps << ' ' << query;
            desktop.press(Key::space);
            EXPECT_TRUE(waitUntil([&] { return model().selectedID() == stored("Bread").id; }))
                << steps << ' ' << query;
            model().setSelectedID(std::nullopt);
            search().setQuery({});
            ASSERT_TRUE(focusIsOnList());
        }
}

TEST_F(LibraryScreenTest, anArrowLeadsFromAPressedFilterIntoItsLinks) {
    openLibrary();
    clickOn(u"Pill"_qs, u"Archive"_qs);
    ASSERT_TRUE(waitUntil([&] { return rows() == QStringList{u"Walks"_qs}; }));
    desktop.press(Key::down);
    EXPECT_TRUE(currentIs(u"Walks"_qs));
}

TEST_F(LibraryScreenTest, aQueryOfBlanksKeepsTheDaysAndCanBeCleared) {
    openLibrary();
    search().setQuery(u"  "_qs);
    EXPECT_EQ(rows().size(), 3);
    EXPECT_EQ(seen(u"DayHeading"_qs)->property("section").toString(), u"Today"_qs);
    clickOn(u"IconButton"_qs, u"Clear search"_qs);
    EXPECT_TRUE(waitUntil([&] { return search().query().isEmpty(); }));
    EXPECT_TRUE(disappears(u"IconButton"_qs, u"Clear search"_qs));
}

TEST_F(LibraryScreenTest, aNumberSignOffersTagsAndEnterTakesOne) {
    openLibrary();
    model().focusSearch();
    ASSERT_TRUE(
        waitUntil([&] { return seen(u"SearchField"_qs)->property("inputFocused").toBool(); }));
    desktop.press(digitThree, {"Shift"});
    ASSERT_TRUE(appears(u"TagSuggestions"_qs));
    desktop.press(Key::down);
    desktop.press(Key::enter);
    EXPECT_TRUE(waitUntil([&] { return search().tag() == u"craft"; }));
    EXPECT_EQ(rows(), QStringList{u"Bread"_qs});
    EXPECT_TRUE(disappears(u"TagSuggestions"_qs));
    EXPECT_TRUE(appears(u"RefinementChip"_qs, u"craft"_qs));
}

TEST_F(LibraryScreenTest, theScopeMenuHoldsASearchToTheSection) {
    openLibrary();
    search().setQuery(u"northline"_qs);
    EXPECT_EQ(rows().size(), 2);
    clickOn(u"ScopeButton"_qs, u"Everywhere"_qs);
    clickOn(u"MenuEntry"_qs, u"Library"_qs);
    EXPECT_TRUE(waitUntil([&] { return rows() == QStringList{u"Rails"_qs}; }));
    EXPECT_TRUE(appears(u"ScopeButton"_qs, u"Library"_qs));
}

TEST_F(LibraryScreenTest, theChosenScopeKeepsItsMarkWhenItIsChosenAgain) {
    openLibrary();
    for (const QString& scope : {u"Everywhere"_qs, u"Library"_qs, u"Library"_qs}) {
        clickOn(u"ScopeButton"_qs);
        clickOn(u"MenuEntry"_qs, scope);
        ASSERT_TRUE(disappears(u"MenuEntry"_qs));
        ASSERT_TRUE(appears(u"ScopeButton"_qs, scope));
        clickOn(u"ScopeButton"_qs);
        ASSERT_TRUE(appears(u"MenuEntry"_qs, scope));
        for (const QString& entry : {u"Everywhere"_qs, u"Library"_qs})
            EXPECT_EQ(seen(u"MenuEntry"_qs, entry)->property("checked").toBool(), entry == scope)
                << entry.toStdString();
        desktop.press(Key::escape);
        ASSERT_TRUE(disappears(u"MenuEntry"_qs));
    }
}

TEST_F(LibraryScreenTest, theFiltersShowTheirSections) {
    openLibrary();
    clickOn(u"Pill"_qs, u"Archive"_qs);
    EXPECT_TRUE(waitUntil([&] { return rows() == QStringList{u"Walks"_qs}; }));
    EXPECT_NE(seen(u"ArchivedMark"_qs), nullptr);
    clickOn(u"Pill"_qs, u"Favorites"_qs);
    EXPECT_TRUE(waitUntil([&] { return rows().isEmpty(); }));
    clickOn(u"Pill"_qs, u"Library"_qs);
    EXPECT_TRUE(waitUntil([&] { return rows().size() == 3; }));
}

TEST_F(LibraryScreenTest, theFilterMenuRefinesByKeysAndTheChipsTakeItBack) {
    openLibrary();
    clickOn(u"IconButton"_qs, u"Filter results"_qs);
    ASSERT_TRUE(appears(u"FilterChoices"_qs));
    for (int presses = 0; presses < 4; ++presses) // "All tags", "baking", "craft", "travel"
        desktop.press(Key::down);
    desktop.press(Key::enter);
    EXPECT_TRUE(waitUntil([&] { return rows() == QStringList{u"Rails"_qs}; }));
    ASSERT_TRUE(disappears(u"FilterChoices"_qs));
    clickOn(u"RefinementChip"_qs, u"travel"_qs);
    EXPECT_TRUE(waitUntil([&] { return rows().size() == 3; }));
    search().setWebsite(u"breadlab.org"_qs);
    search().setNotesOnly(true);
    EXPECT_TRUE(appears(u"RefinementChip"_qs, u"Has note"_qs));
    EXPECT_TRUE(appears(u"RefinementChip"_qs, u"breadlab.org"_qs));
    clickOn(u"TextButton"_qs, u"Clear filters"_qs);
    EXPECT_TRUE(waitUntil([&] { return rows().size() == 3; }));
    EXPECT_TRUE(disappears(u"TextButton"_qs, u"Clear filters"_qs));
}

TEST_F(LibraryScreenTest, eachEmptinessHasItsWords) {
    given({});
    open();
    EXPECT_TRUE(appears(u"PlainText"_qs, u"A little room for good things."_qs));
    search().setFilter(u"Archive"_qs);
    EXPECT_TRUE(appears(u"PlainText"_qs, u"Nothing archived."_qs));
    search().setQuery(u"lighthouse"_qs);
    EXPECT_TRUE(appears(u"PlainText"_qs, u"No matching links."_qs));
    search().setQuery({});
    search().setTag(u"travel"_qs);
    EXPECT_TRUE(appears(u"PlainText"_qs, u"No matching links."_qs));
}

TEST_F(LibraryScreenTest, theArchiveIsEmptiedOnlyAfterAnAnswer) {
    openLibrary();
    clickOn(u"Pill"_qs, u"Archive"_qs);
    answer(u"Empty archive…"_qs);
    EXPECT_TRUE(appears(u"PlainText"_qs, u"Permanently delete 1 link?"_qs));
    ASSERT_TRUE(focusIsOn(u"Cancel"_qs));
    desktop.press(Key::enter);
    EXPECT_TRUE(disappears(u"EmptyArchiveAlert"_qs));
    EXPECT_EQ(rows().size(), 1);
    model().setArchived(true, {stored("Bread").id});
    answer(u"Empty archive…"_qs);
    EXPECT_TRUE(appears(u"PlainText"_qs, u"Permanently delete 2 links?"_qs));
    answer(u"Delete forever"_qs);
    EXPECT_TRUE(waitUntil([&] { return model().library().links.size() == 2; }));
    EXPECT_TRUE(appears(u"PlainText"_qs, u"Nothing archived."_qs));
}

TEST_F(LibraryScreenTest, theUndoBarTakesAnArchivingBack) {
    openLibrary();
    model().setArchived(true, {stored("Bread").id});
    EXPECT_TRUE(appears(u"PlainText"_qs, u"Link archived"_qs));
    clickOn(u"TextButton"_qs, u"Undo"_qs);
    EXPECT_TRUE(waitUntil([&] { return rows().size() == 3; }));
    EXPECT_TRUE(disappears(u"UndoBar"_qs));
    model().setArchived(true, {stored("Bread").id, stored("Tides").id});
    EXPECT_TRUE(appears(u"PlainText"_qs, u"2 links archived"_qs));
    clickOn(u"IconButton"_qs, u"Dismiss undo"_qs);
    EXPECT_TRUE(disappears(u"UndoBar"_qs));
    EXPECT_EQ(rows().size(), 1);
}

TEST_F(LibraryScreenTest, theUsageNoticeStandsUntilItIsDismissed) {
    preferences.set("hasSeenUsageNotice", std::nullopt);
    openLibrary();
    clickOn(u"IconButton"_qs, u"Dismiss usage notice"_qs);
    EXPECT_TRUE(disappears(u"Banner"_qs));
    EXPECT_TRUE(preferences.boolean("hasSeenUsageNotice"));
}

TEST_F(LibraryScreenTest, theTourIsOfferedUntilItIsCompleted) {
    preferences.set("hasCompletedOnboarding", std::nullopt);
    openLibrary();
    EXPECT_TRUE(screen().offersTour());
    model().completeOnboarding();
    EXPECT_FALSE(screen().offersTour());
    EXPECT_TRUE(disappears(u"Banner"_qs));
}

TEST_F(LibraryScreenTest, continueInTheBannerShowsTheTour) {
    preferences.set("hasCompletedOnboarding", std::nullopt);
    openLibrary();
    model().setShowingOnboarding(false);
    ASSERT_TRUE(disappears(u"OnboardingSheet"_qs));
    clickOn(u"PrimaryButton"_qs, u"Continue"_qs);
    EXPECT_TRUE(waitUntil([&] { return model().isShowingOnboarding(); }));
    EXPECT_TRUE(appears(u"OnboardingSheet"_qs));
}

TEST_F(LibraryScreenTest, theListIsOneStopOfTheKeyboard) {
    openLibrary();
    model().focusSearch();
    ASSERT_TRUE(
        waitUntil([&] { return seen(u"SearchField"_qs)->property("inputFocused").toBool(); }));
    for (const char* stop : {"Everywhere", "Library", "Favorites", "Archive", "Filter results"}) {
        desktop.press(Key::tab);
        EXPECT_TRUE(focusIsOn(QString::fromLatin1(stop))) << stop;
    }
    desktop.press(Key::tab);
    ASSERT_TRUE(focusIsOnList());
    EXPECT_TRUE(currentIs(u"Bread"_qs));
    EXPECT_TRUE(row(u"Bread"_qs)->property("ringed").toBool());
    desktop.press(Key::tab);
    EXPECT_TRUE(focusIsOn(u"Edit note and tags"_qs));
    desktop.press(Key::tab);
    EXPECT_TRUE(focusIsOn(u"Favorite Link"_qs));
    desktop.press(Key::space);
    EXPECT_TRUE(waitUntil([&] { return stored("Bread").isFavorite; }));
}

TEST_F(LibraryScreenTest, theKeysOfTheListOpenEditAndDelete) {
    openLibrary();
    desktop.press(Key::down);
    ASSERT_TRUE(currentIs(u"Bread"_qs));
    desktop.press(Key::down);
    ASSERT_TRUE(currentIs(u"Tides"_qs));
    desktop.press(Key::enter);
    EXPECT_TRUE(waitUntil([&] { return opener.opened.size() == 1; }));
    EXPECT_EQ(opener.opened.back(), "https://tidewatch.org.uk/");
    desktop.press(Key::del);
    ASSERT_TRUE(waitUntil([&] { return rows() == QStringList({u"Bread"_qs, u"Rails"_qs}); }));
    ASSERT_TRUE(currentIs(u"Rails"_qs));
    desktop.press(letterE, {"Ctrl"});
    EXPECT_TRUE(waitUntil([&] { return model().selectedID() == stored("Rails").id; }));
}

TEST_F(LibraryScreenTest, theMenuOfARowOpensByKeys) {
    openLibrary();
    desktop.press(Key::down);
    ASSERT_TRUE(currentIs(u"Bread"_qs));
    desktop.press(Key::menu);
    ASSERT_TRUE(appears(u"MenuEntry"_qs, u"Copy link"_qs));
    desktop.press(Key::escape);
    ASSERT_TRUE(disappears(u"MenuEntry"_qs, u"Copy link"_qs));
    desktop.press(Key::f10, {"Shift"});
    ASSERT_TRUE(appears(u"MenuEntry"_qs, u"Copy link"_qs));
    desktop.press(Key::down);
    desktop.press(Key::down);
    desktop.press(Key::enter);
    EXPECT_TRUE(waitUntil([&] { return pasteboard.text() == "https://breadlab.org/"; }));
}

TEST_F(LibraryScreenTest, theMenuOfARowFollowsTheStateOfItsLink) {
    openLibrary();
    openRowMenu(u"Bread"_qs);
    for (const char* entry : {"Open in browser", "Copy link", "Share by email…", "Mark Important",
                              "Mark Not needed", "Archive", "Delete"})
        EXPECT_NE(seen(u"MenuEntry"_qs, QString::fromUtf8(entry)), nullptr) << entry;
    EXPECT_NE(seen(u"MenuEntry"_qs, u"Edit title, note & tags…"_qs), nullptr);
    EXPECT_EQ(seen(u"MenuEntry"_qs, u"Reset importance"_qs), nullptr);
    clickOn(u"MenuEntry"_qs, u"Mark Important"_qs);
    ASSERT_TRUE(waitUntil([&] { return stored("Bread").importance == LinkImportance::important; }));
    ASSERT_TRUE(disappears(u"MenuEntry"_qs, u"Open in browser"_qs));
    openRowMenu(u"Bread"_qs);
    EXPECT_EQ(seen(u"MenuEntry"_qs, u"Mark Important"_qs), nullptr);
    clickOn(u"MenuEntry"_qs, u"Reset importance"_qs);
    EXPECT_TRUE(waitUntil([&] { return !stored("Bread").importance.has_value(); }));
    clickOn(u"Pill"_qs, u"Archive"_qs);
    ASSERT_TRUE(waitUntil([&] { return row(u"Walks"_qs) != nullptr; }));
    openRowMenu(u"Walks"_qs);
    clickOn(u"MenuEntry"_qs, u"Restore to library"_qs);
    EXPECT_TRUE(waitUntil([&] { return !stored("Walks").isArchived; }));
}

TEST_F(LibraryScreenTest, theMenuOfARowSharesAndDeletes) {
    openLibrary();
    openRowMenu(u"Tides"_qs);
    clickOn(u"MenuEntry"_qs, u"Share by email…"_qs);
    EXPECT_TRUE(waitUntil([&] { return model().sharingLink().has_value(); }));
    model().endSharing();
    ASSERT_TRUE(disappears(u"MenuEntry"_qs, u"Open in browser"_qs));
    openRowMenu(u"Tides"_qs);
    clickOn(u"MenuEntry"_qs, u"Delete"_qs);
    EXPECT_TRUE(waitUntil([&] { return rows().size() == 2; }));
}

TEST_F(LibraryScreenTest, aClickOpensALinkOnce) {
    openLibrary();
    const QPoint place = middleOf(row(u"Bread"_qs));
    desktop.click(place.x(), place.y());
    desktop.click(place.x(), place.y());
    EXPECT_TRUE(waitUntil([&] { return !opener.opened.empty(); }));
    settle();
    EXPECT_EQ(opener.opened, std::vector<std::string>{"https://breadlab.org/"});
}

TEST_F(LibraryScreenTest, theButtonsOfARowSelectStarAndEdit) {
    openLibrary();
    hover(row(u"Bread"_qs));
    clickOn(u"RowButton"_qs, u"Favorite Link"_qs);
    EXPECT_TRUE(waitUntil([&] { return stored("Bread").isFavorite; }));
    clickOn(u"RowButton"_qs, u"Edit note and tags"_qs);
    EXPECT_TRUE(waitUntil([&] { return model().selectedID() == stored("Bread").id; }));
    model().setSelectedID({});
    clickOn(u"RowTag"_qs, u"Find links tagged baking"_qs);
    EXPECT_TRUE(waitUntil([&] { return search().tag() == u"baking"; }));
    EXPECT_TRUE(opener.opened.empty());
}

TEST_F(LibraryScreenTest, anArchivedLinkLeavesTheOthersWhereTheyAre) {
    std::vector<SavedLink> links;
    for (int number = 0; number < 60; ++number)
        links.push_back(made("Page " + std::to_string(number),
                             "https://site" + std::to_string(number) + ".org/", 1500 * number));
    given(libraryOf(std::move(links)));
    open();
    QQuickItem* list = seen(u"LinkListView"_qs);
    QMetaObject::invokeMethod(list, "positionViewAtIndex", Q_ARG(int, 30), Q_ARG(int, 0));
    ASSERT_TRUE(waitUntil([&] { return row(u"Page 32"_qs) != nullptr; }));
    const double before = list->property("contentY").toDouble();
    model().setArchived(true, {stored("Page 33").id});
    ASSERT_TRUE(waitUntil([&] { return row(u"Page 33"_qs) == nullptr; }));
    EXPECT_NEAR(list->property("contentY").toDouble(), before, 1);
    EXPECT_NE(row(u"Page 32"_qs), nullptr);
}

TEST(LibraryErrors, onlyOneThatNamesAutomationLeadsToTheSettings) {
    EXPECT_TRUE(namesAutomation("Check Automation access for Chromium."));
    EXPECT_FALSE(namesAutomation("Check access for Chromium."));
    EXPECT_FALSE(namesAutomation("Export failed: automation.json"));
}

TEST_F(LibraryScreenTest, theHintShowsTheKeysAndAsksForTheirSettings) {
    openLibrary();
    EXPECT_NE(seen(u"PlainText"_qs, u"to save a tab"_qs), nullptr);
    model().setCloseAfterQuickSave(true);
    EXPECT_TRUE(appears(u"PlainText"_qs, u"to save & close a tab"_qs));
    clickOn(u"FooterHint"_qs);
    EXPECT_TRUE(waitUntil([&] { return model().section() == AppSection::settings; }));
}

} // namespace
} // namespace brinmoor
