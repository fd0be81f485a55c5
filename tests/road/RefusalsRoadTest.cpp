#include "tests/road/Road.h"

#include "tests/platform/linux/TestProgram.h"

#include <gmock/gmock.h>

namespace brinmoor::testing {
namespace {

/// No browser of the other tests may run beside these.
class RefusalsRoad : public Road {
protected:
    RefusalsRoad() { endRoadBrowser(); }

    [[nodiscard]] bool runs(const std::string& id) {
        const auto running = real().workspace.runningApplications();
        return std::ranges::any_of(running,
                                   [&](const auto& each) { return each.bundleIdentifier == id; });
    }
};

TEST_F(RefusalsRoad, withoutABrowserThatIsSaid) {
    shell();
    ASSERT_TRUE(waitUntil([&] { return !runs("org.chromium.Chromium"); }));
    press(RoadKey::quick);
    EXPECT_EQ(noticeWith("No browser found").first, "No browser found");
    EXPECT_TRUE(model().toast()->isError);
    picture("no-browser");
}

TEST_F(RefusalsRoad, aBrowserWithoutTheExtensionNeedsAccess) {
    auto options = roadBrowser();
    options.connected = false;
    ChromiumSession stranger(options);
    shell();
    ASSERT_TRUE(stranger.start({"http://a.test/"}));
    ASSERT_TRUE(waitUntil([&] { return browserIsInFront(); }));
    press(RoadKey::quick);
    EXPECT_EQ(noticeWith("Browser access needed"),
              Words("Browser access needed",
                    "Allow Brinmoor to read tabs from Chromium in browser access settings."));
    EXPECT_TRUE(model().toast()->opensAutomationSettings);
    picture("access");
}

TEST_F(RefusalsRoad, firefoxInFrontIsNotSupportedYet) {
    shell();
    const TestProgram firefox(
        "firefox", {QStringLiteral("instance=Navigator"), QStringLiteral("class=firefox")});
    Workspace& workspace = real().workspace;
    ASSERT_TRUE(waitUntil([&] {
        const auto front = workspace.frontmostApplication();
        return front && front->processIdentifier == firefox.process();
    }));
    press(RoadKey::quick);
    ASSERT_TRUE(waitUntil([&] { return model().toast().has_value(); }));
    EXPECT_THAT(lastWords().first, ::testing::EndsWith(" isn’t supported yet"));
    EXPECT_THAT(lastWords().first, ::testing::StartsWith("Firefox"));
    picture("firefox");
}

} // namespace
} // namespace brinmoor::testing
