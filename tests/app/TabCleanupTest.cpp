#include "app/TabCleanup.h"

#include "platform/memory/ManualClock.h"
#include "platform/memory/MemoryPreferences.h"
#include "platform/memory/MemoryWorkspace.h"
#include "tests/support/CannedScripts.h"
#include "tests/support/TabRecords.h"
#include "tests/support/Waiting.h"

#include <gmock/gmock.h>

#include <map>
#include <memory>

namespace brinmoor {
namespace {

using testing::CannedScripts;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::isFor;
using ::testing::Not;
using testing::PretendedTab;
using testing::runs;
using testing::settle;
using testing::tabList;

constexpr auto chromeID = "com.google.Chrome";
constexpr auto braveID = "com.brave.Browser";

struct Said {
    std::string title;
    std::string message;
    bool isError = false;
    friend bool operator==(const Said&, const Said&) = default;
    friend void PrintTo(const Said& said, std::ostream* stream) {
        *stream << said.title << " / " << said.message << (said.isError ? " (error)" : "");
    }
};

class TabCleanupTest : public ::testing::Test {
protected:
    TabCleanupTest() {
        preferences.set("tabCleanupEnabled", true);
        domainsAre(R"(["a.test","b.test"])");
        scripts.answer = [this](const ScriptRun& run) -> CannedScripts::Answer {
            const auto& answers = runs(run, "readBrowserTabsForCleanup") ? readings : closings;
            for (const auto& [id, answer] : answers)
                if (isFor(run, id))
                    return *answer;
            return QByteArray("0");
        };
    }

    TabCleanup& cleanup() {
        if (!cleanup_) {
            cleanup_ = std::make_unique<TabCleanup>(workspace, scripts, preferences, clock);
            cleanup_->notify = [this](const CaptureNotice& notice) {
                EXPECT_FALSE(notice.opensAutomationSettings);
                said.push_back({notice.title, notice.message, notice.isError});
            };
            cleanup_->showCleanupReview = [this](const TabCleanupDraft& draft) {
                reviews.push_back(draft);
            };
        }
        return *cleanup_;
    }
    void end() { cleanup_.reset(); }

    void domainsAre(const std::string& json) {
        preferences.set("tabCleanupDomains", PreferenceData{json});
    }
    void closeAtOnce() { preferences.set("tabCleanupApproval", std::string("immediate")); }
    void open(const char* browserID, const std::vector<PretendedTab>& tabs,
              const char* closeAnswer = "0") {
        workspace.running.push_back({.bundleIdentifier = browserID, .localizedName = {}});
        readings[browserID] = tabList(browserID, tabs);
        closings[browserID] = QByteArray(closeAnswer);
    }
    void failing(const char* browserID) {
        open(browserID, {});
        readings[browserID] = failed();
    }
    static CannedScripts::Answer failed() {
        return failure(CaptureFailure(CaptureError{CaptureError::Cause::failed, "no answer"}));
    }

    void closeDuplicates() {
        cleanup().closeDuplicateTabs();
        settle();
    }
    void cleanUp() {
        cleanup().runTabCleanup();
        settle();
    }
    void confirm() {
        cleanup().confirmCleanupReview();
        settle();
    }
    [[nodiscard]] std::vector<std::string> closeScripts() const {
        std::vector<std::string> found;
        for (const ScriptRun& run : scripts.runs)
            if (runs(run, "closeBrowserTabs"))
                found.push_back(run.script);
        return found;
    }

    MemoryWorkspace workspace;
    MemoryPreferences preferences;
    ManualClock clock;
    CannedScripts scripts;
    std::map<std::string, std::optional<CannedScripts::Answer>> readings;
    std::map<std::string, std::optional<CannedScripts::Answer>> closings;
    std::vector<Said> said;
    std::vector<TabCleanupDraft> reviews;

private:
    std::unique_ptr<TabCleanup> cleanup_;
};

const std::vector<PretendedTab> twoCopiesAndAnEmptyTab{
    {"https://x.test/", "X", 1, 1}, {"https://x.test/", "X", 1, 2}, {"", "", 1, 3}};
const std::vector<PretendedTab> threeUnwanted{{"https://a.test/1", "A1", 1, 1},
                                              {"https://other.test/", "O", 1, 2},
                                              {"https://www.b.test/", "B", 1, 3},
                                              {"https://m.a.test/2", "A2", 2, 1}};

// Duplicates.

TEST_F(TabCleanupTest, closesDuplicatesAndEmptyTabsWithoutAsking) {
    preferences.set("tabCleanupEnabled", false);
    open(chromeID, twoCopiesAndAnEmptyTab, "2\n");
    closeDuplicates();
    EXPECT_THAT(reviews, IsEmpty());
    ASSERT_EQ(closeScripts().size(), 1U);
    EXPECT_THAT(closeScripts()[0], HasSubstr(R"([{"windowID":"w1","tabID":"t102","index":2,)"));
    EXPECT_THAT(closeScripts()[0], Not(HasSubstr("\"t101\"")));
    EXPECT_THAT(said, ElementsAre(Said{"Duplicate tabs cleaned up", "2 tabs closed."}));
}

TEST_F(TabCleanupTest, aPartialReadingThatFoundSomethingIsASuccess) {
    open(chromeID, twoCopiesAndAnEmptyTab, "2");
    failing(braveID);
    closeDuplicates();
    EXPECT_THAT(said, ElementsAre(Said{"Duplicate tabs cleaned up", "2 tabs closed."}));
}

TEST_F(TabCleanupTest, saysThatTabsAreTidy) {
    open(chromeID, {{"https://x.test/"}});
    closeDuplicates();
    EXPECT_THAT(said,
                ElementsAre(Said{"Tabs already tidy", "No duplicate or empty tabs found.", false}));
    EXPECT_THAT(closeScripts(), IsEmpty());
}

TEST_F(TabCleanupTest, asksForABrowserWhenNoneRuns) {
    closeDuplicates();
    cleanUp();
    EXPECT_THAT(
        said, ElementsAre(
                  Said{"Tabs already tidy", "Open a supported browser, then try again.", true},
                  Said{"Nothing to clean up", "Open a supported browser, then try again.", true}));
}

TEST_F(TabCleanupTest, namesTheBrowsersThatCouldNotBeReadWhenNothingElseWasFound) {
    failing(braveID);
    open(chromeID, {{"https://x.test/"}});
    closeDuplicates();
    failing("com.apple.Safari");
    cleanUp();
    EXPECT_THAT(said, ElementsAre(Said{"Couldn’t inspect every browser",
                                       "Check Automation access for Brave, then try again.", true},
                                  Said{"Couldn’t inspect every browser",
                                       "Check Automation access for Safari, Brave, then try again.",
                                       true}));
}

TEST_F(TabCleanupTest, runsOnceAtATime) {
    open(chromeID, twoCopiesAndAnEmptyTab, "2");
    scripts.hold = CannedScripts::Hold::everything;
    int changes = 0;
    QObject::connect(&cleanup(), &TabCleanup::isCleaningTabsChanged, &cleanup(),
                     [&] { ++changes; });
    closeDuplicates();
    EXPECT_TRUE(cleanup().isCleaningTabs());
    closeDuplicates();
    cleanUp();
    EXPECT_EQ(scripts.runs.size(), 1U);
    scripts.release();
    settle();
    EXPECT_TRUE(cleanup().isCleaningTabs());
    closeDuplicates();
    EXPECT_EQ(scripts.runs.size(), 2U);
    scripts.release();
    settle();
    EXPECT_FALSE(cleanup().isCleaningTabs());
    EXPECT_EQ(changes, 2);
    EXPECT_THAT(said, ElementsAre(Said{"Duplicate tabs cleaned up", "2 tabs closed."}));
}

// Websites.

TEST_F(TabCleanupTest, isOffForAFreshUser) {
    preferences.set("tabCleanupEnabled", std::nullopt);
    open(chromeID, threeUnwanted);
    cleanUp();
    EXPECT_THAT(
        said, ElementsAre(Said{"Tab Cleanup is off",
                               "Turn it on in Settings before running a website cleanup.", true}));
    EXPECT_THAT(scripts.runs, IsEmpty());
}

TEST_F(TabCleanupTest, needsAWebsite) {
    for (const char* stored : {"[]", "broken", R"({"a":1})", "[1]"}) {
        end();
        domainsAre(stored);
        said.clear();
        cleanUp();
        EXPECT_THAT(
            said,
            ElementsAre(Said{"Choose cleanup websites",
                             "Add at least one website in Settings before running cleanup.", true}))
            << stored;
    }
    EXPECT_THAT(scripts.runs, IsEmpty());
}

TEST_F(TabCleanupTest, saysThatNothingMatches) {
    open(chromeID, {{"https://other.test/"}});
    cleanUp();
    EXPECT_THAT(said, ElementsAre(Said{"Nothing to clean up",
                                       "No open tabs match your cleanup websites.", false}));
    EXPECT_EQ(cleanup().cleanupOpenTabs().size(), 1U);
    EXPECT_FALSE(cleanup().isCleaningTabs());
}

TEST_F(TabCleanupTest, showsAReviewWithEverythingSelected) {
    open(chromeID, threeUnwanted);
    cleanUp();
    ASSERT_EQ(reviews.size(), 1U);
    EXPECT_EQ(cleanup().cleanupReview(), reviews[0]);
    std::vector<std::string> titles;
    for (const auto& tab : reviews[0].tabs) {
        titles.push_back(tab.title);
        EXPECT_TRUE(reviews[0].selected.contains(tab.id()));
    }
    EXPECT_THAT(titles, ElementsAre("A1", "B", "A2"));
    EXPECT_EQ(cleanup().cleanupOpenTabs().size(), 4U);
    EXPECT_FALSE(cleanup().isCleaningTabs());
    EXPECT_THAT(said, IsEmpty());
    EXPECT_THAT(closeScripts(), IsEmpty());
}

TEST_F(TabCleanupTest, closesAtOnceWhereThatIsWanted) {
    closeAtOnce();
    open(chromeID, threeUnwanted, "3");
    cleanUp();
    EXPECT_THAT(reviews, IsEmpty());
    EXPECT_THAT(said, ElementsAre(Said{"Tabs cleaned up", "3 tabs closed."}));
    EXPECT_FALSE(cleanup().isCleaningTabs());
}

TEST_F(TabCleanupTest, closesTheSelectedTabsOfTheReview) {
    open(chromeID, threeUnwanted, "1");
    cleanUp();
    const auto tabs = reviews.at(0).tabs;
    cleanup().updateCleanupSelection({tabs[1].id(), "unknown"});
    EXPECT_EQ(cleanup().cleanupReview()->selected.size(), 2U);
    scripts.hold = CannedScripts::Hold::everything;
    confirm();
    EXPECT_EQ(cleanup().cleanupReview(), std::nullopt);
    EXPECT_TRUE(cleanup().isCleaningTabs());
    scripts.release();
    settle();
    ASSERT_EQ(closeScripts().size(), 1U);
    EXPECT_THAT(closeScripts()[0], HasSubstr(R"([{"windowID":"w1","tabID":"t103",)"
                                             R"("index":3,"url":"https://www.b.test/",)"
                                             R"("safari":false}]))"));
    EXPECT_THAT(said, ElementsAre(Said{"Tabs cleaned up", "1 tab closed."}));
    EXPECT_FALSE(cleanup().isCleaningTabs());
}

TEST_F(TabCleanupTest, aReviewWithNothingSelectedStays) {
    open(chromeID, threeUnwanted);
    cleanUp();
    cleanup().updateCleanupSelection({});
    confirm();
    EXPECT_TRUE(cleanup().cleanupReview().has_value());
    EXPECT_THAT(closeScripts(), IsEmpty());
    EXPECT_FALSE(cleanup().isCleaningTabs());
}

TEST_F(TabCleanupTest, withoutAReviewThereIsNothingToSelectOrConfirm) {
    cleanup().updateCleanupSelection({"x"});
    confirm();
    cleanup().discardCleanupReview();
    EXPECT_EQ(cleanup().cleanupReview(), std::nullopt);
    EXPECT_THAT(scripts.runs, IsEmpty());
}

TEST_F(TabCleanupTest, aCancelledReviewClosesNothing) {
    open(chromeID, threeUnwanted);
    cleanUp();
    cleanup().discardCleanupReview();
    confirm();
    EXPECT_EQ(cleanup().cleanupReview(), std::nullopt);
    EXPECT_THAT(closeScripts(), IsEmpty());
}

TEST_F(TabCleanupTest, aLaterReviewReplacesAnOpenOne) {
    open(chromeID, threeUnwanted);
    cleanUp();
    readings[chromeID] = tabList(chromeID, {{"https://a.test/new", "New"}});
    cleanUp();
    ASSERT_EQ(reviews.size(), 2U);
    EXPECT_NE(reviews[0].id, reviews[1].id);
    EXPECT_EQ(cleanup().cleanupReview(), reviews[1]);
}

TEST_F(TabCleanupTest, aReviewConfirmedDuringAnotherRunKeepsTheGuardUpUntilBothAreDone) {
    open(chromeID, threeUnwanted, "3");
    cleanUp();
    scripts.hold = CannedScripts::Hold::everything;
    closeDuplicates();
    confirm();
    scripts.release();
    settle();
    EXPECT_EQ(said.size(), 2U);
    EXPECT_FALSE(cleanup().isCleaningTabs());
}

// Words about the outcome.

TEST_F(TabCleanupTest, tellsHowManyWereClosedAndHowManyWereLeft) {
    struct Case {
        std::size_t requested;
        std::size_t closed;
        std::vector<std::string> failures;
        Said said;
    };
    const Said none{"No tabs closed", "The tabs moved, changed, or couldn’t be closed safely.",
                    true};
    for (const Case& each :
         {Case{3, 0, {}, none}, Case{3, 0, {"Brave"}, none}, Case{0, 0, {}, none},
          Case{1, 1, {}, {"T", "1 tab closed.", false}},
          Case{2, 2, {}, {"T", "2 tabs closed.", false}},
          Case{2, 2, {"Brave"}, {"T", "2 tabs closed.", true}},
          Case{3, 1, {}, {"T", "1 closed · 2 left open because they changed or moved.", false}},
          Case{4,
               3,
               {"Brave"},
               {"T", "3 closed · 1 left open because they changed or moved.", true}}}) {
        said.clear();
        cleanup().notifyCleanupResult(each.requested, each.closed, each.failures, "T");
        EXPECT_THAT(said, ElementsAre(each.said));
    }
}

TEST_F(TabCleanupTest, aBrowserThatFailsToCloseMarksTheNoticeAsAnError) {
    closeAtOnce();
    open(chromeID, threeUnwanted, "3");
    open(braveID, threeUnwanted);
    closings[braveID] = failed();
    cleanUp();
    EXPECT_THAT(said,
                ElementsAre(Said{"Tabs cleaned up",
                                 "3 closed · 3 left open because they changed or moved.", true}));
}

// Settings.

TEST_F(TabCleanupTest, writesItsSettings) {
    cleanup().setTabCleanupEnabled(false);
    cleanup().setTabCleanupApproval(TabCleanupApproval::immediate);
    EXPECT_EQ(preferences.object("tabCleanupEnabled"), PreferenceValue(false));
    EXPECT_EQ(preferences.text("tabCleanupApproval"), "immediate");
    end();
    EXPECT_FALSE(cleanup().tabCleanupEnabled());
    EXPECT_EQ(cleanup().tabCleanupApproval(), TabCleanupApproval::immediate);
    EXPECT_THAT(cleanup().tabCleanupDomains(), ElementsAre("a.test", "b.test"));
    cleanup().setTabCleanupApproval(TabCleanupApproval::ask);
    EXPECT_EQ(preferences.text("tabCleanupApproval"), "ask");
}

// An owner that goes.

TEST_F(TabCleanupTest, whatEndsAfterItsOwnerChangesNothing) {
    closeAtOnce();
    open(chromeID, threeUnwanted, "3");
    scripts.hold = CannedScripts::Hold::everything;
    cleanUp();
    end();
    scripts.release();
    settle();
    EXPECT_THAT(closeScripts(), IsEmpty());
    cleanUp();
    scripts.release();
    settle();
    EXPECT_EQ(closeScripts().size(), 1U);
    end();
    scripts.release();
    settle();
    EXPECT_THAT(said, IsEmpty());
}

} // namespace
} // namespace brinmoor
