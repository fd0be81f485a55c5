// The search of open tabs and their cleanup in two real browsers at once.

#include "core/tabs/TabCleanupPlanner.h"
#include "tests/browser/OpenTabsDesk.h"
#include "tests/support/Eventually.h"

#include <QGuiApplication>

#include <signal.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <thread>

namespace brinmoor::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto chromiumID = "org.chromium.Chromium";
constexpr auto braveID = "com.brave.Browser";

using OpenTabs = OpenTabsDesk;

std::string address(const std::string& path) {
    return "http://page.test/" + path;
}

std::vector<std::string> urlsOf(const auto& tabs) {
    std::vector<std::string> urls;
    for (const auto& tab : tabs)
        urls.push_back(tab.url);
    return urls;
}

// Reading.

TEST_F(OpenTabs, showsThePagesOfBothBrowsersInTheCataloguesOrder) {
    brave().openWindow({address("b1"), address("b2")});
    chromium().openWindow({address("c1")});
    refresh();
    EXPECT_EQ(message(), "(none)");
    EXPECT_THAT(urlsOf(search.tabs()),
                ElementsAre(address("b1"), address("b2"), "http://start.test/brave", address("c1"),
                            "http://start.test/chromium"));
    const auto& second = search.tabs().at(1);
    EXPECT_EQ(second.browserID, braveID);
    EXPECT_EQ(second.browserName, "Brave");
    EXPECT_EQ(second.title, "Page b2");
    EXPECT_EQ(second.index, 2);
    EXPECT_EQ(search.tabs().at(4).browserName, "Chromium");
}

TEST_F(OpenTabs, readsWindowsInTheirOrderWithTheirActiveAndEmptyTabs) {
    const int behind = chromium().openWindow({address("c1")});
    const int front = chromium().openWindow({address("c2"), address("c3")});
    chromium().openTab(behind, "");
    chromium().openTab(front, "chrome://version/");
    chromium().openTab(front, "about:blank");
    ASSERT_TRUE(eventually([&] { return chromium().tabsOf(front).size() == 4; }));
    const auto reading = read();
    EXPECT_TRUE(reading.hadBrowsers);
    EXPECT_THAT(reading.failedBrowsers, IsEmpty());
    std::vector<std::string> seen;
    for (const auto& tab : reading.tabs)
        if (tab.browserID == chromiumID)
            seen.push_back(std::to_string(tab.windowIndex) + "/" + std::to_string(tab.index) +
                           (tab.isActive ? " active" : "") + (tab.isEmpty ? " empty" : ""));
    EXPECT_THAT(seen, ElementsAre("1/1 active", "1/2", "1/3", "1/4 empty", "2/1 active",
                                  "2/2 empty", "3/1 active"));
}

TEST_F(OpenTabs, readsOnWhileTabsComeAndGo) {
    std::atomic<bool> over = false;
    std::thread user([&] {
        const int window = chromium().openWindow({address("stays")});
        while (!over) {
            const int tab = chromium().openTab(window, address("comes"));
            chromium().close(tab);
        }
    });
    for (int i = 0; i < 20; ++i) {
        refresh();
        EXPECT_EQ(message(), "(none)");
        EXPECT_THAT(urlsOf(search.tabs()), Contains("http://start.test/chromium"));
        EXPECT_THAT(read().failedBrowsers, IsEmpty());
    }
    over = true;
    user.join();
}

// Switching.

TEST_F(OpenTabs, bringsATabOfTheOtherBrowsersMinimisedWindowToTheFront) {
    const int window = brave().openWindow({address("wanted"), address("other")});
    brave().minimize(window);
    chromium().bringForward(chromium().openWindow({address("front")}));
    ASSERT_TRUE(waitUntil([&] {
        const auto front = workspace->frontmostApplication();
        return front && front->bundleIdentifier == chromiumID;
    }));
    refresh();
    const auto results = found("wanted");
    ASSERT_EQ(results.size(), 1U);
    EXPECT_TRUE(switchedTo(results[0]));
    EXPECT_TRUE(waitUntil([&] {
        const auto front = workspace->frontmostApplication();
        return front && front->bundleIdentifier == braveID;
    }));
    const auto now = read();
    const auto first = std::ranges::find(now.tabs, braveID, &BrowserTabSnapshot::browserID);
    ASSERT_NE(first, now.tabs.end());
    EXPECT_EQ(first->url, address("wanted"));
    EXPECT_TRUE(first->isActive);
}

TEST_F(OpenTabs, saysSoWhenTheTabHasMovedOnAndFindsAMovedOne) {
    const int window = chromium().openWindow({address("a"), address("b"), address("c")});
    const auto tabs = chromium().tabsOf(window);
    refresh();
    const auto a = found("page.test/a").at(0);
    const auto b = found("page.test/b").at(0);
    const auto c = found("page.test/c").at(0);
    chromium().goTo(tabs[0].id, address("elsewhere"));
    EXPECT_FALSE(switchedTo(a));
    EXPECT_EQ(message(), "That tab moved or closed. Refresh to see what’s open now.");
    chromium().close(tabs[1].id);
    EXPECT_FALSE(switchedTo(b));
    chromium().move(tabs[2].id, 0);
    EXPECT_TRUE(switchedTo(c));
    chromium().moveToNewWindow(tabs[2].id);
    EXPECT_FALSE(switchedTo(c));
}

// Browsers that don't answer.

TEST_F(OpenTabs, namesABrowserThatHangsAndShowsTheOthersTabs) {
    const pid_t stopped = brave().session().process();
    ASSERT_EQ(::kill(stopped, SIGSTOP), 0);
    refresh();
    const auto reading = read();
    ASSERT_EQ(::kill(stopped, SIGCONT), 0);
    EXPECT_EQ(message(), "Couldn’t read Brave. Check Automation access in Settings, then refresh.");
    EXPECT_THAT(urlsOf(search.tabs()), ElementsAre("http://start.test/chromium"));
    EXPECT_THAT(reading.failedBrowsers, ElementsAre("Brave"));
    EXPECT_EQ(reading.tabs.size(), 1U);
    refresh();
    EXPECT_EQ(message(), "(none)");
}

TEST_F(OpenTabs, namesABrowserThatLetsNobodyIn) {
    const auto stranger = unconnectedBrave();
    refresh();
    EXPECT_EQ(message(), "Couldn’t read Brave. Check Automation access in Settings, then refresh.");
    EXPECT_THAT(urlsOf(search.tabs()), ElementsAre("http://start.test/chromium"));
    const auto reading = read();
    EXPECT_THAT(reading.failedBrowsers, ElementsAre("Brave"));
    EXPECT_EQ(reading.tabs.size(), 1U);
}

// Closing.

TEST_F(OpenTabs, closesDuplicatesAndEmptyTabsInBothBrowsers) {
    const int first = chromium().openWindow({address("twice"), address("once"), address("twice")});
    const int second = chromium().openWindow({address("twice"), address("twice#part")});
    const int third = brave().openWindow({address("twice"), address("twice")});
    chromium().openTab(first, "about:blank");
    const int empty = brave().openTab(third, "");
    ASSERT_TRUE(eventually([&] { return brave().isOpen(empty); }));
    const auto reading = read();
    const auto candidates = TabCleanupPlanner::duplicateAndEmptyCandidates(reading.tabs);
    EXPECT_EQ(candidates.size(), 4U);
    const auto result = close(candidates);
    EXPECT_EQ(result.closed, 4U);
    EXPECT_THAT(result.failedBrowsers, IsEmpty());
    EXPECT_THAT(urlsOf(chromium().tabsOf(first)), ElementsAre(address("twice"), address("once")));
    EXPECT_THAT(urlsOf(chromium().tabsOf(second)),
                ElementsAre(address("twice"), address("twice#part")));
    EXPECT_THAT(urlsOf(brave().tabsOf(third)), ElementsAre(address("twice")));
    EXPECT_THAT(TabCleanupPlanner::duplicateAndEmptyCandidates(read().tabs), IsEmpty());
}

TEST_F(OpenTabs, theNewTabPageOfAnotherSearchEngineIsAnEmptyTabToo) {
    const int window = chromium().openWindow({address("kept")});
    const int empty = chromium().openTab(window, "chrome://new-tab-page-third-party/");
    ASSERT_TRUE(eventually([&] {
        const auto urls = urlsOf(chromium().tabsOf(window));
        return urls.size() == 2 && urls[1] == "chrome://new-tab-page-third-party/";
    }));
    const auto reading = read();
    const auto candidates = TabCleanupPlanner::duplicateAndEmptyCandidates(reading.tabs);
    ASSERT_THAT(urlsOf(candidates), ElementsAre("chrome://newtab/"));
    EXPECT_EQ(close(candidates).closed, 1U);
    EXPECT_FALSE(chromium().isOpen(empty));
    EXPECT_THAT(urlsOf(chromium().tabsOf(window)), ElementsAre(address("kept")));
}

TEST_F(OpenTabs, closesFortyTabsButNoneThatChangedMeanwhile) {
    std::vector<int> windows;
    for (int window = 0; window < 3; ++window) {
        std::vector<std::string> addresses;
        for (int tab = 0; tab < 15; ++tab)
            addresses.push_back((tab == 14 ? "http://kept.test/" : "http://unwanted.test/") +
                                std::to_string(window) + "-" + std::to_string(tab));
        windows.push_back(chromium().openWindow(addresses));
    }
    auto unwanted = TabCleanupPlanner::domainCandidates(read().tabs, {"unwanted.test"});
    ASSERT_EQ(unwanted.size(), 42U);
    unwanted.erase(unwanted.begin(), unwanted.begin() + 2);

    // While the review is open, the user goes on working.
    const auto tabs = chromium().tabs();
    const auto numberOf = [&](const BrowserTabSnapshot& tab) {
        return std::ranges::find(tabs, tab.url, &RealTab::url)->id;
    };
    const auto number = [&](std::size_t i) { return numberOf(unwanted.at(i)); };
    std::vector<int> stay;
    for (const std::size_t i : {3U, 17U, 30U}) { // go to another page
        chromium().goTo(number(i), "http://elsewhere.test/" + std::to_string(i));
        stay.push_back(number(i));
    }
    for (const std::size_t i : {5U, 20U}) // are closed by hand
        chromium().close(number(i));
    for (const std::size_t i : {7U, 33U}) { // go to a window of their own
        chromium().moveToNewWindow(number(i));
        stay.push_back(number(i));
    }
    for (const std::size_t i : {9U, 25U}) // move within their window: still the same tabs
        chromium().move(number(i), 0);
    chromium().goTo(number(11), "http://elsewhere.test/and-back");
    chromium().goTo(number(11), unwanted[11].url); // is back on its page: as good as never left

    const auto result = close(unwanted);
    EXPECT_EQ(result.requested, 40U);
    EXPECT_EQ(result.closed, 33U);
    EXPECT_THAT(result.failedBrowsers, IsEmpty());
    std::vector<int> left;
    for (const RealTab& tab : chromium().tabs())
        left.push_back(tab.id);
    for (const int tab : stay)
        EXPECT_THAT(left, Contains(tab));
    for (const BrowserTabSnapshot& tab : unwanted)
        EXPECT_EQ(std::ranges::count(left, numberOf(tab)), std::ranges::count(stay, numberOf(tab)))
            << tab.url;
    // Besides: the start page, three that were not asked for, and the two taken from the list.
    EXPECT_EQ(left.size(), stay.size() + 1 + 3 + 2);
}

TEST_F(OpenTabs, closesNothingInABrowserThatWasStartedAnew) {
    brave().openWindow({address("unwanted")});
    const auto unwanted = TabCleanupPlanner::domainCandidates(read().tabs, {"page.test"});
    ASSERT_EQ(unwanted.size(), 1U);
    brave().session().stop();
    ASSERT_TRUE(brave().session().start({address("unwanted")}, {"--class=brave"}));
    ASSERT_TRUE(brave().session().waitForSockets(2));
    ASSERT_GE(brave().session().loadedTab(address("unwanted")), 0);
    EXPECT_EQ(close(unwanted).closed, 0U);
    EXPECT_THAT(urlsOf(brave().tabs()), Contains(address("unwanted")));
}

} // namespace
} // namespace brinmoor::testing

int main(int count, char** arguments) {
    ::testing::InitGoogleTest(&count, arguments);
    const QGuiApplication application(count, arguments);
    const int status = RUN_ALL_TESTS();
    brinmoor::testing::endSharedBrowsers();
    return status;
}
