// Rows that go on from one link to another: what they showed before leaves nothing behind.

#include "tests/screens/LibraryDesk.h"

namespace brinmoor {
namespace {

using namespace testing;

class LibraryRowsTest : public LibraryDesk {
protected:
    LibrarySearch& search() { return *screen().search(); }
    /// Once its row has faded away, the link comes back.
    void archiveAndUndo(const std::string& title) {
        const QPointer<QQuickItem> leaving = row(QString::fromStdString(title));
        const auto shown = rows().size();
        model().setArchived(true, {stored(title).id});
        ASSERT_TRUE(waitUntil([&] { return !leaving || leaving->opacity() == 0; }));
        testing::settle();
        model().undoArchive();
        ASSERT_TRUE(waitUntil([&] { return rows().size() == shown; }));
    }
    /// Whether each of the first rows stands under the one above, without a gap or an overlap.
    bool firstRowsAreClose() {
        const QStringList titles = rows();
        for (qsizetype at = 1; at < std::min<qsizetype>(titles.size(), 6); ++at) {
            const QQuickItem* above = row(titles[at - 1]);
            const QQuickItem* below = row(titles[at]);
            if (!above || !below || below->y() != above->y() + above->height() + 1)
                return false;
        }
        return true;
    }
    /// Rows that are seen though their links aren't in the list.
    QStringList ghosts() {
        QStringList found;
        const QQuickItem* list = seen(u"LinkListView"_qs);
        const QQuickItem* content = list->property("contentItem").value<QQuickItem*>();
        for (const QQuickItem* item : content->childItems()) {
            const QString title = item->property("title").toString();
            if (item->property("linkId").isValid() && item->isVisible() && item->opacity() > 0 &&
                !rows().contains(title))
                found.append(title + u' ' + QString::number(item->opacity()));
        }
        return found;
    }
    static void collectTags(const QQuickItem* item, QStringList& tags) {
        if (item->isVisible() && item->property("tag").isValid())
            tags.append(item->property("tag").toString());
        for (const QQuickItem* child : item->childItems())
            collectTags(child, tags);
    }
};

TEST_F(LibraryRowsTest, aLinkThatComesBackTakesItsOwnRoomAmongRowsOfOtherHeights) {
    openLibrary(); // the row of "Tides" is higher by its note
    const auto places = [&] {
        static_cast<void>(view().grabWindow());
        QList<double> found;
        for (const QString& title : rows())
            found << row(title)->y() << row(title)->height() << row(title)->opacity();
        return found;
    };
    const QList<double> before = places();
    for (const char* title : {"Bread", "Tides", "Bread"}) {
        archiveAndUndo(title);
        EXPECT_TRUE(waitUntil([&] { return places() == before; })) << title;
    }
}

TEST_F(LibraryRowsTest, aLinkThatComesBackStandsCloseToTheOthersWhateverRowItIsGiven) {
    openLibrary();
    for (const char* query : {"tides", "bread", "rails"})
        for (const char* title : {"Bread", "Rails", "Tides"}) {
            search().setQuery(QString::fromLatin1(query)); // leaves the rows of the others over
            testing::settle();
            search().setQuery({});
            ASSERT_TRUE(waitUntil([&] { return firstRowsAreClose(); }));
            archiveAndUndo(title);
            EXPECT_TRUE(waitUntil([&] { return firstRowsAreClose(); })) << query << ' ' << title;
        }
}

TEST_F(LibraryRowsTest, linksThatLeaveOneUponTheOtherAllGo) {
    std::vector<SavedLink> many;
    for (int at = 0; at < 30; ++at)
        many.push_back(
            made("Page " + std::to_string(at), "https://a.example/" + std::to_string(at), at));
    for (std::size_t at = 0; at < many.size(); at += 3)
        many[at].note = "Rows of several heights.";
    given(libraryOf(many));
    open();
    desktop.press(Key::down);
    ASSERT_TRUE(currentIs(u"Page 0"_qs));
    // While one row fades, the next one is taken away, as when the key is held.
    for (int count = 0; count < 12; ++count) {
        desktop.press(Key::del);
        static_cast<void>(
            waitUntil([] { return false; }, std::chrono::milliseconds(20 + 10 * count)));
    }
    EXPECT_LT(model().library().links.size(), 30U);
    EXPECT_TRUE(waitUntil([&] { return ghosts().isEmpty(); }, std::chrono::seconds(3)))
        << ghosts().join(u", "_qs).toStdString();
    EXPECT_TRUE(waitUntil([&] { return firstRowsAreClose(); }, std::chrono::seconds(3)));
}

TEST_F(LibraryRowsTest, rowsThatStillMoveAreGoneWhenASearchLeavesThemOut) {
    openLibrary();
    desktop.press(Key::down);
    ASSERT_TRUE(currentIs(u"Bread"_qs));
    desktop.press(Key::del);
    static_cast<void>(waitUntil([] { return false; }, std::chrono::milliseconds(60)));
    search().setQuery(u"rails"_qs);
    EXPECT_TRUE(waitUntil([&] { return ghosts().isEmpty(); }, std::chrono::seconds(3)))
        << ghosts().join(u", "_qs).toStdString();
}

TEST_F(LibraryRowsTest, aRowShowsTheTagsOfItsLinkWhateverLinkItShowedBefore) {
    openLibrary();
    const std::map<std::string, QStringList> tagsOf{
        {"Bread", {u"baking"_qs, u"craft"_qs}}, {"Rails", {u"travel"_qs}}, {"Tides", {}}};
    for (const char* title : {"Bread", "Tides", "Rails", "Bread", "Rails", "Tides", "Bread"}) {
        search().setQuery(QString::fromLatin1(title));
        static_cast<void>(view().grabWindow());
        QStringList seen;
        collectTags(row(QString::fromLatin1(title)), seen);
        EXPECT_EQ(seen, tagsOf.at(title)) << title;
    }
}

} // namespace
} // namespace brinmoor
