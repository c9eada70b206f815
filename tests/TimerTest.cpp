// SPDX-License-Identifier: Apache-2.0
#include "MainQueue.h"
#include "ProcessRoot.h"
#include "tests/support/ChildTest.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/VirtualTime.h"
#include "tests/support/Waiting.h"
#include <Velmora/Timer.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QTemporaryDir>

#include <memory>
#include <thread>

namespace velmora::test {

using Kind = Timer::Kind;

class VirtualTimerTest : public FreshProcess {
protected:
    VirtualTime time;
};

TEST_F(VirtualTimerTest, AnIntervalOfZeroMeansTheNextEventLoopTurnOrOncePerFrame) {
    int once = 0;
    int frames = 0;
    Timer::scheduled(-3, Kind::OneShot, [&] { ++once; });
    const TimerPtr ring = Timer::scheduled(0, Kind::Repeating, [&] { ++frames; });
    const TimerPtr odd = Timer::scheduled(0.0 / 0.0, Kind::Repeating, [] {});
    time.advance(1);
    EXPECT_EQ(once, 1);
    EXPECT_EQ(frames, 60);
    EXPECT_GT(odd->interval().count(), 0);
    ring->invalidate();
    odd->invalidate();
}

TEST_F(VirtualTimerTest, ACallbackMayDestroyTheOwnerOfItsTimer) {
    struct Owner {
        TimerPtr timer;
        std::shared_ptr<Owner> self;
    };
    auto owner = std::make_shared<Owner>();
    owner->self = owner;
    const std::weak_ptr<Owner> weak = owner;
    owner->timer = Timer::scheduled(1, Kind::Repeating, [held = owner] {
        held->self.reset();
        held->timer->invalidate();
    });
    owner.reset();
    time.advance(1);
    EXPECT_TRUE(weak.expired());
}

class SystemTimerTest : public FreshProcess {};

TEST_F(SystemTimerTest, TimersFireInOrderAndEndWithTheProcessState) {
    QList<int> order;
    QElapsedTimer clock;
    clock.start();
    Timer::scheduled(0.03, Kind::OneShot, [&] { order.append(2); });
    Timer::scheduled(0, Kind::OneShot, [&] { order.append(1); });
    TimerPtr tick;
    tick = Timer::scheduled(0.02, Kind::Repeating, [&] {
        if (order.size() >= 5)
            tick->invalidate();
        else if (order.size() >= 2)
            order.append(3);
    });
    ASSERT_TRUE(eventually([&] { return order.size() >= 5; }));
    EXPECT_EQ(order.mid(0, 3), (QList<int>{1, 2, 3}));
    EXPECT_GE(clock.elapsed(), 70) << "four turns of 20 ms";
    const TimerPtr left = Timer::scheduled(0.01, Kind::OneShot, [&] { order.append(9); });
    restartProcess();
    EXPECT_FALSE(left->isValid());
    quietly(40);
    EXPECT_FALSE(order.contains(9));
}

TEST_F(SystemTimerTest, AnIntervalOfThirtyDaysDoesNotOverflow) {
    bool fired = false;
    const TimerPtr distant =
        Timer::scheduled(30.0 * 24 * 3600, Kind::OneShot, [&] { fired = true; });
    quietly(30);
    EXPECT_FALSE(fired);
    EXPECT_TRUE(distant->isValid());
    distant->invalidate();
}

class MainQueueTest : public FreshProcess {};

TEST_F(MainQueueTest, RunsPostedWorkLaterInOrderOnTheMainThread) {
    QList<int> order;
    MainQueue::post([&] {
        order.append(1);
        MainQueue::post([&] { order.append(3); });
    });
    MainQueue::post([&] { order.append(2); });
    EXPECT_TRUE(order.isEmpty());
    ASSERT_TRUE(eventually([&] { return order.size() == 3; }));
    EXPECT_EQ(order, (QList<int>{1, 2, 3}));

    bool wasMain = false;
    std::thread([&] { MainQueue::post([&] { wasMain = MainQueue::isMainThread(); }); }).join();
    EXPECT_TRUE(eventually([&] { return wasMain; }));
}

TEST_F(MainQueueTest, PostedWorkIsDroppedWithTheProcessState) {
    bool ran = false;
    MainQueue::post([&] { ran = true; });
    ProcessRoot::drop();
    handleEvents();
    EXPECT_FALSE(ran);
}

TEST_F(MainQueueTest, PostedWorkGoesWithTheObjectThatItUses) {
    QList<int> order;
    QObject kept;
    auto gone = std::make_unique<QObject>();
    MainQueue::post([&] { order.append(1); });
    MainQueue::post(&kept, [&] {
        order.append(2);
        gone.reset();
    });
    MainQueue::post(gone.get(), [&] { order.append(3); });
    MainQueue::post(&kept, [&] { order.append(4); });
    ASSERT_TRUE(eventually([&] { return order.contains(4); }));
    EXPECT_EQ(order, (QList<int>{1, 2, 4}));
}

/// In a process that has its application object for a part of its time only.
TEST(MainThreadTest, DISABLED_IsTheSameWithoutTheApplicationObject) {
    const auto expectOneMainThread = [](const char *moment) {
        SCOPED_TRACE(moment);
        bool isWorkerMain = true;
        bool hasWorkerRun = false;
        std::thread([&] {
            isWorkerMain = MainQueue::isMainThread();
            MainQueue::runOrPost([&] { hasWorkerRun = true; });
        }).join();
        EXPECT_FALSE(isWorkerMain);
        EXPECT_FALSE(hasWorkerRun);
        EXPECT_TRUE(MainQueue::isMainThread());
    };
    expectOneMainThread("before the application object");
    {
        LateApplication application;
        expectOneMainThread("with the application object");
    }
    expectOneMainThread("after the application object");
    sayPartDone();
}

/// In such a process the application object may also live on another thread than main()'s.
TEST(MainThreadTest, DISABLED_IsTheApplicationObjectsAlsoAfterIt) {
    std::thread([] {
        {
            LateApplication application;
            EXPECT_TRUE(MainQueue::isMainThread());
        }
        EXPECT_TRUE(MainQueue::isMainThread());
        std::thread([] { EXPECT_FALSE(MainQueue::isMainThread()); }).join();
    }).join();
    EXPECT_FALSE(MainQueue::isMainThread());
    sayPartDone();
}

TEST(MainThreadTest, AWorkerNeverCountsAsTheMainThread) {
    const QTemporaryDir folder;
    runUnnamedChildTest(QStringLiteral("MainThreadTest.*IsTheSameWithoutTheApplicationObject"),
                        folder.path());
    runUnnamedChildTest(QStringLiteral("MainThreadTest.*IsTheApplicationObjectsAlsoAfterIt"),
                        folder.path());
}

} // namespace velmora::test
