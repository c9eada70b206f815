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

TEST_F(SplashClockTest, TheWaitEndsByWhicheverTimerComesFirst) {
    SplashWaitingPeriod waiting;
    waiting.setDelayForFirstStart(30);
    waiting.startFirst();
    waiting.start();
    time.advance(30);
    EXPECT_TRUE(waiting.isOver());
    EXPECT_FALSE(waiting.prepareTimer());
}

} // namespace velmora::test
