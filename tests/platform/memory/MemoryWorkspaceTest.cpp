#include "platform/memory/MemoryWorkspace.h"

#include <gmock/gmock.h>

using namespace brinmoor;

namespace {

RunningApplication application(const char* identifier, std::int32_t process) {
    return {.bundleIdentifier = identifier, .localizedName = {}, .processIdentifier = process};
}

} // namespace

TEST(MemoryWorkspace, aChangeOfTheFrontApplicationIsToldWhileSubscribed) {
    MemoryWorkspace workspace;
    std::vector<std::optional<RunningApplication>> told;
    auto subscription = workspace.onActivation([&](const auto& front) { told.push_back(front); });
    const auto browser = application("org.chromium.Chromium", 7);
    workspace.bringToFront(browser);
    workspace.bringToFront(browser);
    workspace.bringToFront(std::nullopt);
    subscription.cancel();
    workspace.bringToFront(browser);
    EXPECT_THAT(told, testing::ElementsAre(browser, std::nullopt));
    EXPECT_EQ(workspace.frontmostApplication(), browser);
}

TEST(MemoryWorkspace, activationBringsAnApplicationForward) {
    MemoryWorkspace workspace;
    const auto browser = application("org.chromium.Chromium", 7);
    EXPECT_TRUE(workspace.activate(browser));
    EXPECT_EQ(workspace.front, browser);
    EXPECT_THAT(workspace.activated, testing::ElementsAre(browser));
}

TEST(MemoryWorkspace, anApplicationWithoutWindowIsNotActivated) {
    MemoryWorkspace workspace;
    workspace.withoutWindow = {7};
    EXPECT_FALSE(workspace.activate(application("org.chromium.Chromium", 7)));
    EXPECT_FALSE(workspace.front.has_value());
}
