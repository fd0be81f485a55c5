#include "platform/linux/SystemRandom.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <vector>

using namespace brinmoor;

TEST(SystemRandom, everyCallGivesOtherBytes) {
    SystemRandom random;
    std::set<std::array<std::uint8_t, 32>> seen;
    for (int i = 0; i < 1000; ++i) {
        std::array<std::uint8_t, 32> bytes{};
        ASSERT_TRUE(random.fill(bytes));
        seen.insert(bytes);
    }
    EXPECT_EQ(seen.size(), 1000U);
}

TEST(SystemRandom, allOfALongStretchIsFilled) {
    SystemRandom random;
    std::vector<std::uint8_t> bytes(1'000'000);
    ASSERT_TRUE(random.fill(bytes));
    // Of each 64 bytes some are not zero, or the odds are worse than one in 2^500.
    for (std::size_t at = 0; at < bytes.size(); at += 64)
        EXPECT_NE(std::set<std::uint8_t>(&bytes[at], &bytes[at] + 64), std::set<std::uint8_t>{0});
    EXPECT_TRUE(random.fill({}));
}
