#include "tests/screens/LibraryDesk.h"

#include "screens/SwipeEvents.h"
#include "tests/icons/TestPictures.h"

#include <QTest>

namespace brinmoor {
namespace {

using namespace testing;

class RowSwipesTest : public LibraryDesk {};

TEST_F(RowSwipesTest, aShortPushToTheLeftOpensDeleteAndArchive) {
    openLibrary();
    swipe(row(u"Bread"_qs), -60);
    EXPECT_TRUE(comesToRest(u"Bread"_qs, -156));
    EXPECT_EQ(model().swipedLinkID(), stored("Bread").id);
    EXPECT_TRUE(appears(u"SwipeActionButton"_qs, u"Archive"_qs));
    clickOn(u"SwipeActionButton"_qs, u"Delete"_qs);
    EXPECT_TRUE(waitUntil([&] { return rows() == QStringList({u"Tides"_qs, u"Rails"_qs}); }));
}

TEST_F(RowSwipesTest, theArchiveButtonArchives) {
    openLibrary();
    swipe(row(u"Tides"_qs), -60);
    ASSERT_TRUE(comesToRest(u"Tides"_qs, -156));
    clickOn(u"SwipeActionButton"_qs, u"Archive"_qs);
    EXPECT_TRUE(waitUntil([&] { return stored("Tides").isArchived; }));
}

TEST_F(RowSwipesTest, anArchivedRowOffersRestoreAlone) {
    openLibrary();
    screen().search()->setFilter(u"Archive"_qs);
    ASSERT_TRUE(waitUntil([&] { return row(u"Walks"_qs) != nullptr; }));
    swipe(row(u"Walks"_qs), -60);
    EXPECT_TRUE(comesToRest(u"Walks"_qs, -82));
    EXPECT_EQ(seen(u"SwipeActionButton"_qs, u"Delete"_qs), nullptr);
    clickOn(u"SwipeActionButton"_qs, u"Restore"_qs);
    EXPECT_TRUE(waitUntil([&] { return !stored("Walks").isArchived; }));
}

TEST_F(RowSwipesTest, aLongPushToTheLeftArchivesAtOnce) {
    openLibrary();
    swipe(row(u"Bread"_qs), -180);
    EXPECT_TRUE(stored("Bread").isArchived);
    EXPECT_TRUE(waitUntil([&] { return row(u"Bread"_qs) == nullptr; }));
}

TEST_F(RowSwipesTest, theButtonTellsWhatLettingGoDoes) {
    openLibrary();
    QQuickItem* bread = row(u"Bread"_qs);
    scroll(bread, Qt::ScrollBegin, {});
    scroll(bread, Qt::ScrollUpdate, {-169, 0});
    EXPECT_TRUE(appears(u"SwipeActionButton"_qs, u"Archive"_qs));
    scroll(bread, Qt::ScrollUpdate, {-1, 0});
    EXPECT_TRUE(appears(u"SwipeActionButton"_qs, u"Release archive"_qs));
}

TEST_F(RowSwipesTest, aPushToTheRightCopiesOrOffersToShare) {
    openLibrary();
    swipe(row(u"Rails"_qs), 180);
    EXPECT_EQ(pasteboard.text(), "https://northline.no/");
    EXPECT_TRUE(comesToRest(u"Rails"_qs, 0));
    swipe(row(u"Rails"_qs), 60);
    ASSERT_TRUE(comesToRest(u"Rails"_qs, 156));
    EXPECT_TRUE(appears(u"SwipeActionButton"_qs, u"Copy"_qs));
    clickOn(u"SwipeActionButton"_qs, u"Email"_qs);
    EXPECT_TRUE(waitUntil([&] { return model().sharingLink().has_value(); }));
    EXPECT_TRUE(comesToRest(u"Rails"_qs, 0));
}

TEST_F(RowSwipesTest, onlyOneRowIsOpen) {
    openLibrary();
    swipe(row(u"Bread"_qs), -60);
    ASSERT_TRUE(comesToRest(u"Bread"_qs, -156));
    swipe(row(u"Rails"_qs), 60);
    EXPECT_TRUE(comesToRest(u"Rails"_qs, 156));
    EXPECT_TRUE(comesToRest(u"Bread"_qs, 0));
}

TEST_F(RowSwipesTest, aClickOnAnOpenRowClosesIt) {
    openLibrary();
    swipe(row(u"Bread"_qs), -60);
    ASSERT_TRUE(comesToRest(u"Bread"_qs, -156));
    const QPoint place = middleOf(row(u"Bread"_qs));
    desktop.click(place.x(), place.y());
    EXPECT_TRUE(comesToRest(u"Bread"_qs, 0));
    EXPECT_TRUE(opener.opened.empty());
}

TEST_F(RowSwipesTest, aSwipeTakesTheKeyboardFromTheSearch) {
    openLibrary();
    model().focusSearch();
    swipe(row(u"Bread"_qs), -60);
    EXPECT_TRUE(focusIsOnList());
}

TEST_F(RowSwipesTest, aVerticalPushMovesTheListAndNotTheRow) {
    std::vector<SavedLink> links;
    for (int number = 0; number < 40; ++number)
        links.push_back(made("Page " + std::to_string(number),
                             "https://site" + std::to_string(number) + ".org/", number));
    given(libraryOf(std::move(links)));
    open();
    QQuickItem* list = seen(u"LinkListView"_qs);
    const double before = list->property("contentY").toDouble();
    QQuickItem* third = row(u"Page 3"_qs);
    scroll(third, Qt::ScrollBegin, {});
    for (int step = 0; step < 6; ++step)
        scroll(third, Qt::ScrollUpdate, {-12, -30});
    scroll(third, Qt::ScrollEnd, {});
    EXPECT_TRUE(waitUntil([&] { return list->property("contentY").toDouble() > before; }));
    EXPECT_EQ(third->property("offset").toDouble(), 0);
    const double scrolled = list->property("contentY").toDouble();
    const QPoint place = middleOf(list);
    desktop.clickButton(5, place.x(), place.y());
    EXPECT_TRUE(waitUntil([&] { return list->property("contentY").toDouble() > scrolled; }));
}

TEST_F(RowSwipesTest, aWheelThatTurnsSidewaysMovesNothing) {
    openLibrary();
    const QPoint place = middleOf(row(u"Bread"_qs));
    for (int notch = 0; notch < 5; ++notch)
        desktop.clickButton(6, place.x(), place.y());
    const bool moved =
        waitUntil([&] { return row(u"Bread"_qs)->property("offset").toDouble() != 0; },
                  std::chrono::milliseconds(300));
    EXPECT_FALSE(moved);
}

TEST_F(RowSwipesTest, aSwipeUnderASheetIsIgnored) {
    openLibrary();
    screen().askToEmptyArchive();
    ASSERT_TRUE(appears(u"EmptyArchiveAlert"_qs));
    swipe(row(u"Bread"_qs), -180);
    EXPECT_FALSE(stored("Bread").isArchived);
    EXPECT_EQ(row(u"Bread"_qs)->property("offset").toDouble(), 0);
}

TEST_F(RowSwipesTest, aGestureUnderWayDoesNothingMoreUnderAnAlert) {
    openLibrary();
    scroll(row(u"Bread"_qs), Qt::NoScrollPhase, {-177, 0});
    ASSERT_EQ(row(u"Bread"_qs)->property("offset").toDouble(), -177);
    screen().askToEmptyArchive();
    EXPECT_TRUE(comesToRest(u"Bread"_qs, 0));
    const bool archived = waitUntil([&] { return stored("Bread").isArchived; },
                                    std::chrono::milliseconds(3 * SwipeEvents::idleGap));
    EXPECT_FALSE(archived);
}

TEST_F(RowSwipesTest, aPressedPointerThatIsLetGoUnderAnAlertDoesNothing) {
    openLibrary();
    const QPoint place = view().mapFromGlobal(middleOf(row(u"Bread"_qs)));
    QTest::mousePress(&view(), Qt::LeftButton, {}, place);
    for (int by = 10; by <= 200; by += 10)
        QTest::mouseMove(&view(), place - QPoint(by, 0));
    ASSERT_LE(row(u"Bread"_qs)->property("offset").toDouble(), -170);
    screen().askToEmptyArchive();
    QTest::mouseRelease(&view(), Qt::LeftButton, {}, place - QPoint(200, 0));
    EXPECT_FALSE(stored("Bread").isArchived);
    EXPECT_TRUE(comesToRest(u"Bread"_qs, 0));
}

TEST_F(RowSwipesTest, aPushMayBeginOnATagOrAButton) {
    openLibrary();
    hover(row(u"Bread"_qs));
    ASSERT_TRUE(appears(u"RowButton"_qs, u"Favorite Link"_qs));
    static_cast<void>(view().grabWindow()); // the button has its place
    QPoint place = middleOf(seen(u"RowButton"_qs, u"Favorite Link"_qs));
    desktop.drag(place.x(), place.y(), -70, 3);
    EXPECT_TRUE(comesToRest(u"Bread"_qs, -156));
    EXPECT_FALSE(stored("Bread").isFavorite);
    place = middleOf(seen(u"RowTag"_qs, u"Find links tagged travel"_qs));
    desktop.drag(place.x(), place.y(), 70, 3);
    EXPECT_TRUE(comesToRest(u"Rails"_qs, 156));
    EXPECT_EQ(screen().search()->tag(), QString());
    EXPECT_TRUE(opener.opened.empty());
}

TEST_F(RowSwipesTest, aPushUpOrDownFromATagIsTheLists) {
    openLibrary();
    const QPoint place = middleOf(seen(u"RowTag"_qs, u"Find links tagged travel"_qs));
    desktop.drag(place.x(), place.y(), 4, 40);
    settle();
    EXPECT_EQ(row(u"Rails"_qs)->property("offset").toDouble(), 0);
    EXPECT_EQ(screen().search()->tag(), QString());
}

TEST_F(RowSwipesTest, aPressedPointerPushesARowToo) {
    openLibrary();
    const QPoint place = middleOf(row(u"Bread"_qs));
    desktop.drag(place.x(), place.y(), -70, 3);
    EXPECT_TRUE(comesToRest(u"Bread"_qs, -156));
    EXPECT_TRUE(opener.opened.empty());
}

TEST_F(RowSwipesTest, aFingerOnTheScreenPushesARowToo) {
    openLibrary();
    QPointingDevice* device = QTest::createTouchDevice();
    QPoint place = view().mapFromGlobal(middleOf(row(u"Tides"_qs)));
    QTest::touchEvent(&view(), device).press(1, place, &view());
    for (int step = 0; step < 9; ++step) {
        place.rx() -= 20;
        QTest::touchEvent(&view(), device).move(1, place, &view());
    }
    QTest::touchEvent(&view(), device).release(1, place, &view());
    EXPECT_TRUE(waitUntil([&] { return stored("Tides").isArchived; }));
}

TEST_F(RowSwipesTest, aFingerMayBeginOnATag) {
    openLibrary();
    QPointingDevice* device = QTest::createTouchDevice();
    QPoint place =
        view().mapFromGlobal(middleOf(seen(u"RowTag"_qs, u"Find links tagged travel"_qs)));
    QTest::touchEvent(&view(), device).press(1, place, &view());
    QTest::touchEvent(&view(), device).release(1, place, &view());
    ASSERT_TRUE(waitUntil([&] { return screen().search()->tag() == u"travel"; }));
    screen().search()->setTag({});
    ASSERT_TRUE(waitUntil([&] { return rows().size() == 3 && seen(u"RowTag"_qs) != nullptr; }));
    static_cast<void>(view().grabWindow()); // every row has its place
    place = view().mapFromGlobal(middleOf(seen(u"RowTag"_qs, u"Find links tagged travel"_qs)));
    QTest::touchEvent(&view(), device).press(2, place, &view());
    for (int step = 0; step < 9; ++step) {
        place.rx() -= 20;
        QTest::touchEvent(&view(), device).move(2, place, &view());
    }
    QTest::touchEvent(&view(), device).release(2, place, &view());
    EXPECT_TRUE(waitUntil([&] { return stored("Rails").isArchived; }));
    EXPECT_EQ(screen().search()->tag(), QString());
}

TEST_F(RowSwipesTest, aTileShowsTheIconOfItsSite) {
    openLibrary();
    std::vector<std::string> asked;
    panels.setSiteIcons([&](std::string page,
                            std::optional<std::string>) -> QCoro::Task<std::optional<QByteArray>> {
        asked.push_back(page);
        std::optional<QByteArray> icon;
        if (page == "https://breadlab.org/")
            icon = pictureOf({84, 84}, Qt::red);
        co_return icon;
    });
    const auto colourAtTile = [&](const QString& title) {
        const QPoint place = row(title)->mapToScene({33, 31}).toPoint();
        return view().grabWindow().pixelColor(place).name();
    };
    EXPECT_TRUE(waitUntil([&] { return colourAtTile(u"Bread"_qs) == u"#ff0000"; }));
    EXPECT_NE(colourAtTile(u"Tides"_qs), u"#ff0000"_qs);
    EXPECT_EQ(asked.size(), 3U);
}

} // namespace
} // namespace brinmoor
