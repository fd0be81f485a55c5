#include "platform/memory/MemoryHotKeys.h"

#include <gmock/gmock.h>

#include <vector>

using namespace brinmoor;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(MemoryHotKeys, aPressIsToldUnderItsNumber) {
    MemoryHotKeys keys;
    std::vector<std::uint32_t> heard;
    keys.pressed = [&](std::uint32_t id) { heard.push_back(id); };
    EXPECT_TRUE(keys.registerHotKey(40, 0x300, 1));
    EXPECT_TRUE(keys.registerHotKey(40, 0x900, 2));
    EXPECT_TRUE(keys.press({40, 0x900}));
    EXPECT_FALSE(keys.press({31, 0x300}));
    EXPECT_THAT(heard, ElementsAre(2));
}

TEST(MemoryHotKeys, aCombinationThatAnotherClientHoldsIsRefused) {
    MemoryHotKeys keys;
    keys.refused.insert({40, 0x300});
    EXPECT_FALSE(keys.registerHotKey(40, 0x300, 1));
    EXPECT_THAT(keys.registered, IsEmpty());
}

TEST(MemoryHotKeys, oneCombinationHasOneNumber) {
    MemoryHotKeys keys;
    EXPECT_TRUE(keys.registerHotKey(40, 0x300, 1));
    EXPECT_FALSE(keys.registerHotKey(40, 0x300, 2));
    keys.unregisterHotKey(1);
    EXPECT_TRUE(keys.registerHotKey(40, 0x300, 2));
}

TEST(MemoryHotKeys, aWithdrawnRegistrationIsToldOnce) {
    MemoryHotKeys keys;
    std::vector<std::uint32_t> gone;
    keys.lost = [&](std::uint32_t id) { gone.push_back(id); };
    EXPECT_TRUE(keys.registerHotKey(40, 0x300, 1));
    keys.withdraw(1);
    keys.withdraw(1);
    EXPECT_THAT(gone, ElementsAre(1));
    EXPECT_FALSE(keys.press({40, 0x300}));
}
