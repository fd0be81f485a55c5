#include "platform/memory/ManualClock.h"

#include <gmock/gmock.h>

#include <vector>

using namespace brinmoor;
using namespace std::chrono_literals;
using testing::ElementsAre;

TEST(ManualClock, workRunsInTheOrderOfItsMoments) {
    ManualClock clock;
    std::vector<int> ran;
    const auto late = clock.after(30ms, [&] { ran.push_back(3); });
    const auto early = clock.after(10ms, [&] { ran.push_back(1); });
    const auto second = clock.after(10ms, [&] { ran.push_back(2); });
    clock.advance(29ms);
    EXPECT_THAT(ran, ElementsAre(1, 2));
    clock.advance(1ms);
    EXPECT_THAT(ran, ElementsAre(1, 2, 3));
    EXPECT_EQ(clock.pending(), 0U);
}

TEST(ManualClock, workSeesThePresentInWhichItWasDue) {
    ManualClock clock;
    clock.present = Instant{100};
    Instant seen;
    const auto work = clock.after(1500ms, [&] { seen = clock.now(); });
    clock.advance(4s);
    EXPECT_EQ(seen, Instant{101.5});
    EXPECT_EQ(clock.now(), Instant{104});
}

TEST(ManualClock, workThatWorkSchedulesRunsInTheSameSpan) {
    ManualClock clock;
    int ran = 0;
    Subscription second;
    const auto first = clock.after(1s, [&] { second = clock.after(1s, [&] { ++ran; }); });
    clock.advance(2s);
    EXPECT_EQ(ran, 1);
}

TEST(ManualClock, aSubscriptionThatGoesTakesItsWorkAlong) {
    ManualClock clock;
    int ran = 0;
    {
        const auto work = clock.after(1s, [&] { ++ran; });
    }
    clock.advance(2s);
    EXPECT_EQ(ran, 0);
}

TEST(ManualClock, aSubscriptionMayOutliveTheClock) {
    Subscription work;
    {
        ManualClock clock;
        work = clock.after(1s, [] {});
    }
    work.cancel();
}

TEST(ManualClock, identifiersDifferAndTheGivenOnesComeFirst) {
    ManualClock clock;
    Uuid given;
    given.bytes[0] = 7;
    clock.nextUuids.push_back(given);
    EXPECT_EQ(clock.newUuid(), given);
    EXPECT_NE(clock.newUuid(), clock.newUuid());
}
