#include "browser/BrowserTabCleanupService.h"

#include "platform/memory/MemoryWorkspace.h"
#include "tests/support/CannedScripts.h"
#include "tests/support/TabRecords.h"
#include "tests/support/Waiting.h"

#include <gmock/gmock.h>

#include <memory>
#include <optional>

namespace brinmoor {
namespace {

using testing::CannedScripts;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::isFor;
using testing::runs;
using testing::settle;
using testing::tabList;
using ::testing::UnorderedElementsAre;

constexpr auto chromeID = "com.google.Chrome";
constexpr auto braveID = "com.brave.Browser";
constexpr auto safariID = "com.apple.Safari";

class TabCleanupServiceTest : public ::testing::Test {
protected:
    TabCleanupServiceTest() {
        scripts.answer = [this](const ScriptRun& run) -> CannedScripts::Answer {
            for (const auto& [id, answer] : answers)
                if (isFor(run, id))
                    return *answer;
            return QByteArray("[]");
        };
    }

    void runBrowsers(const std::vector<const char*>& ids) {
        for (const char* id : ids)
            workspace.running.push_back({.bundleIdentifier = id, .localizedName = {}});
    }
    static CannedScripts::Answer failed() {
        return failure(CaptureFailure(CaptureError{CaptureError::Cause::failed, "no answer"}));
    }
    static BrowserTabSnapshot tab(const char* browserID, int place, std::string url) {
        BrowserTabSnapshot found;
        found.browserID = browserID;
        found.windowID = "1";
        found.tabID = std::to_string(place);
        found.index = place;
        found.url = std::move(url);
        return found;
    }

    TabCleanupReadResult read() {
        startReading();
        return reading.value();
    }
    void startReading() {
        // The reading may outlast this call, so what it needs is its argument.
        [](TabCleanupServiceTest* test) -> QCoro::Task<> {
            auto result = co_await test->service->readTabs();
            test->reading = std::move(result);
        }(this);
        settle();
    }
    TabCleanupCloseResult close(std::vector<BrowserTabSnapshot> tabs) {
        std::optional<TabCleanupCloseResult> closing;
        auto task = [&]() -> QCoro::Task<> {
            auto result = co_await service->close(tabs);
            closing = std::move(result);
        };
        task();
        settle();
        return closing.value();
    }

    MemoryWorkspace workspace;
    CannedScripts scripts;
    std::map<std::string, std::optional<CannedScripts::Answer>> answers;
    std::optional<TabCleanupReadResult> reading;
    std::unique_ptr<BrowserTabCleanupService> service =
        std::make_unique<BrowserTabCleanupService>(workspace, scripts);
};

TEST_F(TabCleanupServiceTest, readsTheRunningBrowsersInTheCataloguesOrder) {
    runBrowsers({braveID, "org.mozilla.firefox", chromeID, safariID});
    answers[chromeID] = tabList(chromeID, {{"https://a.test/"}, {""}});
    answers[braveID] = tabList(braveID, {{"https://b.test/"}});
    const auto result = read();
    EXPECT_TRUE(result.hadBrowsers);
    EXPECT_THAT(result.failedBrowsers, IsEmpty());
    ASSERT_EQ(result.tabs.size(), 3U);
    EXPECT_EQ(result.tabs[0].url, "https://a.test/");
    EXPECT_TRUE(result.tabs[1].isEmpty);
    EXPECT_EQ(result.tabs[2].browserName, "Brave");
    ASSERT_EQ(scripts.runs.size(), 3U);
    EXPECT_TRUE(isFor(scripts.runs[0], safariID));
    for (const ScriptRun& run : scripts.runs) {
        EXPECT_TRUE(runs(run, "readBrowserTabsForCleanup"));
        EXPECT_EQ(run.kind, ScriptRun::Kind::operation);
    }
}

TEST_F(TabCleanupServiceTest, tellsThatNoBrowserRuns) {
    runBrowsers({"org.mozilla.firefox"});
    const auto result = read();
    EXPECT_FALSE(result.hadBrowsers);
    EXPECT_THAT(result.tabs, IsEmpty());
    EXPECT_THAT(scripts.runs, IsEmpty());
}

TEST_F(TabCleanupServiceTest, readsTheNextBrowserWhenOneFails) {
    runBrowsers({safariID, chromeID, braveID});
    answers[safariID] = failed();
    answers[chromeID] = QByteArray("[{}]");
    answers[braveID] = tabList(braveID, {{"https://b.test/"}});
    const auto result = read();
    EXPECT_THAT(result.failedBrowsers, ElementsAre("Safari", "Chrome"));
    EXPECT_EQ(result.tabs.size(), 1U);
}

TEST_F(TabCleanupServiceTest, readsAndClosesOneBrowserAtATime) {
    runBrowsers({chromeID, braveID});
    scripts.hold = CannedScripts::Hold::everything;
    startReading();
    EXPECT_EQ(scripts.runs.size(), 1U);
    scripts.release();
    settle();
    EXPECT_EQ(scripts.runs.size(), 2U);
    scripts.release();
    settle();
    EXPECT_TRUE(reading.has_value());
}

TEST_F(TabCleanupServiceTest, closesEachBrowsersTabsByOneScript) {
    answers[chromeID] = QByteArray("2\n");
    answers[braveID] = QByteArray(" 1 ");
    const auto result = close({tab(chromeID, 1, "https://a.test/"), tab(braveID, 4, ""),
                               tab(chromeID, 3, "https://b.test/")});
    EXPECT_EQ(result.requested, 3U);
    EXPECT_EQ(result.closed, 3U);
    EXPECT_THAT(result.failedBrowsers, IsEmpty());
    ASSERT_EQ(scripts.runs.size(), 2U);
    const auto& chromes = isFor(scripts.runs[0], chromeID) ? scripts.runs[0] : scripts.runs[1];
    EXPECT_THAT(chromes.script,
                HasSubstr(R"([{"windowID":"1","tabID":"1","index":1,"url":"https://a.test/",)"
                          R"("safari":false},{"windowID":"1","tabID":"3","index":3,)"
                          R"("url":"https://b.test/","safari":false}])"));
    EXPECT_EQ(chromes.kind, ScriptRun::Kind::operation);
}

TEST_F(TabCleanupServiceTest, closesNothingWhenNothingIsAskedFor) {
    const auto result = close({});
    EXPECT_EQ(result.requested, 0U);
    EXPECT_THAT(scripts.runs, IsEmpty());
}

TEST_F(TabCleanupServiceTest, passesOverBrowsersThatAreNotInTheCatalogue) {
    answers[chromeID] = QByteArray("1");
    const auto result = close({tab("a.stranger');", 1, ""), tab(chromeID, 1, "")});
    EXPECT_EQ(result.requested, 2U);
    EXPECT_EQ(result.closed, 1U);
    EXPECT_THAT(result.failedBrowsers, IsEmpty());
    EXPECT_EQ(scripts.runs.size(), 1U);
}

TEST_F(TabCleanupServiceTest, namesTheBrowsersWhoseScriptFailedAndGoesOn) {
    answers[safariID] = failed();
    answers[chromeID] = QByteArray("1");
    answers[braveID] = failure(CaptureFailure(OtherFailure{"can't be started"}));
    const auto result = close({tab(safariID, 1, ""), tab(chromeID, 1, ""), tab(braveID, 1, "")});
    EXPECT_EQ(result.closed, 1U);
    EXPECT_THAT(result.failedBrowsers, UnorderedElementsAre("Safari", "Brave"));
}

TEST_F(TabCleanupServiceTest, namesABrowserOnceHoweverManyOfItsScriptsFailed) {
    answers[chromeID] = failed();
    std::vector<BrowserTabSnapshot> tabs;
    for (int place = 1; place <= 6; ++place)
        tabs.push_back(tab(chromeID, place, "https://a.test/" + std::string(50'000, 'x')));
    const auto result = close(tabs);
    EXPECT_EQ(scripts.runs.size(), 3U);
    EXPECT_THAT(result.failedBrowsers, ElementsAre("Chrome"));
}

TEST_F(TabCleanupServiceTest, addsUpWhatABrowsersScriptsReport) {
    answers[chromeID] = QByteArray("2");
    std::vector<BrowserTabSnapshot> tabs;
    for (int place = 1; place <= 6; ++place)
        tabs.push_back(tab(chromeID, place, "https://a.test/" + std::string(50'000, 'x')));
    EXPECT_EQ(close(tabs).closed, 6U);
}

TEST_F(TabCleanupServiceTest, takesWhatIsNoNumberForNone) {
    for (const char* output :
         {"", "\n", "true", "1.5", "-1", "2 tabs", "0x2", "99999999999999999999999"}) {
        answers[chromeID] = QByteArray(output);
        const auto result = close({tab(chromeID, 1, "")});
        EXPECT_EQ(result.closed, 0U) << output;
        EXPECT_THAT(result.failedBrowsers, IsEmpty());
    }
}

TEST_F(TabCleanupServiceTest, aServiceThatGoesLeavesTheOtherBrowsersAlone) {
    runBrowsers({chromeID, braveID});
    scripts.hold = CannedScripts::Hold::everything;
    startReading();
    service.reset();
    scripts.release();
    settle();
    EXPECT_EQ(scripts.runs.size(), 1U);
    EXPECT_TRUE(reading.has_value());
}

} // namespace
} // namespace brinmoor
