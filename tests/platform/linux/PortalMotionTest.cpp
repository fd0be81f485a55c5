#include "platform/linux/PortalMotion.h"

#include "tests/platform/linux/EventLoop.h"
#include "tests/platform/linux/FakeSettings.h"

#include <gtest/gtest.h>

using namespace brinmoor;
using namespace brinmoor::testing;

namespace {

constexpr auto gnome = "org.gnome.desktop.interface";
constexpr auto kde = "org.kde.kdeglobals.KDE";

class PortalMotionTest : public ::testing::Test {
protected:
    [[nodiscard]] bool becomes(const PortalMotion& motion, bool reduced) {
        return eventually([&] { return motion.isReduced() == reduced; });
    }
    FakeSettings settings;
};

} // namespace

TEST_F(PortalMotionTest, animationsSwitchedOffAreFoundAtTheStart) {
    settings.set(gnome, "enable-animations", false);
    const PortalMotion motion(QDBusConnection::sessionBus());
    EXPECT_TRUE(becomes(motion, true));
}

TEST_F(PortalMotionTest, animationsThatLastNoTimeAreNone) {
    settings.set(kde, "AnimationDurationFactor", QStringLiteral("0"));
    const PortalMotion motion(QDBusConnection::sessionBus());
    EXPECT_TRUE(becomes(motion, true));
}

TEST_F(PortalMotionTest, aChangeIsFollowedAndToldOnce) {
    settings.set(gnome, "enable-animations", true);
    PortalMotion motion(QDBusConnection::sessionBus());
    int told = 0;
    const Subscription following = motion.onChange([&] { ++told; });
    ASSERT_TRUE(eventually([&] { return settings.reads() == 2; }));
    settings.set(gnome, "enable-animations", false);
    EXPECT_TRUE(becomes(motion, true));
    settings.set(gnome, "cursor-size", 24);
    settings.set(gnome, "enable-animations", true);
    EXPECT_TRUE(becomes(motion, false));
    EXPECT_EQ(told, 2);
}

TEST(PortalMotion, withoutAPortalNothingIsReduced) {
    const PortalMotion motion(QDBusConnection::sessionBus());
    EXPECT_FALSE(eventually([&] { return motion.isReduced(); }, 300));
}
