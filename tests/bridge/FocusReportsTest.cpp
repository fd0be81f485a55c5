// The focus as real hosts pass it on, for browsers whose extensions are in the test's hands.

#include "bridge/focus/HostFocusReports.h"
#include "tests/bridge/FakeBrowser.h"
#include "tests/support/Waiting.h"

#include <QCoreApplication>

#include <csignal>

namespace brinmoor {
namespace {

using testing::FakeBrowser;
using testing::waitUntil;

class FocusReportsTest : public ::testing::Test {
protected:
    void SetUp() override { std::signal(SIGPIPE, SIG_IGN); }

    static void tell(FakeBrowser& browser, bool focused) {
        browser.send(std::string(R"({"id":0,"protocol":1,"event":"focus","focused":)") +
                     (focused ? "true}" : "false}"));
    }
    static bool becomes(const FocusReports& reports, const std::optional<std::string>& browser) {
        return waitUntil([&] { return reports.focusedBrowser() == browser; });
    }

    int count = 0;
    QCoreApplication application{count, nullptr};
    testing::ScratchFolder runtime;
};

const std::optional<std::string> chromium("org.chromium.Chromium");
const std::optional<std::string> brave("com.brave.Browser");

TEST_F(FocusReportsTest, aBrowserThatWasThereFirstIsHeard) {
    FakeBrowser browser(runtime.path());
    browser.sendHello();
    tell(browser, true);
    const HostFocusReports reports(runtime.path().c_str());
    EXPECT_TRUE(becomes(reports, chromium));
}

TEST_F(FocusReportsTest, aBrowserThatComesLaterIsHeardAndEveryChangeIsTold) {
    HostFocusReports reports(runtime.path().c_str());
    std::vector<std::optional<std::string>> told;
    const Subscription heard = reports.onFocus([&] { told.push_back(reports.focusedBrowser()); });
    EXPECT_EQ(reports.focusedBrowser(), std::nullopt);
    FakeBrowser browser(runtime.path());
    browser.sendHello();
    tell(browser, true);
    EXPECT_TRUE(becomes(reports, chromium));
    tell(browser, false);
    EXPECT_TRUE(becomes(reports, std::nullopt));
    tell(browser, true);
    EXPECT_TRUE(becomes(reports, chromium));
    EXPECT_EQ(told, (std::vector<std::optional<std::string>>{chromium, std::nullopt, chromium}));
}

TEST_F(FocusReportsTest, ofTwoThatClaimTheFocusTheLaterOneHasIt) {
    const HostFocusReports reports(runtime.path().c_str());
    FakeBrowser first(runtime.path());
    FakeBrowser second(runtime.path(), "\"$0\" \"$1\"; exit $?", "brave");
    first.sendHello();
    second.sendHello();
    tell(first, true);
    ASSERT_TRUE(becomes(reports, chromium));
    tell(second, true);
    EXPECT_TRUE(becomes(reports, brave));
    tell(first, true);
    EXPECT_TRUE(becomes(reports, chromium));
    tell(first, false);
    EXPECT_TRUE(becomes(reports, brave)) << "which never said that it lost it";
}

TEST_F(FocusReportsTest, aBrowserThatGoesTakesItsFocusAlongAndMayComeBack) {
    const HostFocusReports reports(runtime.path().c_str());
    {
        FakeBrowser browser(runtime.path());
        browser.sendHello();
        tell(browser, true);
        ASSERT_TRUE(becomes(reports, chromium));
    }
    EXPECT_TRUE(becomes(reports, std::nullopt));
    FakeBrowser again(runtime.path());
    again.sendHello();
    tell(again, true);
    EXPECT_TRUE(becomes(reports, chromium));
}

TEST_F(FocusReportsTest, withoutARuntimeFolderNothingIsReported) {
    const HostFocusReports reports(nullptr);
    EXPECT_EQ(reports.focusedBrowser(), std::nullopt);
}

} // namespace
} // namespace brinmoor
