#include "platform/linux/PanelHints.h"

#include "platform/linux/X11Windows.h"
#include "tests/platform/linux/EventLoop.h"
#include "tests/platform/linux/TestProgram.h"

#include <QWindow>

#include <gmock/gmock.h>

using namespace brinmoor;
using namespace brinmoor::testing;
using ::testing::Contains;
using ::testing::IsSupersetOf;

namespace {

class PanelHintsTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(connection, nullptr) << "these tests need an X server";
        panel.setFlags(Qt::Window | Qt::FramelessWindowHint);
        panel.setGeometry(200, 200, 150, 80);
        panel.create();
    }

    [[nodiscard]] std::uint32_t id() const { return static_cast<std::uint32_t>(panel.winId()); }

    [[nodiscard]] std::vector<std::uint32_t> property(xcb_atom_t atom) const {
        return XcbProperty(connection->get(), id(), atom).numbers();
    }

    /// Above, in no task bar and on every desktop, as the window manager has it.
    [[nodiscard]] bool isPanel() const {
        const auto& atoms = connection->atoms();
        const std::vector<std::uint32_t> wanted{atoms.netWmStateAbove, atoms.netWmStateSkipTaskbar,
                                                atoms.netWmStateSkipPager};
        return ::testing::Value(property(atoms.netWmState), IsSupersetOf(wanted)) &&
               property(atoms.netWmDesktop) == std::vector<std::uint32_t>{0xFFFFFFFF};
    }

    [[nodiscard]] bool isListed() const {
        return ::testing::Value(clientWindows(*connection), Contains(id()));
    }

    [[nodiscard]] bool isActive() const { return activeWindow(*connection) == id(); }

    [[nodiscard]] std::optional<std::int32_t> activeProcess() const {
        const auto active = activeWindow(*connection);
        return active ? ownersOf(*connection, {*active}).front().process : std::nullopt;
    }

    QWindow panel;
    std::unique_ptr<XcbConnection> connection = XcbConnection::open();
};

} // namespace

TEST_F(PanelHintsTest, aPanelFloatsOnEveryDesktopAndInNoTaskBar) {
    applyPanelHints(id(), PanelRole::utility, PanelFocus::takes);
    panel.show();
    ASSERT_TRUE(eventually([&] { return isListed(); }));
    EXPECT_TRUE(eventually([&] { return isPanel(); }));
    EXPECT_THAT(property(connection->atoms().netWmWindowType),
                ::testing::ElementsAre(connection->atoms().netWmWindowTypeUtility));
}

TEST_F(PanelHintsTest, aWindowThatIsShownAlreadyBecomesAPanelToo) {
    panel.show();
    ASSERT_TRUE(eventually([&] { return isListed(); }));
    EXPECT_FALSE(isPanel());
    applyPanelHints(id(), PanelRole::utility, PanelFocus::takes);
    EXPECT_TRUE(eventually([&] { return isPanel(); }));
}

TEST_F(PanelHintsTest, aNoticeNeverTakesTheFocus) {
    const TestProgram other("firefox", {u"class=firefox"_qs});
    ASSERT_TRUE(eventually([&] { return activeProcess() == other.process(); }));
    applyPanelHints(id(), PanelRole::notification, PanelFocus::never);
    panel.show();
    ASSERT_TRUE(eventually([&] { return isListed() && isPanel(); }));
    // Not even when it is asked to.
    activateWindow(id(), 0);
    letEventsRun(100);
    EXPECT_EQ(activeProcess(), other.process());
    EXPECT_THAT(property(connection->atoms().netWmWindowType),
                Contains(connection->atoms().netWmWindowTypeNotification));
}

TEST_F(PanelHintsTest, aPanelThatTakesTheFocusGetsItFromAnotherProgram) {
    applyPanelHints(id(), PanelRole::utility, PanelFocus::takes);
    panel.show();
    ASSERT_TRUE(eventually([&] { return isListed(); }));
    const TestProgram other("firefox", {u"class=firefox"_qs});
    ASSERT_TRUE(eventually([&] { return activeProcess() == other.process(); }));
    activateWindow(id(), 0);
    EXPECT_TRUE(eventually([&] { return isActive(); }));
}

TEST_F(PanelHintsTest, theTimeOfTheUsersActIsKeptWithTheWindow) {
    setUserTime(id(), 4711);
    EXPECT_THAT(property(connection->atoms().netWmUserTime), ::testing::ElementsAre(4711U));
}

TEST_F(PanelHintsTest, aWindowThatIsGoneDoesNoHarm) {
    const auto gone = id();
    panel.destroy();
    onConnection::applyPanelHints(connection->get(), gone, PanelRole::utility, PanelFocus::never);
    onConnection::setUserTime(connection->get(), gone, 1);
    onConnection::activateWindow(connection->get(), gone, 1);
    EXPECT_EQ(xcb_connection_has_error(connection->get()), 0);
}
