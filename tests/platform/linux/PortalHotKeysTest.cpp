#include "platform/linux/PortalHotKeys.h"

#include "core/capture/CaptureShortcut.h"
#include "tests/platform/linux/EventLoop.h"
#include "tests/platform/linux/FakePortal.h"

#include <gmock/gmock.h>

#include <optional>

using namespace brinmoor;
using namespace brinmoor::testing;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

namespace {

constexpr std::uint32_t command = ShortcutModifier::command;
constexpr std::uint32_t shift = ShortcutModifier::shift;
constexpr std::uint32_t option = ShortcutModifier::option;
constexpr std::uint32_t keyK = 40;
constexpr std::uint32_t keyO = 31;

class PortalHotKeysTest : public ::testing::Test {
protected:
    void SetUp() override {
        keys = PortalHotKeys::open(QDBusConnection::sessionBus(), {{1, "Save link"}});
        ASSERT_NE(keys, nullptr);
        keys->pressed = [this](std::uint32_t id) { heard.push_back(id); };
        keys->lost = [this](std::uint32_t id) { gone.push_back(id); };
    }

    [[nodiscard]] bool bound(std::size_t times) {
        return eventually([&] { return portal.bound().size() == times; });
    }

    FakePortal portal;
    std::unique_ptr<PortalHotKeys> keys;
    std::vector<std::uint32_t> heard;
    std::vector<std::uint32_t> gone;
};

} // namespace

TEST(PortalTrigger, aCombinationIsSpelledAsThePortalReadsIt) {
    EXPECT_EQ(portalTrigger(keyK, shift | command), u"SHIFT+LOGO+k");
    EXPECT_EQ(portalTrigger(keyK, ShortcutModifier::control | option | command),
              u"CTRL+ALT+LOGO+k");
    EXPECT_EQ(portalTrigger(49, command), u"LOGO+space");
    EXPECT_EQ(portalTrigger(4000, command), u"");
}

TEST(PortalHotKeys, withoutAPortalThereAreNone) {
    EXPECT_EQ(PortalHotKeys::open(QDBusConnection::sessionBus(), {}), nullptr);
}

TEST_F(PortalHotKeysTest, allRegistrationsAreAskedForTogether) {
    EXPECT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    EXPECT_TRUE(keys->registerHotKey(keyO, shift | command, 5));
    ASSERT_TRUE(bound(1));
    const auto shortcuts = portal.bound().front();
    ASSERT_THAT(shortcuts, SizeIs(2));
    EXPECT_EQ(shortcuts[0].id, u"hotkey-1");
    EXPECT_EQ(shortcuts[0].properties.value(u"description"_qs).toString(), u"Save link");
    EXPECT_EQ(shortcuts[0].properties.value(u"preferred_trigger"_qs).toString(), u"SHIFT+LOGO+k");
    EXPECT_EQ(shortcuts[1].properties.value(u"preferred_trigger"_qs).toString(), u"SHIFT+LOGO+o");
}

TEST_F(PortalHotKeysTest, aPressIsToldUnderItsNumber) {
    EXPECT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    EXPECT_TRUE(keys->registerHotKey(keyO, shift | command, 5));
    ASSERT_TRUE(bound(1));
    portal.press(u"hotkey-7"_qs);
    portal.press(u"hotkey-"_qs);
    portal.press(u"hotkey-5"_qs);
    ASSERT_TRUE(eventually([&] { return !heard.empty(); }));
    EXPECT_THAT(heard, ElementsAre(5));
    EXPECT_THAT(gone, IsEmpty());
}

TEST_F(PortalHotKeysTest, whatTheUserTurnsDownIsLost) {
    portal.refuse(u"hotkey-5"_qs);
    EXPECT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    EXPECT_TRUE(keys->registerHotKey(keyO, shift | command, 5));
    ASSERT_TRUE(eventually([&] { return !gone.empty(); }));
    EXPECT_THAT(gone, ElementsAre(5));
    portal.press(u"hotkey-5"_qs);
    portal.press(u"hotkey-1"_qs);
    ASSERT_TRUE(eventually([&] { return !heard.empty(); }));
    EXPECT_THAT(heard, ElementsAre(1));
    EXPECT_THAT(portal.bound(), SizeIs(1)) << "the user is not asked again";
}

TEST_F(PortalHotKeysTest, aDialogThatIsClosedLosesAll) {
    portal.refuseEverything();
    EXPECT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    EXPECT_TRUE(keys->registerHotKey(keyO, shift | command, 5));
    ASSERT_TRUE(eventually([&] { return gone.size() == 2; }));
    EXPECT_THAT(gone, UnorderedElementsAre(1, 5));
    EXPECT_TRUE(eventually([&] { return portal.openSessions() == 0; }));
}

TEST_F(PortalHotKeysTest, theSameSetAgainAsksNobody) {
    EXPECT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    ASSERT_TRUE(bound(1));
    keys->unregisterHotKey(1);
    EXPECT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    portal.press(u"hotkey-1"_qs);
    ASSERT_TRUE(eventually([&] { return !heard.empty(); }));
    letEventsRun(50);
    EXPECT_THAT(portal.bound(), SizeIs(1));
    EXPECT_EQ(portal.openSessions(), 1);
}

TEST_F(PortalHotKeysTest, anotherSetReplacesTheSession) {
    EXPECT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    ASSERT_TRUE(bound(1));
    EXPECT_TRUE(keys->registerHotKey(keyK, option | command, 1));
    ASSERT_TRUE(bound(2));
    EXPECT_TRUE(eventually([&] { return portal.openSessions() == 1; }));
    EXPECT_THAT(gone, IsEmpty());
}

TEST_F(PortalHotKeysTest, aSetThatChangesWhileTheDesktopAnswersIsAskedForInTheEnd) {
    EXPECT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    QCoreApplication::processEvents();
    EXPECT_TRUE(keys->registerHotKey(keyO, shift | command, 5));
    ASSERT_TRUE(eventually([&] {
        const auto all = portal.bound();
        return !all.empty() && all.back().size() == 2 && portal.openSessions() == 1;
    }));
    portal.press(u"hotkey-5"_qs);
    EXPECT_TRUE(eventually([&] { return !heard.empty(); }));
}

TEST_F(PortalHotKeysTest, withNothingRegisteredNoSessionStaysOpen) {
    EXPECT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    ASSERT_TRUE(bound(1));
    keys->unregisterHotKey(1);
    EXPECT_TRUE(eventually([&] { return portal.openSessions() == 0; }));
    portal.press(u"hotkey-1"_qs);
    letEventsRun(50);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(PortalHotKeysTest, aSessionThatTheDesktopEndsIsLost) {
    EXPECT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    ASSERT_TRUE(bound(1));
    letEventsRun(50);
    portal.endSession();
    ASSERT_TRUE(eventually([&] { return !gone.empty(); }));
    EXPECT_THAT(gone, ElementsAre(1));
}

TEST_F(PortalHotKeysTest, oneCombinationHasOneNumber) {
    EXPECT_TRUE(keys->registerHotKey(keyK, shift | command, 1));
    EXPECT_FALSE(keys->registerHotKey(keyK, shift | command, 2));
    EXPECT_FALSE(keys->registerHotKey(4000, command, 3));
}
