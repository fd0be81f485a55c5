#include "icons/Gate.h"

#include <gtest/gtest.h>

namespace brinmoor {
namespace {

TEST(Gate, letsSoManyInAndTheOthersInTheirOrder) {
    Gate gate(2);
    const auto first = gate.enter();
    const auto second = gate.enter();
    const auto third = gate.enter();
    const auto fourth = gate.enter();
    EXPECT_TRUE(first.isFinished() && second.isFinished());
    EXPECT_FALSE(third.isFinished() || fourth.isFinished());
    gate.leave();
    EXPECT_TRUE(third.isFinished() && !fourth.isFinished());
    EXPECT_EQ(gate.inside(), 2U);
    gate.leave();
    EXPECT_TRUE(fourth.isFinished());
    EXPECT_EQ(gate.inside(), 2U);
    gate.leave();
    gate.leave();
    EXPECT_EQ(gate.inside(), 0U);
}

} // namespace
} // namespace brinmoor
