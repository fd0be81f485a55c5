#include "screens/LibraryList.h"

#include "core/search/LibraryFilter.h"
#include "screens/LibraryTags.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gmock/gmock.h>

#include <random>

namespace brinmoor {
namespace {

/// 2026-03-05T12:00:00 UTC.
constexpr Instant noon{794404800};

SavedLink link(int number, double hoursAgo) {
    Uuid id;
    id.bytes[0] = static_cast<unsigned char>(number);
    id.bytes[1] = static_cast<unsigned char>(number >> 8);
    return {"https://www.site" + std::to_string(number) + ".org/",
            "Page " + std::to_string(number),
            "Chromium",
            "Inbox",
            id,
            Instant{noon.seconds - hoursAgo * 3600}};
}

class LibraryListTest : public ::testing::Test {
protected:
    void show(std::vector<SavedLink> links) { show(list, std::move(links)); }
    static void show(LibraryList& list, std::vector<SavedLink> links) {
        auto library = std::make_shared<Library>();
        library->links = std::move(links);
        const auto days = LibraryFilter{}.days(library->links, noon, "UTC");
        list.show(std::move(library), days);
    }
    [[nodiscard]] QString shown(int row, int role) const {
        return list.data(list.index(row), role).toString();
    }
    [[nodiscard]] QStringList titles() const {
        QStringList all;
        for (int row = 0; row < list.rowCount(); ++row)
            all.append(shown(row, LibraryList::TitleRole));
        return all;
    }

    LibraryList list;
    QAbstractItemModelTester tester{&list, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(LibraryListTest, showsActiveLinksByDayNewestFirst) {
    SavedLink archived = link(4, 1);
    archived.isArchived = true;
    show({link(1, 30), archived, link(2, 2), link(3, 1)});
    EXPECT_EQ(titles(), QStringList({u"Page 3"_qs, u"Page 2"_qs, u"Page 1"_qs}));
    EXPECT_EQ(shown(0, LibraryList::DayRole), u"Today"_qs);
    EXPECT_EQ(shown(2, LibraryList::DayRole), u"Yesterday"_qs);
    EXPECT_EQ(shown(0, LibraryList::DomainRole), u"site3.org"_qs);
}

TEST_F(LibraryListTest, saysWhenItIsEmpty) {
    QSignalSpy changed(&list, &LibraryList::emptyChanged);
    EXPECT_TRUE(list.isEmpty());
    show({link(1, 1)});
    EXPECT_FALSE(list.isEmpty());
    show({});
    EXPECT_TRUE(list.isEmpty());
    EXPECT_EQ(changed.size(), 2);
}

TEST_F(LibraryListTest, anAddedLinkLeavesTheOtherRowsAlone) {
    show({link(1, 1), link(2, 2)});
    QSignalSpy reset(&list, &LibraryList::modelReset);
    QSignalSpy inserted(&list, &LibraryList::rowsInserted);
    QSignalSpy changed(&list, &LibraryList::dataChanged);
    show({link(3, 0.5), link(1, 1), link(2, 2)});
    EXPECT_EQ(inserted.size(), 1);
    EXPECT_TRUE(reset.isEmpty());
    EXPECT_TRUE(changed.isEmpty());
}

TEST_F(LibraryListTest, anEditedLinkIsTheOnlyOneRedrawn) {
    show({link(1, 1), link(2, 2), link(3, 3)});
    QSignalSpy changed(&list, &LibraryList::dataChanged);
    SavedLink edited = link(2, 2);
    edited.note = "Now with a note";
    show({link(1, 1), edited, link(3, 3)});
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 1);
    EXPECT_EQ(shown(1, LibraryList::NoteRole), u"Now with a note"_qs);
}

TEST_F(LibraryListTest, anyChangeLeadsToWhatAFreshListShows) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    for (int round = 0; round < 200; ++round) {
        std::vector<SavedLink> links;
        for (int number = 0; number < 12; ++number) {
            SavedLink made = link(number, number * 5);
            made.isFavorite = random() % 2 == 0;
            made.isArchived = random() % 3 == 0;
            links.push_back(made);
        }
        show(links);
        LibraryList fresh;
        show(fresh, links);
        ASSERT_EQ(list.rowCount(), fresh.rowCount());
        for (int row = 0; row < list.rowCount(); ++row)
            for (int role = LibraryList::LinkIdRole; role <= LibraryList::DayRole; ++role)
                ASSERT_EQ(list.data(list.index(row), role), fresh.data(fresh.index(row), role));
    }
}

TEST(LibraryTags, eachFoldOnceInItsFirstSpellingByName) {
    SavedLink first = link(1, 1);
    first.tags = {"Zoo", "Café", "a10"};
    SavedLink second = link(2, 2);
    second.tags = {"cafe", "zoo", "a2"};
    second.isArchived = true;
    Library library;
    library.links = {first, second};
    EXPECT_EQ(libraryTags(library), (std::vector<std::string>{"a2", "a10", "Café", "Zoo"}));
    EXPECT_TRUE(libraryTags({}).empty());
}

} // namespace
} // namespace brinmoor
