#include "platform/linux/Desktop.h"
#include "platform/linux/Places.h"
#include "tests/platform/linux/TestKeyboard.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Eventually.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace brinmoor::testing {
namespace {

/// The real program, in a desktop of its own.
class SecondStart : public ::testing::Test {
protected:
    [[nodiscard]] bool hasWindow(pid_t process) {
        const auto running = desktop->runningApplications();
        return std::ranges::any_of(
            running, [&](const auto& each) { return each.processIdentifier == process; });
    }
    [[nodiscard]] bool isInFront(pid_t process) {
        const auto front = desktop->frontmostApplication();
        return front && front->processIdentifier == process;
    }

    std::unique_ptr<Workspace> desktop = makeWorkspace();
    TestKeyboard keyboard;
};

TEST_F(SecondStart, bringsBackTheWindowThatWasClosedAndEnds) {
    ChildProcess first(ChildOptions{{BRINMOOR}, {}, true});
    ASSERT_TRUE(eventually([&] { return isInFront(first.process()); }));
    keyboard.chord({XKey::controlLeft}, XKey::letterW);
    ASSERT_TRUE(eventually([&] { return !hasWindow(first.process()); }));
    // It goes on without a window: a shortcut still opens the search of open tabs.
    keyboard.chord({XKey::shiftLeft, XKey::superLeft}, XKey::letterO);
    ASSERT_TRUE(eventually([&] { return isInFront(first.process()); }));
    keyboard.tap(XKey::escape);
    ASSERT_TRUE(eventually([&] { return !hasWindow(first.process()); }));

    ChildProcess second(ChildOptions{{BRINMOOR}, {}, true});
    EXPECT_EQ(second.waitForExit(), 0);
    EXPECT_TRUE(eventually([&] { return isInFront(first.process()); }));
}

TEST_F(SecondStart, aProgramThatEndedIsNotWaitedFor) {
    {
        ChildProcess first(ChildOptions{{BRINMOOR}, {}, true});
        ASSERT_TRUE(eventually([&] { return hasWindow(first.process()); }));
    }
    ChildProcess second(ChildOptions{{BRINMOOR}, {}, true});
    EXPECT_TRUE(eventually([&] { return hasWindow(second.process()); }));
}

TEST_F(SecondStart, theStartTellsBrowsersWhereTheHelperProgramLies) {
    const auto manifest =
        systemPlaces().configHome + "/chromium/NativeMessagingHosts/app.brinmoor.bridge.json";
    ChildProcess program(ChildOptions{{BRINMOOR}, {}, true});
    EXPECT_TRUE(eventually([&] { return std::filesystem::exists(manifest); }));
}

} // namespace
} // namespace brinmoor::testing
