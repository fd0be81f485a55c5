// The lists of open tabs: the search and the review of those to close.

#include "app/TabCleanup.h"
#include "browser/TabSearchModel.h"
#include "platform/memory/MemoryPreferences.h"
#include "screens/CleanupReviewList.h"
#include "screens/TabSearchScreen.h"
#include "tests/app/Desk.h"
#include "tests/support/TabRecords.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using namespace testing;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr auto chromiumID = "org.chromium.Chromium";

class OpenTabListsTest : public Desk {
protected:
    ~OpenTabListsTest() override { endModel(); }

    void open(const std::vector<PretendedTab>& tabs) {
        preferences.set("tabCleanupEnabled", true);
        preferences.set("tabCleanupDomains", PreferenceData{R"(["a.test","b.test"])"});
        scripts.answer = [tabs](const ScriptRun& run) {
            const bool isReading =
                run.script.find("JSON.stringify(readBrowserTabs") != std::string::npos;
            return CannedScripts::Answer(isReading ? tabList(chromiumID, tabs) : QByteArray("2"));
        };
    }
    void openFive() {
        std::vector<PretendedTab> tabs;
        for (int number = 1; number <= 5; ++number)
            tabs.push_back({"https://a.test/" + std::to_string(number),
                            "Page " + std::to_string(number), 1, number});
        open(tabs);
    }
    TabSearchModel& search() { return model().tabSearch(); }
    void read() {
        search().refresh();
        ASSERT_TRUE(waitUntil([&] { return !search().loading(); }));
    }
    void review() {
        model().tabCleanup().runTabCleanup();
        ASSERT_TRUE(waitUntil([&] { return model().tabCleanup().cleanupReview().has_value(); }));
    }
    static std::vector<std::string> shown(const QAbstractListModel& list) {
        std::vector<std::string> titles;
        for (int row = 0; row < list.rowCount(); ++row)
            titles.push_back(list.data(list.index(row), Qt::DisplayRole).toString().toStdString());
        return titles;
    }
};

TEST_F(OpenTabListsTest, theHeadingTellsWhetherSomethingIsSearchedFor) {
    openFive();
    TabSearchScreen screen(search());
    EXPECT_EQ(screen.countText(), u"0 tabs in your browsers"_qs);
    read();
    EXPECT_EQ(screen.heading(), u"OPEN TABS"_qs);
    screen.setQuery(u"  "_qs);
    EXPECT_EQ(screen.heading(), u"OPEN TABS"_qs);
    screen.setQuery(u"page 3"_qs);
    EXPECT_EQ(screen.heading(), u"BEST MATCHES"_qs);
    EXPECT_THAT(shown(screen), ElementsAre("Page 3"));
    EXPECT_EQ(screen.countText(), u"5 tabs in your browsers"_qs);
}

TEST_F(OpenTabListsTest, aQueryThatMatchesNothingSelectsNothing) {
    openFive();
    TabSearchScreen screen(search());
    read();
    screen.move(2);
    screen.setQuery(u"zeppelin"_qs);
    EXPECT_TRUE(screen.isEmpty());
    EXPECT_EQ(screen.selectedIndex(), 0);
    const auto before = scripts.runs.size();
    screen.move(1);
    EXPECT_EQ(screen.selectedIndex(), 0);
    screen.activateSelected();
    screen.saveTab(0);
    settle();
    EXPECT_EQ(scripts.runs.size(), before);
    EXPECT_FALSE(search().switching());
}

TEST_F(OpenTabListsTest, aRowThatIsNotThereIsNotActivated) {
    openFive();
    TabSearchScreen screen(search());
    read();
    const auto before = scripts.runs.size();
    screen.activate(8);
    settle();
    EXPECT_EQ(scripts.runs.size(), before);
    screen.activate(4);
    settle();
    ASSERT_EQ(scripts.runs.size(), before + 1);
    EXPECT_THAT(scripts.runs.back().script, HasSubstr("https://a.test/5"));
}

TEST_F(OpenTabListsTest, aSavedTabAndAFailureAreToldApart) {
    openFive();
    TabSearchScreen screen(search());
    read();
    screen.saveTab(0);
    ASSERT_TRUE(waitUntil([&] { return !screen.message().isEmpty(); }));
    EXPECT_EQ(screen.message(), u"Saved to your library."_qs);
    EXPECT_FALSE(screen.messageIsFailure());
    screen.activate(1);
    ASSERT_TRUE(waitUntil([&] { return screen.messageIsFailure(); }));
    EXPECT_EQ(screen.message(), u"That tab moved or closed. Refresh to see what’s open now."_qs);
}

TEST_F(OpenTabListsTest, theReviewGoesSiteBySite) {
    open({{"https://a.test/1", "A1", 1, 1},
          {"https://b.test/1", "B1", 1, 2},
          {"https://a.test/2", "A2", 1, 3},
          {"https://c.test/1", "C1", 1, 4}});
    CleanupReviewList list(model());
    EXPECT_FALSE(list.isShown());
    review();
    ASSERT_TRUE(list.isShown());
    EXPECT_EQ(list.rowCount(), 3);
    EXPECT_EQ(list.siteCount(), 2);
    const auto opens = [&](int row) {
        return list.data(list.index(row), CleanupReviewList::OpensSiteRole).toBool();
    };
    const auto domain = [&](int row) {
        return list.data(list.index(row), CleanupReviewList::DomainRole).toString();
    };
    EXPECT_TRUE(opens(0));
    for (int row = 1; row < 3; ++row)
        EXPECT_EQ(opens(row), domain(row) != domain(row - 1)) << row;
}

TEST_F(OpenTabListsTest, theReviewsButtonCountsWhatIsSelected) {
    openFive();
    CleanupReviewList list(model());
    review();
    EXPECT_EQ(list.confirmText(), u"Close 5 tabs"_qs);
    EXPECT_EQ(list.counterText(), u"5 selected"_qs);
    for (int row = 0; row < 4; ++row)
        list.toggle(row);
    EXPECT_EQ(list.confirmText(), u"Close 1 tab"_qs);
    list.selectAll();
    EXPECT_EQ(list.selectedCount(), 5);
}

TEST_F(OpenTabListsTest, withNoneSelectedTheReviewStays) {
    openFive();
    CleanupReviewList list(model());
    review();
    list.selectNone();
    EXPECT_EQ(list.confirmText(), u"Close 0 tabs"_qs);
    const auto before = scripts.runs.size();
    list.confirm();
    settle();
    EXPECT_TRUE(list.isShown());
    EXPECT_EQ(scripts.runs.size(), before);
}

TEST_F(OpenTabListsTest, confirmingClosesTheSelectedTabsAndTheReview) {
    openFive();
    CleanupReviewList list(model());
    review();
    for (int row = 0; row < 3; ++row)
        list.toggle(row);
    list.confirm();
    EXPECT_FALSE(list.isShown());
    ASSERT_TRUE(waitUntil([&] { return !notices.empty(); }));
    EXPECT_EQ(lastWords(), Words("Tabs cleaned up", "2 tabs closed."));
}

TEST_F(OpenTabListsTest, aNewReviewReplacesAnOlderOneAndCancelClearsIt) {
    openFive();
    CleanupReviewList list(model());
    review();
    list.toggle(0);
    const Uuid first = model().tabCleanup().cleanupReview()->id;
    open({{"https://b.test/", "B"}});
    model().tabCleanup().runTabCleanup();
    ASSERT_TRUE(waitUntil([&] { return model().tabCleanup().cleanupReview()->id != first; }));
    EXPECT_THAT(shown(list), ElementsAre("B"));
    EXPECT_EQ(list.selectedCount(), 1);
    list.cancel();
    EXPECT_FALSE(list.isShown());
    EXPECT_FALSE(model().tabCleanup().cleanupReview().has_value());
}

} // namespace
} // namespace brinmoor
