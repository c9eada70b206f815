// SPDX-License-Identifier: Apache-2.0
#include "SplashClock.h"
#include "SplashWaitingPeriod.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/VirtualTime.h"

namespace velmora::test {

class SplashClockTest : public FreshProcess {
protected:
    SplashClockTest() {
        clock->setHandlers({[this] { ++ticks; }, [this] { ++videos; }, [this] { ++buttons; }});
    }

    VirtualTime time;
    std::unique_ptr<SplashClock> clock = std::make_unique<SplashClock>();
    int ticks = 0;
    int videos = 0;
    int buttons = 0;
};

TEST_F(SplashClockTest, RunningSecondsAreNotCountedDuringAPause) {
    time.advance(7);
    clock->begin();
    clock->startTick();
    time.advance(2.4);
    EXPECT_EQ(ticks, 2);
    EXPECT_EQ(clock->secondsLeftOf(10), 8);
    clock->pause();
    clock->stopTick();
    EXPECT_NEAR(clock->timeDuration(), 2.4, 1e-9);
    EXPECT_NEAR(clock->secondsTo(5), 2.6, 1e-9);
    time.advance(100);
    EXPECT_EQ(ticks, 2);

    // The first tick comes when the interrupted second is complete, the next ones a second apart.
    clock->resume();
    clock->resumeTick();
    time.advance(0.599);
    EXPECT_EQ(ticks, 2);
    time.advance(0.001);
    EXPECT_EQ(ticks, 3);
    time.advance(3);
    EXPECT_EQ(clock->passedTime(), 6);
    EXPECT_EQ(clock->secondsLeftOf(4), 0) << "never negative";
    clock->pause();
    EXPECT_NEAR(clock->timeDuration(), 6, 1e-9);
    clock->begin();
    EXPECT_EQ(clock->timeDuration(), 0);
    EXPECT_EQ(clock->passedTime(), 0);
}

TEST_F(SplashClockTest, AfterAPauseOnAWholeSecondItTicksAtOnce) {
    clock->begin();
    clock->startTick();
    time.advance(3);
    clock->pause();
    clock->stopTick();
    clock->resume();
    clock->resumeTick();
    time.advance(0);
    EXPECT_EQ(ticks, 4);
    // Another pause before the second is complete cancels that tick.
    time.advance(0.5);
    clock->pause();
    clock->stopTick();
    clock->resume();
    clock->resumeTick();
    clock->cancelResumeTick();
    time.advance(10);
    EXPECT_EQ(ticks, 4);
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(SplashClockTest, AReplacedTimerStillFiresACancelledOneDoesNot) {
    clock->startVideoAfter(5);
    EXPECT_TRUE(clock->isPhaseTimerPending());
    clock->startCloseButtonAfter(5);
    clock->stopPhaseTimer();
    EXPECT_FALSE(clock->isPhaseTimerPending());
    time.advance(5);
    EXPECT_EQ(videos, 1);
    EXPECT_EQ(buttons, 0);
    clock->startCloseButtonAfter(-1);
    time.advance(0);
    EXPECT_EQ(buttons, 1);
}

TEST_F(SplashClockTest, NothingFiresOnceItIsDestroyed) {
    SplashWaitingPeriod *waiting = new SplashWaitingPeriod;
    waiting->start();
    clock->startTick();
    clock->startVideoAfter(1);
    clock.reset();
    delete waiting;
    time.advance(200);
    EXPECT_EQ(ticks + videos, 0);
}

TEST_F(SplashClockTest, TheWaitEndsByWhicheverTimerComesFirst) {
    SplashWaitingPeriod waiting;
    waiting.setDelayForFirstStart(30);
    waiting.startFirst();
    waiting.start();
    time.advance(30);
    EXPECT_TRUE(waiting.isOver());
    EXPECT_FALSE(waiting.prepareTimer());
    waiting.setNotOver();
    waiting.setWaitTime(50);
    waiting.restart();
    time.advance(49);
    EXPECT_FALSE(waiting.isOver());
    waiting.restart();
    time.advance(49);
    EXPECT_FALSE(waiting.isOver());
    waiting.cancel();
    time.advance(500);
    EXPECT_FALSE(waiting.isOver()) << "nothing is left that would end it";
}

} // namespace velmora::test
