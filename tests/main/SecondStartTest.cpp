#include "platform/linux/Desktop.h"
#include "platform/linux/Places.h"
#include "tests/platform/linux/TestKeyboard.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Eventually.h"

#include <QDBusConnection>
#include <QDBusMessage>

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

    /// As a user would: a key that came before the window was ready is pressed again.
    [[nodiscard]] bool closesWindow(pid_t process) {
        int gone = 0;
        return eventually([&] {
            if (hasWindow(process)) {
                gone = 0;
                keyboard.chord({XKey::controlLeft}, XKey::letterW);
            }
            return ++gone > 20;
        });
    }

    std::unique_ptr<Workspace> desktop = makeWorkspace();
    TestKeyboard keyboard;
};

TEST_F(SecondStart, bringsBackTheWindowThatWasClosedAndEnds) {
    ChildProcess first(ChildOptions{{BRINMOOR}, {}, true});
    ASSERT_TRUE(eventually([&] { return isInFront(first.process()); }));
    ASSERT_TRUE(closesWindow(first.process()));
    // It goes on without a window: a shortcut still opens the search of open tabs.
    keyboard.chord({XKey::shiftLeft, XKey::superLeft}, XKey::letterO);
    ASSERT_TRUE(eventually([&] { return isInFront(first.process()); }));
    keyboard.tap(XKey::escape);
    ASSERT_TRUE(eventually([&] { return !hasWindow(first.process()); }));

    ChildProcess second(ChildOptions{{BRINMOOR}, {}, true});
    EXPECT_EQ(second.waitForExit(), 0);
    EXPECT_TRUE(eventually([&] { return isInFront(first.process()); }));
}

TEST_F(SecondStart, aReturnAddressFromTheDesktopShowsTheAccountAndAnyOtherOneNothing) {
    ChildProcess program(ChildOptions{{BRINMOOR}, {}, true});
    ASSERT_TRUE(eventually([&] { return isInFront(program.process()); }));
    const auto handOver = [](const QString& address) {
        auto message =
            QDBusMessage::createMethodCall(u"app.brinmoor.mac"_qs, u"/app/brinmoor/mac"_qs,
                                           u"org.freedesktop.Application"_qs, u"Open"_qs);
        message << QStringList{address} << QVariantMap();
        return QDBusConnection::sessionBus().call(message).type();
    };
    ASSERT_TRUE(closesWindow(program.process()));
    EXPECT_EQ(handOver(u"https://elsewhere.example/"_qs), QDBusMessage::ReplyMessage);
    EXPECT_FALSE(hasWindow(program.process()));
    const QString nonce(43, u'a');
    EXPECT_EQ(handOver(u"brinmoor://auth/callback?code="_qs + nonce + u"&state="_qs + nonce),
              QDBusMessage::ReplyMessage);
    EXPECT_TRUE(eventually([&] { return isInFront(program.process()); }));
}

TEST_F(SecondStart, anActionThatTheDesktopAsksForIsDoneWithoutAWindow) {
    ChildProcess program(ChildOptions{{BRINMOOR}, {}, true});
    ASSERT_TRUE(eventually([&] { return isInFront(program.process()); }));
    ASSERT_TRUE(closesWindow(program.process()));
    const auto ask = [](const QString& action) {
        auto message =
            QDBusMessage::createMethodCall(u"app.brinmoor.mac"_qs, u"/app/brinmoor/mac"_qs,
                                           u"org.freedesktop.Application"_qs, u"ActivateAction"_qs);
        message << action << QVariantList() << QVariantMap();
        return QDBusConnection::sessionBus().call(message).type();
    };
    EXPECT_EQ(ask(u"nonsense"_qs), QDBusMessage::ReplyMessage);
    EXPECT_FALSE(hasWindow(program.process()));
    EXPECT_EQ(ask(u"search"_qs), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(eventually([&] { return isInFront(program.process()); }));
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
