// The scripts that read, select and close open tabs, run by the real tool against a simulated
// browser in both dialects.

#include "browser/TabScripts.h"
#include "browser/scripts/Scripts.h"
#include "tests/bridge/ScriptRunning.h"
#include "tests/bridge/SimulatedBrowser.h"

#include <gmock/gmock.h>

namespace brinmoor::testing {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

const std::string mark = ".4711.00000000000000aa";

/// The same promises for both dialects.
class TabScripts : public ::testing::TestWithParam<bool> {
protected:
    [[nodiscard]] bool safari() const { return GetParam(); }
    [[nodiscard]] const Browser& browser() const {
        return *Browser::find(safari() ? "com.apple.SafariTechnologyPreview"
                                       : "org.chromium.Chromium");
    }
    [[nodiscard]] SimulatedBrowser::Options options() const {
        SimulatedBrowser::Options given;
        given.browserID = browser().id;
        return given;
    }
    [[nodiscard]] std::string output(const std::string& script) const {
        const auto result = runTool(script, {{"XDG_RUNTIME_DIR", runtime.path()}});
        EXPECT_EQ(result.status, 0) << result.errors;
        return result.output;
    }
    [[nodiscard]] std::vector<OpenBrowserTab> pages() const {
        auto tabs = decodeOpenTabs(output(readTabsScript(browser())));
        EXPECT_TRUE(tabs.ok());
        return tabs ? std::move(tabs).value() : std::vector<OpenBrowserTab>();
    }
    [[nodiscard]] std::vector<BrowserTabSnapshot> snapshots() const {
        auto tabs = decodeTabSnapshots(output(readTabsForCleanupScript(browser())));
        EXPECT_TRUE(tabs.ok());
        return tabs ? std::move(tabs).value() : std::vector<BrowserTabSnapshot>();
    }
    [[nodiscard]] std::string activated(const OpenBrowserTab& tab) const {
        return output(activateTabScript(browser(), tab));
    }
    [[nodiscard]] std::string closed(const std::vector<BrowserTabSnapshot>& tabs) const {
        const auto scripts = closeTabsScripts(browser(), tabs);
        EXPECT_EQ(scripts.size(), 1U);
        return output(scripts.at(0));
    }
    [[nodiscard]] std::string tabID(int number) const {
        return safari() ? "" : std::to_string(number) + mark;
    }
    static std::vector<int> numbers(const SimulatedBrowser& simulated) {
        std::vector<int> found;
        for (const auto& window : simulated.windows())
            for (const auto& tab : window.tabs)
                found.push_back(tab.id);
        return found;
    }

    ScratchFolder runtime;
    std::vector<SimulatedWindow> windows{
        {10,
         {{1, "https://a.example/", "A"},
          {2, "https://b.example/", ""},
          {3, "chrome://settings/", "Settings"},
          {4, "", ""}},
         1},
        {20, {{5, "https://a.example/", "A too"}, {6, "ABOUT:blank", ""}}}};
};

INSTANTIATE_TEST_SUITE_P(Dialects, TabScripts, ::testing::Bool(),
                         [](const auto& dialect) { return dialect.param ? "safari" : "chromium"; });

TEST_P(TabScripts, aConnectedBrowserAnswersWhetherItIsConnectedAndNothingChanges) {
    SimulatedBrowser simulated(runtime.path(), options(), windows);
    EXPECT_EQ(output(checkAccessScript(browser())), "2\n");
    EXPECT_THAT(simulated.takeRequests(), ElementsAre("windows"));
}

// Reading for the search.

TEST_P(TabScripts, readTheWebPagesOfAllWindows) {
    const SimulatedBrowser simulated(runtime.path(), options(), windows);
    const std::string id(browser().id);
    const std::string name(browser().name);
    EXPECT_THAT(pages(), ElementsAre(OpenBrowserTab{id, name, "10" + mark, tabID(1), 1, "A",
                                                    "https://a.example/"},
                                     OpenBrowserTab{id, name, "10" + mark, tabID(2), 2,
                                                    "https://b.example/", "https://b.example/"},
                                     OpenBrowserTab{id, name, "20" + mark, tabID(5), 1, "A too",
                                                    "https://a.example/"}));
}

TEST_P(TabScripts, readHundredsOfTabsInOneRoundTrip) {
    for (SimulatedWindow& window : windows)
        for (int i = 0; i < 300; ++i)
            window.tabs.push_back({1000 * window.id + i, "https://c.example/" + std::to_string(i),
                                   "Page " + std::to_string(i)});
    SimulatedBrowser simulated(runtime.path(), options(), windows);
    EXPECT_EQ(pages().size(), 603U);
    EXPECT_THAT(simulated.takeRequests(), ElementsAre("windows"));
    EXPECT_EQ(snapshots().size(), 606U);
    EXPECT_THAT(simulated.takeRequests(), ElementsAre("windows"));
}

TEST_P(TabScripts, readNothingWithoutAWindow) {
    const SimulatedBrowser simulated(runtime.path(), options(), {});
    EXPECT_THAT(pages(), IsEmpty());
    EXPECT_THAT(snapshots(), IsEmpty());
}

TEST_P(TabScripts, doNothingToABrowserThatDoesNotRun) {
    const Browser& absent =
        *Browser::find(safari() ? "com.apple.Safari" : "company.thebrowser.Browser");
    EXPECT_EQ(output(readTabsScript(absent)), "[]\n");
    EXPECT_EQ(output(readTabsForCleanupScript(absent)), "[]\n");
    EXPECT_EQ(output(activateTabScript(absent, {})), "false\n");
    EXPECT_EQ(output(closeTabsScripts(absent, {BrowserTabSnapshot{}}).at(0)), "0\n");
}

TEST_P(TabScripts, handTextsOverAsTheyAre) {
    windows[0].tabs[0] = {1, "https://a.example/?q=\"'\\</script>", "\"Quoted\" \\ 字 👩"};
    const SimulatedBrowser simulated(runtime.path(), options(), windows);
    const auto tab = pages().at(0);
    EXPECT_EQ(tab.title, windows[0].tabs[0].title);
    EXPECT_EQ(tab.url, windows[0].tabs[0].url);
    EXPECT_EQ(activated(tab), "true\n");
    EXPECT_EQ(closed({snapshots().at(0)}), "1\n");
}

/// One window with tabs that a test makes up, as the scripts see them.
std::string readingOf(const std::string& function, const std::string& tabs, bool safari) {
    const auto result = runTool(
        std::string(scripts::browserTabs) +
        "\nfunction gone() { const error = new Error('gone'); error.errorNumber = -1728; throw "
        "error; }\nfunction refused() { const error = new Error('refused'); error.errorNumber = "
        "-1743; throw error; }\nconst tab = (number, more) => Object.assign({ id: () => number, "
        "url: () => 'https://' + number + '/', title: () => 'T' + number, name: () => 'T' + number "
        "}, more);\nfunction run() { const app = { running: () => true, windows: () => [{ id: () "
        "=> 7, activeTabIndex: gone, currentTab: { index: gone }, tabs: () => [" +
        tabs + "] }] }; return " + function + "(app, { id: 'b', name: 'B', safari: " +
        (safari ? "true" : "false") + " }).map(each => each.title).join(); }");
    return result.output + result.errors;
}

TEST_P(TabScripts, leaveOutATabThatVanishesMeanwhile) {
    const std::string tabs = "tab(1, {}), tab(2, { url: gone }), tab(3, {})";
    EXPECT_EQ(readingOf("readBrowserTabs", tabs, safari()), "T1,T3\n");
    EXPECT_EQ(readingOf("readBrowserTabsForCleanup", tabs, safari()), "T1,T3\n");
}

TEST_P(TabScripts, failAsAWholeAtAnyOtherFailure) {
    const std::string tabs = "tab(1, {}), tab(2, { url: refused })";
    for (const char* function : {"readBrowserTabs", "readBrowserTabsForCleanup"})
        EXPECT_EQ(readingOf(function, tabs, safari()), "execution error: Error: refused (-1743)\n");
}

TEST_P(TabScripts, needATitleForTheSearchOnly) {
    const std::string tabs = "tab(1, { title: gone, name: gone }), tab(2, { url: () => '', title: "
                             "refused, name: refused }), tab(3, {})";
    EXPECT_EQ(readingOf("readBrowserTabs", tabs, safari()), "T3\n");
    EXPECT_EQ(readingOf("readBrowserTabsForCleanup", tabs, safari()), "https://1/,Empty tab,T3\n");
}

// Reading for the cleanup.

TEST_P(TabScripts, readEveryTabForTheCleanup) {
    const SimulatedBrowser simulated(runtime.path(), options(), windows);
    const std::string id(browser().id);
    const std::string name(browser().name);
    const auto tab = [&](int window, int place, int number, const char* title, const char* url,
                         bool isActive, bool isEmpty) {
        return BrowserTabSnapshot{id,     name,          std::to_string(window * 10) + mark,
                                  window, tabID(number), place,
                                  title,  url,           isActive,
                                  isEmpty};
    };
    EXPECT_THAT(snapshots(),
                ElementsAre(tab(1, 1, 1, "A", "https://a.example/", false, false),
                            tab(1, 2, 2, "https://b.example/", "https://b.example/", true, false),
                            tab(1, 3, 3, "Settings", "chrome://settings/", false, false),
                            tab(1, 4, 4, "Empty tab", "", false, true),
                            tab(2, 1, 5, "A too", "https://a.example/", true, false),
                            tab(2, 2, 6, "ABOUT:blank", "ABOUT:blank", false, true)));
}

TEST_P(TabScripts, knowWhichAddressesAreEmptyTabs) {
    struct Case {
        const char* url;
        bool isEmpty;
    };
    const std::vector<Case> cases{{"", true},
                                  {"/", true},
                                  {"about:blank", true},
                                  {"about:blank/", true},
                                  {"ABOUT:BLANK", true},
                                  {"about:blank//", false},
                                  {"about:blank#x", false},
                                  {"about:newtab", true},
                                  {"chrome://newtab", true},
                                  {"chrome://newtab/", true},
                                  {"chrome://new-tab-page/", true},
                                  {"chrome://new-tab-page-third-party/", false},
                                  {"edge://newtab/", true},
                                  {"brave://newtab/", true},
                                  {"vivaldi://newtab/", true},
                                  {"opera://startpage/", true},
                                  {"opera://newtab/", false},
                                  {"favorites://", true},
                                  {"favorites:/", false},
                                  {"safari://favorites/", true},
                                  {"arc://new-tab", true},
                                  {"chrome://settings/", false},
                                  {"https://a.example/", false}};
    windows.resize(1);
    windows[0].tabs.clear();
    for (const Case& each : cases)
        windows[0].tabs.push_back({static_cast<int>(windows[0].tabs.size()) + 1, each.url, ""});
    const SimulatedBrowser simulated(runtime.path(), options(), windows);
    const auto read = snapshots();
    ASSERT_EQ(read.size(), cases.size());
    for (std::size_t i = 0; i < cases.size(); ++i)
        EXPECT_EQ(read[i].isEmpty, cases[i].isEmpty) << cases[i].url;
}

// Switching.

TEST_P(TabScripts, bringATabToTheFront) {
    windows[1].minimized = true;
    SimulatedBrowser simulated(runtime.path(), options(), windows);
    auto tab = pages().at(2);
    EXPECT_EQ(activated(tab), "true\n");
    const auto now = simulated.windows();
    EXPECT_EQ(now[0].id, 20);
    EXPECT_EQ(now[0].active, 0U);
    EXPECT_FALSE(now[0].minimized);
}

TEST_P(TabScripts, selectTheVeryTab) {
    SimulatedBrowser simulated(runtime.path(), options(), windows);
    EXPECT_EQ(activated(pages().at(0)), "true\n");
    EXPECT_EQ(simulated.windows()[0].active, 0U);
    EXPECT_EQ(activated(pages().at(1)), "true\n");
    EXPECT_EQ(simulated.windows()[0].active, 1U);
}

TEST_P(TabScripts, findAMovedTabAgain) {
    SimulatedBrowser simulated(runtime.path(), options(), windows);
    const auto tab = pages().at(0);
    simulated.change([](auto& all) { std::swap(all[0].tabs[0], all[0].tabs[3]); });
    EXPECT_EQ(activated(tab), "true\n");
    EXPECT_EQ(simulated.windows()[0].active, 3U);
}

TEST_P(TabScripts, leaveTheBrowserAsItIsWhenTheTabWentElsewhere) {
    SimulatedBrowser simulated(runtime.path(), options(), windows);
    const auto tab = pages().at(0);
    (void)simulated.takeRequests();
    simulated.change([](auto& all) { all[0].tabs[0].url = "https://other.example/"; });
    EXPECT_EQ(activated(tab), "false\n");
    simulated.change([](auto& all) { all[0].tabs.erase(all[0].tabs.begin()); });
    EXPECT_EQ(activated(tab), "false\n");
    simulated.change([](auto& all) { all.erase(all.begin()); });
    EXPECT_EQ(activated(tab), "false\n");
    EXPECT_THAT(simulated.takeRequests(), Each(std::string("windows")));
}

TEST_P(TabScripts, knowATabByWhatItsFamilyHas) {
    // Two tabs of one address: Safari goes by place, and by the first of them when neither stands
    // there; the others go by the identifier.
    windows[0].tabs = {{1, "https://x.example/", "X"},
                       {2, "https://a.example/", "A"},
                       {3, "https://a.example/", "A"}};
    SimulatedBrowser simulated(runtime.path(), options(), windows);
    const auto second = pages().at(2);
    EXPECT_EQ(activated(second), "true\n");
    EXPECT_EQ(simulated.windows()[0].active, 2U);
    simulated.change([](auto& all) {
        auto& tabs = all[0].tabs;
        tabs.insert(tabs.begin(), {9, "https://y.example/", "Y"});
        std::swap(tabs[2], tabs[1]);
        // Now Y, A(2), X, A(3): what stands at the place, X, is another page.
    });
    EXPECT_EQ(activated(second), "true\n");
    EXPECT_EQ(simulated.windows()[0].active, safari() ? 1U : 3U);
}

TEST_P(TabScripts, switchOnTheStrengthOfAFreshReading) {
    SimulatedBrowser simulated(runtime.path(), options(), windows);
    EXPECT_EQ(activated(pages().at(0)), "true\n");
    EXPECT_THAT(simulated.takeRequests(),
                ElementsAre("windows", "windows", "selectTab", "unminimizeWindow", "focusWindow",
                            "windows", "focusWindow"));
}

// Closing.

TEST_P(TabScripts, closeFromTheRightInEachWindow) {
    windows[1].tabs.push_back({7, "https://d.example/", "D"});
    SimulatedBrowser simulated(runtime.path(), options(), windows);
    const auto all = snapshots();
    EXPECT_EQ(closed({all[0], all[1], all[3], all[4], all[6]}), "5\n");
    EXPECT_THAT(numbers(simulated), ElementsAre(3, 6));
}

TEST_P(TabScripts, closeAnEmptyTabByItsEmptyAddress) {
    SimulatedBrowser simulated(runtime.path(), options(), windows);
    EXPECT_EQ(closed({snapshots().at(3)}), "1\n");
    EXPECT_THAT(numbers(simulated), ElementsAre(1, 2, 3, 5, 6));
}

TEST_P(TabScripts, readIdentityAndAddressAfreshBeforeEachClose) {
    SimulatedBrowser simulated(runtime.path(), options(), windows);
    const auto all = snapshots();
    (void)simulated.takeRequests();
    EXPECT_EQ(closed({all[0], all[1]}), "2\n");
    EXPECT_THAT(simulated.takeRequests(),
                ElementsAre("windows", "tab", "closeTab", "windows", "tab", "closeTab"));
}

TEST_P(TabScripts, leaveATabThatWentElsewhere) {
    SimulatedBrowser simulated(runtime.path(), options(), windows);
    const auto all = snapshots();
    simulated.change([](auto& now) { now[0].tabs[0].url = "https://other.example/"; });
    EXPECT_EQ(closed({all[0], all[1]}), "1\n");
    EXPECT_THAT(numbers(simulated), ElementsAre(1, 3, 4, 5, 6));
    simulated.change([](auto& now) { now[0].tabs[1].url = ""; });
    (void)simulated.takeRequests();
    EXPECT_EQ(closed({all[2]}), "0\n");
    EXPECT_THAT(simulated.takeRequests(), Not(Contains("closeTab")));
}

TEST_P(TabScripts, leaveATabThatGoesElsewhereAtTheLastMoment) {
    SimulatedBrowser simulated(runtime.path(), options(), windows);
    const auto all = snapshots();
    simulated.beforeRequest = [](const std::string& request, auto& now) {
        if (request == "closeTab" && now[0].tabs.size() == 4)
            now[0].tabs[1].url = "https://other.example/";
    };
    EXPECT_EQ(closed({all[0], all[1]}), "1\n");
    EXPECT_THAT(numbers(simulated), ElementsAre(2, 3, 4, 5, 6));
}

TEST_P(TabScripts, leaveWhatTheUserClosedMovedOrTookAway) {
    SimulatedBrowser simulated(runtime.path(), options(), windows);
    const auto all = snapshots();
    simulated.change([](auto& now) {
        now[0].tabs.erase(now[0].tabs.begin() + 1);
        now[1].tabs.push_back(now[0].tabs[0]);
        now[0].tabs.erase(now[0].tabs.begin());
    });
    // Of the first window only Settings and the empty tab are left, at other places; A is in the
    // second window now, behind its own.
    EXPECT_EQ(closed({all[0], all[1]}), "0\n");
    EXPECT_EQ(closed({all[4], all[5]}), "2\n");
    EXPECT_THAT(numbers(simulated), ElementsAre(3, 4, 1));
}

TEST_P(TabScripts, closeTheTabsOfOtherWindowsWhenOneIsGone) {
    SimulatedBrowser simulated(runtime.path(), options(), windows);
    const auto all = snapshots();
    simulated.change([](auto& now) { now.erase(now.begin()); });
    EXPECT_EQ(closed(all), "2\n");
    EXPECT_THAT(numbers(simulated), IsEmpty());
}

TEST_P(TabScripts, knowATabToCloseByWhatItsFamilyHas) {
    // A tab of the same address takes the place: in Safari nothing tells it from the other one.
    SimulatedBrowser simulated(runtime.path(), options(), windows);
    const auto first = snapshots().at(0);
    simulated.change([](auto& now) { now[0].tabs[0].id = 90; });
    EXPECT_EQ(closed({first}), safari() ? "1\n" : "0\n");
}

TEST_P(TabScripts, closeAMovedTabOnlyWhereItHasAnIdentifier) {
    SimulatedBrowser simulated(runtime.path(), options(), windows);
    const auto first = snapshots().at(0);
    simulated.change([](auto& now) { std::swap(now[0].tabs[0], now[0].tabs[2]); });
    EXPECT_EQ(closed({first}), safari() ? "0\n" : "1\n");
}

TEST_P(TabScripts, takeTheNextTabWhenOneResists) {
    SimulatedBrowser simulated(runtime.path(), options(), windows);
    const auto all = snapshots();
    int asked = 0;
    simulated.otherAnswer = [&](const std::string& request) {
        return request == "closeTab" && ++asked == 1
                   ? std::string(R"({"id":0,"protocol":1,"error":{"code":"failed"}})")
                   : std::string();
    };
    EXPECT_EQ(closed({all[0], all[1]}), "1\n");
    EXPECT_THAT(numbers(simulated), ElementsAre(2, 3, 4, 5, 6));
}

TEST_P(TabScripts, closeNothingForWhatIsNoList) {
    const SimulatedBrowser simulated(runtime.path(), options(), windows);
    const std::string helpers =
        std::string(scripts::captureHelpers) + std::string(scripts::closeBrowserTabs);
    for (const char* targets : {"null", "{}", "'x'", "[]", "[null]", "[{}]"})
        EXPECT_EQ(output(helpers + "function run() { return String(closeBrowserTabs(Application('" +
                         std::string(browser().id) + "'), " + targets + ")); }"),
                  "0\n")
            << targets;
}

} // namespace
} // namespace brinmoor::testing
