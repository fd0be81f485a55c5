#include "platform/Observers.h"

#include <gmock/gmock.h>

#include <optional>

using namespace brinmoor;

TEST(Observers, aSubscriptionMayOutliveTheList) {
    Subscription subscription;
    {
        Observers<int> observers;
        subscription = observers.add([](int) {});
    }
    subscription.cancel();
}

TEST(Observers, anObserverMayEndItselfWhileItIsTold) {
    Observers<int> observers;
    int calls = 0;
    Subscription subscription;
    subscription = observers.add([&](int) {
        ++calls;
        subscription.cancel();
    });
    observers.tell(1);
    observers.tell(2);
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(observers.empty());
}

TEST(Observers, oneThatEndsAnotherKeepsItFromBeingTold) {
    Observers<> observers;
    int calls = 0;
    Subscription second;
    const auto first = observers.add([&] { second.cancel(); });
    second = observers.add([&] { ++calls; });
    observers.tell();
    EXPECT_EQ(calls, 0);
}

TEST(Observers, theListMayGoWhileItIsBeingTold) {
    std::optional<Observers<>> observers(std::in_place);
    int calls = 0;
    const auto first = observers->add([&] { observers.reset(); });
    const auto second = observers->add([&] { ++calls; });
    observers->tell();
    EXPECT_EQ(calls, 1);
}
