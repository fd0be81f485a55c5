#include "screens/SwipeEvents.h"

#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using Phase = ScrollStep::Phase;

ScrollStep step(Phase phase, double x = 0, double y = 0) {
    return {phase, true, x, y};
}

class SwipeEventsTest : public ::testing::Test {
protected:
    void push(double x, double y = 0) {
        row.scroll(step(Phase::began));
        row.scroll(step(Phase::changed, x, y));
    }
    [[nodiscard]] double rest() const {
        return settling.isEmpty() ? -1 : settling.back().at(0).toDouble();
    }

    SwipeEvents row;
    QSignalSpy started{&row, &SwipeEvents::started};
    QSignalSpy settling{&row, &SwipeEvents::settling};
    QSignalSpy archives{&row, &SwipeEvents::archiveWanted};
    QSignalSpy copies{&row, &SwipeEvents::copyWanted};
};

TEST_F(SwipeEventsTest, aRowFollowsASidewaysGestureFromItsBeginning) {
    EXPECT_FALSE(row.scroll(step(Phase::began)));
    EXPECT_FALSE(row.scroll(step(Phase::changed, 5)));
    EXPECT_EQ(row.offset(), 0);
    EXPECT_TRUE(row.scroll(step(Phase::changed, 15)));
    EXPECT_EQ(row.offset(), 20);
    EXPECT_EQ(started.size(), 1);
}

TEST_F(SwipeEventsTest, aVerticalOrSlantedGestureIsTheLists) {
    EXPECT_FALSE(row.scroll(step(Phase::began)));
    EXPECT_FALSE(row.scroll(step(Phase::changed, 2, 40)));
    EXPECT_FALSE(row.scroll(step(Phase::changed, 60, 0)));
    EXPECT_FALSE(row.scroll(step(Phase::ended)));
    push(9, 6);
    EXPECT_FALSE(row.scroll(step(Phase::changed, 60, 0)));
    EXPECT_EQ(row.offset(), 0);
    EXPECT_TRUE(started.isEmpty());
}

TEST_F(SwipeEventsTest, aWheelNeverSwipes) {
    EXPECT_FALSE(row.scroll({Phase::none, false, 300, 0}));
    const QWheelEvent wheel({}, {}, {}, {-120, 0}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                            false);
    EXPECT_FALSE(ScrollStep::of(wheel).isPrecise);
    const QWheelEvent fingers({}, {}, {-7, 0}, {-56, 0}, Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
    EXPECT_TRUE(ScrollStep::of(fingers).isPrecise);
    EXPECT_EQ(ScrollStep::of(fingers).x, -7);
}

TEST_F(SwipeEventsTest, momentumAfterASwipeIsSwallowedAndAfterAScrollIsNot) {
    push(-60);
    EXPECT_TRUE(row.scroll(step(Phase::ended)));
    EXPECT_TRUE(row.scroll(step(Phase::momentum, -30, 5)));
    EXPECT_EQ(row.offset(), -60);
    push(0, 60);
    EXPECT_FALSE(row.scroll(step(Phase::momentum, 0, 30)));
}

TEST_F(SwipeEventsTest, momentumThatArrivesAtAnotherRowIsSwallowedToo) {
    SwipeEvents other;
    push(-60);
    EXPECT_TRUE(row.scroll(step(Phase::ended)));
    EXPECT_TRUE(other.scroll(step(Phase::momentum, -30, 5)));
    // The row that was pushed is taken from the list, and made anew for another link.
    row.reset();
    EXPECT_TRUE(row.scroll(step(Phase::momentum, -30, 5)));
    EXPECT_EQ(row.offset(), 0);
}

TEST_F(SwipeEventsTest, aGestureThatBeginsOnAnotherRowEndsTheSwallowing) {
    SwipeEvents other;
    push(-60);
    EXPECT_TRUE(row.scroll(step(Phase::ended)));
    EXPECT_FALSE(other.scroll(step(Phase::began)));
    EXPECT_FALSE(other.scroll(step(Phase::changed, 0, 40)));
    EXPECT_FALSE(other.scroll(step(Phase::ended)));
    EXPECT_FALSE(row.scroll(step(Phase::momentum, 0, 30)));
}

TEST_F(SwipeEventsTest, aGestureThatBeganElsewhereIsNotTaken) {
    EXPECT_FALSE(row.scroll(step(Phase::changed, 80)));
    EXPECT_FALSE(row.scroll(step(Phase::ended)));
    EXPECT_EQ(row.offset(), 0);
}

TEST_F(SwipeEventsTest, aShortPushLeavesTheButtonsOpen) {
    struct Case {
        double pushed;
        bool archived;
        double rest;
    };
    for (const Case& each : {Case{-40, false, -156}, Case{-40, true, -82}, Case{-39.5, false, 0},
                             Case{40, false, 156}, Case{39.5, true, 0}}) {
        row.reset();
        row.setProperty("archived", each.archived);
        push(each.pushed);
        row.scroll(step(Phase::ended));
        EXPECT_EQ(rest(), each.rest) << each.pushed;
    }
    EXPECT_TRUE(archives.isEmpty() && copies.isEmpty());
}

TEST_F(SwipeEventsTest, aLongPushDoesTheMainActionAndClosesTheRow) {
    push(-170);
    EXPECT_TRUE(row.isArchivePending());
    row.scroll(step(Phase::ended));
    EXPECT_EQ(archives.size(), 1);
    EXPECT_EQ(rest(), 0);
    row.reset();
    push(170);
    row.scroll(step(Phase::ended));
    EXPECT_EQ(copies.size(), 1);
}

TEST_F(SwipeEventsTest, theRowStopsWhereTheIntentIsComplete) {
    push(400);
    EXPECT_EQ(row.offset(), 210);
    EXPECT_EQ(row.copyIntent(), 1);
    row.setOffset(-175);
    EXPECT_EQ(row.archiveIntent(), 0.5);
    EXPECT_TRUE(row.isArchivePending());
}

TEST_F(SwipeEventsTest, aGestureOnAnOpenRowGoesOnFromWhereItStands) {
    row.setOffset(-156);
    push(-14);
    EXPECT_EQ(row.offset(), -170);
    row.scroll(step(Phase::ended));
    EXPECT_EQ(archives.size(), 1);
}

TEST_F(SwipeEventsTest, aRowThatIsPutOutOfReachForgetsTheGesture) {
    push(-200);
    row.setEnabled(false);
    EXPECT_EQ(rest(), 0);
    EXPECT_TRUE(archives.isEmpty());
}

TEST_F(SwipeEventsTest, withoutPhasesAPauseEndsTheGesture) {
    QTest::qWait(SwipeEvents::idleGap + 40); // so that no stream of another test is going on
    EXPECT_TRUE(row.scroll(step(Phase::none, -180)));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !archives.isEmpty(); }));
}

TEST_F(SwipeEventsTest, withoutPhasesAStreamBelongsToTheRowWhereItBegan) {
    QTest::qWait(SwipeEvents::idleGap + 40);
    SwipeEvents other;
    EXPECT_FALSE(row.scroll(step(Phase::none, 0, 30)));
    EXPECT_FALSE(other.scroll(step(Phase::none, 60, 0)));
    EXPECT_EQ(other.offset(), 0);
}

} // namespace
} // namespace brinmoor
