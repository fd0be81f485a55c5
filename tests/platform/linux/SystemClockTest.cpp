#include "platform/linux/SystemClock.h"

#include "tests/platform/linux/EventLoop.h"

#include <gmock/gmock.h>

#include <set>

using namespace brinmoor;
using namespace brinmoor::testing;
using namespace std::chrono_literals;

TEST(SystemClock, thePresentCountsFromTheYear2001) {
    const auto unixNow =
        std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
    EXPECT_NEAR(SystemClock().now().seconds, unixNow - unixSecondsAtInstantZero, 5.0);
}

TEST(SystemClock, identifiersAreRandomOnesOfVersion4) {
    SystemClock clock;
    std::set<Uuid> made;
    for (int i = 0; i < 1000; ++i) {
        const auto id = clock.newUuid();
        EXPECT_EQ(id.bytes[6] >> 4, 4);
        EXPECT_EQ(id.bytes[8] >> 6, 2);
        made.insert(id);
    }
    EXPECT_EQ(made.size(), 1000U);
}

TEST(SystemClock, delayedWorkRunsOnceAfterItsDelay) {
    SystemClock clock;
    int ran = 0;
    const auto started = std::chrono::steady_clock::now();
    const auto work = clock.after(30ms, [&] { ++ran; });
    ASSERT_TRUE(eventually([&] { return ran > 0; }));
    EXPECT_GE(std::chrono::steady_clock::now() - started, 29ms);
    letEventsRun(60);
    EXPECT_EQ(ran, 1);
}

TEST(SystemClock, workEndsWithItsSubscription) {
    SystemClock clock;
    int ran = 0;
    {
        const auto work = clock.after(1ms, [&] { ++ran; });
    }
    letEventsRun(30);
    EXPECT_EQ(ran, 0);
}

TEST(SystemClock, workMayEndItsOwnSubscription) {
    SystemClock clock;
    int ran = 0;
    Subscription work;
    work = clock.after(1ms, [&] {
        work.cancel();
        ++ran;
    });
    EXPECT_TRUE(eventually([&] { return ran == 1; }));
}

TEST(SystemClock, aDelayOfYearsDoesNotComeDueAtOnce) {
    SystemClock clock;
    int ran = 0;
    const auto work = clock.after(std::chrono::hours(24 * 365 * 3), [&] { ++ran; });
    letEventsRun(30);
    EXPECT_EQ(ran, 0);
}

TEST(SystemClock, theTimeZoneHasAName) {
    EXPECT_FALSE(SystemClock().timeZone().empty());
}
