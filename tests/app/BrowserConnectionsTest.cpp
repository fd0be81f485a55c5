#include "app/BrowserConnections.h"
#include "tests/app/Desk.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using testing::CannedScripts;
using testing::Desk;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::settle;
using State = BrowserConnections::State;

class BrowserConnectionsTest : public Desk {
protected:
    BrowserConnectionsTest() {
        browsers.installed = {{"org.mozilla.firefox", "Firefox"},
                              {"com.brave.Browser", "Brave"},
                              {"org.chromium.Chromium", "Chromium"}};
    }
    BrowserConnections& connections() { return model().browserConnections(); }
    void refuse(CaptureError::Cause cause) {
        scripts.answer = [cause](const ScriptRun& run) {
            return CannedScripts::Answer(
                failure(CaptureFailure(CaptureError{cause, run.browserName})));
        };
    }
    void check() {
        connections().check();
        settle();
    }
    State stateOf(const std::string& id) {
        for (const auto& entry : connections().entries())
            if (entry.id == id)
                return entry.state;
        ADD_FAILURE() << id;
        return State::checking;
    }
};

TEST_F(BrowserConnectionsTest, theCataloguesBrowsersComeFirstAndTheOthersLast) {
    check();
    std::vector<std::string> names;
    for (const auto& entry : connections().entries())
        names.push_back(entry.name);
    EXPECT_THAT(names, ElementsAre("Brave", "Chromium", "Firefox"));
    EXPECT_EQ(stateOf("org.mozilla.firefox"), State::unsupported);
}

TEST_F(BrowserConnectionsTest, connectedIsWhatAnswers) {
    check();
    EXPECT_EQ(stateOf("org.chromium.Chromium"), State::connected);
    EXPECT_EQ(stateOf("com.brave.Browser"), State::notRunning);
    ASSERT_EQ(scripts.runs.size(), 1U);
    EXPECT_THAT(scripts.runs[0].script, HasSubstr("Application('org.chromium.Chromium')"));
}

TEST_F(BrowserConnectionsTest, aBrowserThatRunsWithoutTheExtensionIsNotConnected) {
    refuse(CaptureError::Cause::permission);
    check();
    EXPECT_EQ(stateOf("org.chromium.Chromium"), State::notAdded);
}

TEST_F(BrowserConnectionsTest, anExtensionThatFailsToAnswerIsNeitherConnectedNorMissing) {
    refuse(CaptureError::Cause::failed);
    check();
    EXPECT_EQ(stateOf("org.chromium.Chromium"), State::noAnswer);
}

TEST_F(BrowserConnectionsTest, whatRunsInASandboxSaysSo) {
    browsers.installed[1].sandboxed = true;
    browsers.installed[2].sandboxed = true;
    refuse(CaptureError::Cause::permission);
    check();
    EXPECT_EQ(stateOf("org.chromium.Chromium"), State::sandboxed);
    EXPECT_EQ(stateOf("com.brave.Browser"), State::sandboxed);
}

TEST_F(BrowserConnectionsTest, aRunningBrowserThatNobodyInstalledIsThereToo) {
    browsers.installed.clear();
    check();
    ASSERT_EQ(connections().entries().size(), 1U);
    EXPECT_EQ(stateOf("org.chromium.Chromium"), State::connected);
}

TEST_F(BrowserConnectionsTest, whileItChecksASecondCheckWaits) {
    scripts.hold = CannedScripts::Hold::everything;
    check();
    EXPECT_TRUE(connections().isChecking());
    EXPECT_EQ(stateOf("org.chromium.Chromium"), State::checking);
    check();
    EXPECT_EQ(scripts.runs.size(), 1U);
    scripts.release();
    settle();
    EXPECT_FALSE(connections().isChecking());
    EXPECT_EQ(stateOf("org.chromium.Chromium"), State::connected);
}

TEST_F(BrowserConnectionsTest, anAnswerAfterTheEndIsDropped) {
    scripts.hold = CannedScripts::Hold::everything;
    check();
    endModel();
    scripts.release();
    settle();
}

TEST_F(BrowserConnectionsTest, everyCheckTellsTheBrowsersWhereTheHelperLies) {
    check();
    check();
    EXPECT_EQ(browsers.told, 2);
}

TEST(ConnectionSteps, eachBrowserHasItsOwnAddressAndTheFolder) {
    const std::vector<std::pair<std::string, std::string>> pages{
        {"com.google.Chrome", "chrome://extensions"},
        {"com.google.Chrome.beta", "chrome://extensions"},
        {"com.brave.Browser", "brave://extensions"},
        {"com.microsoft.edgemac", "edge://extensions"},
        {"com.vivaldi.Vivaldi", "vivaldi://extensions"},
        {"org.chromium.Chromium", "chrome://extensions"},
        {"com.operasoftware.Opera", "opera://extensions"}};
    for (const auto& [id, page] : pages) {
        const auto steps = connectionSteps(id, "Name", "/folder");
        ASSERT_EQ(steps.size(), 4U) << id;
        EXPECT_EQ(steps[0].text, "Open this address in Name.");
        EXPECT_EQ(steps[0].copyable, page);
        EXPECT_EQ(steps[2].copyable, "/folder");
    }
    EXPECT_TRUE(connectionSteps("org.mozilla.firefox", "Firefox", "/folder").empty());
}

} // namespace
} // namespace brinmoor
