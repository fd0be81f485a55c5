#include "core/gestures/RowSwipe.h"

#include "tests/core/Generated.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace brinmoor {
namespace {

using Axis = RowSwipe::Axis;
using Outcome = RowSwipe::Outcome;

constexpr double endless = std::numeric_limits<double>::infinity();
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

Axis axisOf(std::initializer_list<std::pair<double, double>> deltas) {
    RowSwipe swipe;
    for (const auto& [x, y] : deltas)
        swipe.move(x, y);
    return swipe.axis;
}

TEST(RowSwipeMove, decidesWhenTheLargerSumIs8) {
    EXPECT_EQ(axisOf({}), Axis::undecided);
    EXPECT_EQ(axisOf({{5, 0}}), Axis::undecided);
    EXPECT_EQ(axisOf({{5, 0}, {4, 0}}), Axis::horizontal);
    EXPECT_EQ(axisOf({{7.999, 0}}), Axis::undecided);
    EXPECT_EQ(axisOf({{8, 0}}), Axis::horizontal);
    EXPECT_EQ(axisOf({{-8, 0}}), Axis::horizontal);
    EXPECT_EQ(axisOf({{0, 8}}), Axis::vertical);
    EXPECT_EQ(axisOf({{0, -8}}), Axis::vertical);
    // However far the fingers have gone.
    EXPECT_EQ(axisOf({{7.9, 5.9}}), Axis::undecided);
    EXPECT_EQ(axisOf({{5.9, -7.9}}), Axis::undecided);
    EXPECT_EQ(axisOf({{5.9, 5.9}}), Axis::undecided);
    // There and back is no distance.
    EXPECT_EQ(axisOf({{5, 0}, {-5, 0}, {5, 0}}), Axis::undecided);
}

TEST(RowSwipeMove, decidesOnADiagonalWhenBothSumsAre6) {
    EXPECT_EQ(axisOf({{6, 6}}), Axis::vertical);
    EXPECT_EQ(axisOf({{-6, 6}}), Axis::vertical);
    EXPECT_EQ(axisOf({{3, 3}, {3, 3}}), Axis::vertical);
    EXPECT_EQ(axisOf({{7.9, 6}}), Axis::vertical);
    EXPECT_EQ(axisOf({{6, -5.9}}), Axis::undecided);
}

TEST(RowSwipeMove, isHorizontalOnlyWithALeanOfMoreThan3To2) {
    EXPECT_EQ(axisOf({{9, 6}}), Axis::vertical);
    EXPECT_EQ(axisOf({{9.001, 6}}), Axis::horizontal);
    EXPECT_EQ(axisOf({{-9.001, 6}}), Axis::horizontal);
    EXPECT_EQ(axisOf({{9, -6}}), Axis::vertical);
    EXPECT_EQ(axisOf({{8, 8}}), Axis::vertical);
    EXPECT_EQ(axisOf({{8, 5.33}}), Axis::horizontal);
    EXPECT_EQ(axisOf({{8, 5.34}}), Axis::vertical);
}

TEST(RowSwipeMove, neverChangesADecidedAxis) {
    EXPECT_EQ(axisOf({{8, 0}, {0, 500}}), Axis::horizontal);
    EXPECT_EQ(axisOf({{0, 8}, {-500, 0}}), Axis::vertical);
}

TEST(RowSwipeMove, sumsTheDeltas) {
    RowSwipe swipe;
    swipe.move(3, -1);
    swipe.move(-10, 4);
    EXPECT_EQ(swipe.x, -7);
    EXPECT_EQ(swipe.y, 3);
}

TEST(RowSwipeMove, aGestureInsideOutIsDecidedAlike) {
    tests::forSeeds(500, [](tests::Generated& generated) {
        RowSwipe swipe, mirrored;
        for (int count = 0; count < 20; ++count) {
            const double x = static_cast<double>(generated.below(9)) - 4;
            const double y = static_cast<double>(generated.below(9)) - 4;
            const Axis before = swipe.axis;
            swipe.move(x, y);
            mirrored.move(-x, -y);
            EXPECT_EQ(swipe.axis, mirrored.axis);
            EXPECT_TRUE(before == Axis::undecided || before == swipe.axis);
        }
    });
}

TEST(RowSwipeIntent, growsFrom140To210) {
    for (const auto& [distance, progress] :
         {std::pair(-300.0, 0.0), std::pair(0.0, 0.0), std::pair(140.0, 0.0), std::pair(175.0, 0.5),
          std::pair(203.0, 0.9), std::pair(210.0, 1.0), std::pair(300.0, 1.0),
          std::pair(endless, 1.0), std::pair(-endless, 0.0), std::pair(noNumber, 0.0)}) {
        EXPECT_DOUBLE_EQ(RowSwipe::copyIntentProgress(distance), progress) << distance;
        EXPECT_DOUBLE_EQ(RowSwipe::archiveIntentProgress(-distance), progress) << distance;
    }
}

TEST(RowSwipeIntent, isUnderWayWhereTheActionBegins) {
    EXPECT_DOUBLE_EQ(RowSwipe::archiveIntentProgress(RowSwipe::archiveThreshold), 30.0 / 70);
    EXPECT_DOUBLE_EQ(RowSwipe::copyIntentProgress(RowSwipe::copyThreshold), 30.0 / 70);
}

TEST(RowSwipeFinish, isDecidedByTheOffset) {
    const std::pair<double, Outcome> rows[]{
        {-endless, Outcome::archive},   {-210, Outcome::archive},
        {-170, Outcome::archive},       {-169.9, Outcome::archiveButton},
        {-40, Outcome::archiveButton},  {-39.9, Outcome::closed},
        {-0.0, Outcome::closed},        {0, Outcome::closed},
        {39.9, Outcome::closed},        {40, Outcome::shareButtons},
        {169.9, Outcome::shareButtons}, {170, Outcome::copy},
        {210, Outcome::copy},           {endless, Outcome::copy},
        {noNumber, Outcome::closed},
    };
    for (const auto& [offset, outcome] : rows) {
        EXPECT_EQ(RowSwipe::finish(offset, false), outcome) << offset;
        EXPECT_EQ(RowSwipe::finish(offset, true), Outcome::closed) << offset;
    }
}

TEST(RowSwipeFinish, anOpenRowNeeds14PointsMoreToArchive) {
    constexpr double openRow = -156;
    EXPECT_EQ(RowSwipe::finish(openRow - 13.9, false), Outcome::archiveButton);
    EXPECT_EQ(RowSwipe::finish(openRow - 14, false), Outcome::archive);
}

} // namespace
} // namespace brinmoor
