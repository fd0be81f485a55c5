#include "browser/BrowserCapture.h"

#include "platform/memory/ManualClock.h"
#include "platform/memory/MemoryPreferences.h"
#include "platform/memory/MemoryWorkspace.h"
#include "tests/support/CannedScripts.h"
#include "tests/support/Waiting.h"

#include <gmock/gmock.h>

#include <memory>
#include <optional>

namespace brinmoor {
namespace {

using testing::CannedScripts;
using ::testing::HasSubstr;
using testing::settle;

constexpr auto chromiumID = "org.chromium.Chromium";
constexpr auto chromeID = "com.google.Chrome";

RunningApplication application(const char* id, const char* name, std::int32_t process) {
    return {.bundleIdentifier = id, .localizedName = name, .processIdentifier = process};
}

class BrowserCaptureTest : public ::testing::Test {
protected:
    using Answer = Result<CapturedTabs, CaptureFailure>;

    BrowserCapture& service() {
        if (!service_)
            service_ = std::make_unique<BrowserCapture>(workspace, preferences, clock, scripts);
        return *service_;
    }

    Answer capture(TabRange range = TabRange::current,
                   ClosePreparation preparation = ClosePreparation::none) {
        std::optional<Answer> answer;
        int calls = 0;
        service().capture(range, preparation, [&](Answer result) {
            answer = std::move(result);
            ++calls;
        });
        settle();
        EXPECT_EQ(calls, 1);
        return *answer;
    }

    /// A capture whose script runs and finds no page.
    void readNothing(ClosePreparation preparation = ClosePreparation::none) {
        EXPECT_EQ(errorOf(capture(TabRange::current, preparation)).cause,
                  CaptureError::Cause::noTabs);
    }

    bool close(CapturedTabTarget target) {
        std::optional<bool> closed;
        auto task = [&]() -> QCoro::Task<> { closed = co_await service().closeSavedTab(target); };
        task();
        settle();
        return closed.value();
    }

    void chromiumInFront() {
        workspace.running = {application(chromiumID, "Chromium", 42)};
        workspace.front = workspace.running.front();
    }

    void scriptAnswers(QByteArray json) {
        scripts.answer = [json](const ScriptRun&) { return CannedScripts::Answer(json); };
    }

    static CaptureError errorOf(const Answer& answer) {
        EXPECT_FALSE(answer.ok());
        const auto* error = std::get_if<CaptureError>(&answer.error());
        EXPECT_NE(error, nullptr);
        return error != nullptr ? *error : CaptureError{};
    }

    MemoryWorkspace workspace;
    MemoryPreferences preferences;
    ManualClock clock;
    CannedScripts scripts;

private:
    std::unique_ptr<BrowserCapture> service_;
};

// Which browser is meant.

TEST_F(BrowserCaptureTest, anUnsupportedBrowserInFrontIsSaidWhateverElseRuns) {
    workspace.running = {application(chromiumID, "Chromium", 42),
                         application("org.mozilla.firefox-esr", "Firefox", 43)};
    workspace.front = workspace.running.back();
    EXPECT_EQ(errorOf(capture()), (CaptureError{CaptureError::Cause::unsupported, "Firefox"}));
    EXPECT_TRUE(scripts.runs.empty());
}

TEST_F(BrowserCaptureTest, anUnsupportedBrowserWithoutANameIsThisBrowser) {
    workspace.front = RunningApplication{
        .bundleIdentifier = "org.mozilla.firefox", .localizedName = {}, .processIdentifier = 5};
    workspace.running = {*workspace.front};
    EXPECT_EQ(errorOf(capture()), (CaptureError{CaptureError::Cause::unsupported, "this browser"}));
}

TEST_F(BrowserCaptureTest, theProgramsOwnWindowInFrontIsNoUnsupportedBrowser) {
    workspace.ownIdentifier = "org.mozilla.firefox.own";
    workspace.running = {application(chromiumID, "Chromium", 42),
                         application("org.mozilla.firefox.own", "Brinmoor", 9)};
    workspace.front = workspace.running.back();
    EXPECT_EQ(errorOf(capture()), (CaptureError{CaptureError::Cause::noTabs, {}}));
    EXPECT_THAT(scripts.runs.at(0).script, HasSubstr("Application('org.chromium.Chromium')"));
}

TEST_F(BrowserCaptureTest, twoBrowsersAndNoOtherSignIsNoBrowser) {
    workspace.running = {application(chromiumID, "Chromium", 42),
                         application(chromeID, "Chrome", 43)};
    EXPECT_EQ(errorOf(capture()), (CaptureError{CaptureError::Cause::noBrowser, {}}));
}

TEST_F(BrowserCaptureTest, aFailureToChooseIsToldBeforeTheCallReturns) {
    bool told = false;
    service().capture(TabRange::current, ClosePreparation::none, [&](Answer) { told = true; });
    EXPECT_TRUE(told);
}

TEST_F(BrowserCaptureTest, theOwnerOfTheFrontmostOrdinaryWindowDecides) {
    workspace.running = {application(chromiumID, "Chromium", 42),
                         application(chromeID, "Chrome", 43), application("an.editor", "E", 44)};
    workspace.windows = {{.layer = 3, .ownerProcess = 42}, {.layer = {}, .ownerProcess = 42},
                         {.layer = 0, .ownerProcess = {}}, {.layer = 0, .ownerProcess = 99},
                         {.layer = 0, .ownerProcess = 44}, {.layer = 0, .ownerProcess = 43},
                         {.layer = 0, .ownerProcess = 42}};
    readNothing();
    EXPECT_THAT(scripts.runs.at(0).script, HasSubstr("Application('com.google.Chrome')"));
}

TEST_F(BrowserCaptureTest, theWindowListIsAskedForOnlyWhenItIsNeeded) {
    chromiumInFront();
    readNothing();
    EXPECT_EQ(workspace.windowQueries, 0);
}

TEST_F(BrowserCaptureTest, aFailedWindowQueryCountsAsNoWindows) {
    workspace.running = {application(chromiumID, "Chromium", 42),
                         application(chromeID, "Chrome", 43)};
    workspace.windows = std::nullopt;
    EXPECT_EQ(errorOf(capture()), (CaptureError{CaptureError::Cause::noBrowser, {}}));
}

TEST_F(BrowserCaptureTest, anEndedApplicationIsNotRunning) {
    workspace.running = {application(chromiumID, "Chromium", 42),
                         application(chromeID, "Chrome", 43)};
    workspace.running.front().isTerminated = true;
    workspace.front = workspace.running.front();
    readNothing();
    EXPECT_THAT(scripts.runs.at(0).script, HasSubstr("Application('com.google.Chrome')"));
}

// The memory of the last browser.

TEST_F(BrowserCaptureTest, theLastBrowserInFrontIsMeantFromOtherApplications) {
    workspace.running = {application(chromiumID, "Chromium", 42),
                         application(chromeID, "Chrome", 43), application("an.editor", "E", 44)};
    service();
    workspace.bringToFront(workspace.running[1]);
    workspace.bringToFront(workspace.running[2]);
    workspace.bringToFront(std::nullopt);
    readNothing();
    EXPECT_THAT(scripts.runs.at(0).script, HasSubstr("Application('com.google.Chrome')"));
    EXPECT_EQ(preferences.text("lastCaptureBrowser"), chromeID);
}

TEST_F(BrowserCaptureTest, theMemorySurvivesARestart) {
    preferences.values["lastCaptureBrowser"] = std::string(chromeID);
    workspace.running = {application(chromiumID, "Chromium", 42),
                         application(chromeID, "Chrome", 43)};
    readNothing();
    EXPECT_THAT(scripts.runs.at(0).script, HasSubstr("Application('com.google.Chrome')"));
}

TEST_F(BrowserCaptureTest, theLatestChoiceIsStoredThoughAnotherCopyChoseMeanwhile) {
    chromiumInFront();
    readNothing();
    EXPECT_EQ(preferences.text("lastCaptureBrowser"), chromiumID);
    preferences.set("lastCaptureBrowser", std::string(chromeID));
    readNothing();
    EXPECT_EQ(preferences.text("lastCaptureBrowser"), chromiumID);
}

TEST_F(BrowserCaptureTest, aBrowserThatQuitStaysRememberedAndWinsWhenItRunsAgain) {
    preferences.values["lastCaptureBrowser"] = std::string(chromeID);
    const auto chromium = application(chromiumID, "Chromium", 42);
    const auto brave = application("com.brave.Browser", "Brave", 43);
    workspace.running = {chromium, brave};
    EXPECT_EQ(errorOf(capture()).cause, CaptureError::Cause::noBrowser);
    workspace.running.push_back(application(chromeID, "Chrome", 44));
    readNothing();
    EXPECT_THAT(scripts.runs.at(0).script, HasSubstr("Application('com.google.Chrome')"));
}

TEST_F(BrowserCaptureTest, anUnknownRememberedBrowserIsPassedOver) {
    preferences.values["lastCaptureBrowser"] = std::string("an.old.browser");
    workspace.running = {application(chromiumID, "Chromium", 42)};
    readNothing();
    EXPECT_THAT(scripts.runs.at(0).script, HasSubstr("Application('org.chromium.Chromium')"));
}

// What was read.

TEST_F(BrowserCaptureTest, aPageBecomesALinkWithItsBestTitleAndIcon) {
    chromiumInFront();
    clock.present = {123.5};
    scriptAnswers(R"([{"url":"https://a.example/dir/page","title":"Tab",)"
                  R"("metadata":{"ogTitle":"A good page","iconURL":"/icon.png"}}])");
    const auto answer = capture();
    const SavedLink& link = answer.value().links.at(0);
    EXPECT_EQ(link.url, "https://a.example/dir/page");
    EXPECT_EQ(link.title, "A good page");
    EXPECT_EQ(link.browser, "Chromium");
    EXPECT_EQ(link.collection, "Inbox");
    EXPECT_EQ(link.iconURL, "https://a.example/icon.png");
    EXPECT_EQ(link.createdAt, (Instant{123.5}));
}

TEST_F(BrowserCaptureTest, aPageWithoutMetadataKeepsTheBrowsersTitle) {
    chromiumInFront();
    scriptAnswers(R"([{"url":"https://a.example/","title":"The tab’s title","metadata":{}}])");
    const auto answer = capture();
    EXPECT_EQ(answer.value().links.at(0).title, "The tab’s title");
    EXPECT_EQ(answer.value().links.at(0).iconURL, std::nullopt);
}

TEST_F(BrowserCaptureTest, anIconThatTheLibraryWouldNotAcceptIsLeftOut) {
    chromiumInFront();
    scriptAnswers(R"([{"url":"https://a.example/","title":"T",)"
                  R"("metadata":{"iconURL":"data:image/png;base64,AAAA"}}])");
    EXPECT_EQ(capture().value().links.at(0).iconURL, std::nullopt);
}

TEST_F(BrowserCaptureTest, tabsThatAreNoWebPagesVanish) {
    chromiumInFront();
    scriptAnswers(R"([{"url":"chrome://settings/","title":"Settings"},)"
                  R"({"url":"https://a.example/1","title":"One"},{"url":"","title":""},)"
                  R"({"url":"file:///etc/passwd","title":"P"},)"
                  R"({"url":"https://a.example/2","title":"Two"}])");
    const auto answer = capture(TabRange::wholeWindow);
    ASSERT_EQ(answer.value().links.size(), 2U);
    EXPECT_EQ(answer.value().links[0].title, "One");
    EXPECT_EQ(answer.value().links[1].title, "Two");
    EXPECT_EQ(answer.value().closeTarget, std::nullopt);
}

TEST_F(BrowserCaptureTest, onlyABlankTabIsNoTabs) {
    chromiumInFront();
    scriptAnswers(R"([{"url":"about:blank","title":"","metadata":{}}])");
    EXPECT_EQ(errorOf(capture()).cause, CaptureError::Cause::noTabs);
}

TEST_F(BrowserCaptureTest, aBrowserWithoutAWindowIsNoTabs) {
    chromiumInFront();
    scriptAnswers("[]\n");
    EXPECT_EQ(errorOf(capture()).cause, CaptureError::Cause::noTabs);
}

TEST_F(BrowserCaptureTest, theCloseTargetIsTheFirstEntrys) {
    chromiumInFront();
    scriptAnswers(R"([{"url":"https://a.example/","title":"A","closeTarget":{"windowID":"1",)"
                  R"("index":-1,"tabID":"7","url":"https://a.example/","safari":false,)"
                  R"("browserID":"org.chromium.Chromium","processID":42}}])");
    const auto answer = capture(TabRange::current, ClosePreparation::identifyTabs);
    ASSERT_TRUE(answer.value().closeTarget);
    EXPECT_EQ(answer.value().closeTarget->tabID, "7");
}

TEST_F(BrowserCaptureTest, theCloseTargetOfALaterEntryIsNoneOfTheCaptures) {
    chromiumInFront();
    scriptAnswers(R"([{"url":"chrome://settings/","title":"S"},)"
                  R"({"url":"https://a.example/","title":"A","closeTarget":{"windowID":"1",)"
                  R"("index":-1,"tabID":"7","url":"https://a.example/","safari":false,)"
                  R"("browserID":"org.chromium.Chromium","processID":42}}])");
    const auto answer = capture(TabRange::current, ClosePreparation::identifyTabs);
    EXPECT_EQ(answer.value().links.size(), 1U);
    EXPECT_EQ(answer.value().closeTarget, std::nullopt);
}

TEST_F(BrowserCaptureTest, anAnswerThatIsNoListIsAFailureWithoutWordsOfItsOwn) {
    chromiumInFront();
    for (const char* bytes : {"", "null", "{}", "[{]", "[{\"title\":\"no address\"}]"}) {
        scriptAnswers(bytes);
        const auto answer = capture();
        ASSERT_FALSE(answer.ok()) << bytes;
        EXPECT_TRUE(std::holds_alternative<OtherFailure>(answer.error())) << bytes;
    }
}

TEST_F(BrowserCaptureTest, theScriptsFailureReachesTheCaller) {
    chromiumInFront();
    scripts.answer = [](const ScriptRun& run) {
        return CannedScripts::Answer(failure(
            CaptureFailure(CaptureError{CaptureError::Cause::permission, run.browserName})));
    };
    EXPECT_EQ(errorOf(capture()), (CaptureError{CaptureError::Cause::permission, "Chromium"}));
    EXPECT_EQ(scripts.runs.at(0).kind, ScriptRun::Kind::pageCapture);
}

TEST_F(BrowserCaptureTest, theScriptIsGivenTheBrowsersProcess) {
    chromiumInFront();
    readNothing(ClosePreparation::identifyTabs);
    EXPECT_THAT(scripts.runs.at(0).script, HasSubstr("\"processID\":42"));
}

TEST(BrowserCaptureEnd, aCaptureUnderWayIsForgottenWithTheService) {
    MemoryWorkspace workspace;
    MemoryPreferences preferences;
    ManualClock clock;
    CannedScripts scripts;
    workspace.running = {application(chromiumID, "Chromium", 42)};
    scripts.hold = CannedScripts::Hold::everything;
    auto service = std::make_unique<BrowserCapture>(workspace, preferences, clock, scripts);
    bool told = false;
    service->capture(TabRange::current, ClosePreparation::none, [&](auto) { told = true; });
    service.reset();
    scripts.release();
    settle();
    EXPECT_FALSE(told);
}

// The safe close.

CapturedTabTarget chromiumTarget() {
    CapturedTabTarget target;
    target.windowID = "1";
    target.tabID = "7";
    target.url = "https://a.example/";
    target.browserID = chromiumID;
    target.processID = 42;
    return target;
}

TEST_F(BrowserCaptureTest, aTabIsClosedWhenTheScriptSaysTrue) {
    chromiumInFront();
    scriptAnswers(" true\n");
    EXPECT_TRUE(close(chromiumTarget()));
    EXPECT_EQ(scripts.runs.at(0).kind, ScriptRun::Kind::operation);
}

TEST_F(BrowserCaptureTest, anyOtherAnswerIsNotClosed) {
    chromiumInFront();
    for (const char* bytes : {"false\n", "", "True", "true true", "1"}) {
        scriptAnswers(bytes);
        EXPECT_FALSE(close(chromiumTarget())) << bytes;
    }
}

TEST_F(BrowserCaptureTest, aBrowserThatWasStartedAgainIsNeverTouched) {
    workspace.running = {application(chromiumID, "Chromium", 43)};
    EXPECT_FALSE(close(chromiumTarget()));
    EXPECT_TRUE(scripts.runs.empty());
}

TEST_F(BrowserCaptureTest, aTargetOfNoKnownBrowserIsNeverTouched) {
    chromiumInFront();
    auto target = chromiumTarget();
    target.browserID = "x'); evil('";
    EXPECT_FALSE(close(target));
    EXPECT_TRUE(scripts.runs.empty());
}

TEST_F(BrowserCaptureTest, aFailedCloseIsFalse) {
    chromiumInFront();
    scripts.answer = [](const ScriptRun&) {
        return CannedScripts::Answer(failure(CaptureFailure(OtherFailure{"gone"})));
    };
    EXPECT_FALSE(close(chromiumTarget()));
}

} // namespace
} // namespace brinmoor
