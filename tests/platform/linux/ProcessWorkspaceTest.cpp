#include "platform/linux/ProcessWorkspace.h"

#include "platform/Observers.h"
#include "tests/platform/linux/TestProgram.h"

#include <gmock/gmock.h>

#include <algorithm>

using namespace brinmoor;
using namespace brinmoor::testing;

namespace {

class SaidFocus final : public FocusReports {
public:
    std::optional<std::string> focused;
    Observers<> observers;

    [[nodiscard]] std::optional<std::string> focusedBrowser() const override { return focused; }
    [[nodiscard]] Subscription onFocus(std::function<void()> changed) override {
        return observers.add(std::move(changed));
    }
};

} // namespace

TEST(ProcessWorkspace, runningBrowsersAreKnownWithoutAWindowSystem) {
    const TestProgram browser("vivaldi-bin", {});
    const ProcessWorkspace workspace(DesktopEntries({}));
    const auto all = workspace.runningApplications();
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto& application) {
        return application.processIdentifier == browser.process();
    });
    ASSERT_NE(found, all.end());
    EXPECT_EQ(found->bundleIdentifier, "com.vivaldi.Vivaldi");
    EXPECT_EQ(workspace.visibleWindows(), std::nullopt);
    EXPECT_EQ(workspace.frontmostApplication(), std::nullopt);
}

TEST(ProcessWorkspace, theBrowserThatReportsTheFocusIsInFront) {
    const TestProgram browser("vivaldi-bin", {});
    SaidFocus reports;
    ProcessWorkspace workspace(DesktopEntries({}), &reports);
    std::optional<RunningApplication> told;
    const auto subscription = workspace.onActivation([&](const auto& front) { told = front; });
    reports.focused = "com.vivaldi.Vivaldi";
    reports.observers.tell();
    ASSERT_TRUE(told.has_value());
    EXPECT_EQ(told->bundleIdentifier, "com.vivaldi.Vivaldi");
    EXPECT_EQ(told, workspace.frontmostApplication());
    reports.focused = std::nullopt;
    reports.observers.tell();
    EXPECT_EQ(told, std::nullopt);
}
