// SPDX-License-Identifier: Apache-2.0
#include "BackgroundThread.h"

#include <gtest/gtest.h>

#include <pthread.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace velmora::test {

namespace {

std::atomic<int> s_freed = 0;

// What a library keeps for a thread. It takes its time, so that a wait that ends too early is seen.
pthread_key_t threadData() {
    static const pthread_key_t key = [] {
        pthread_key_t made = 0;
        pthread_key_create(&made, [](void *) {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            ++s_freed;
        });
        return made;
    }();
    return key;
}

} // namespace

TEST(BackgroundThreadTest, TheWaitAtExitLastsUntilTheThreadsAreGone) {
    constexpr int Threads = 3;
    for (int i = 0; i < Threads; ++i) {
        ASSERT_TRUE(startBackgroundThread(
            "velmora-test", AtExit::Waits, [] { pthread_setspecific(threadData(), &s_freed); },
            nullptr));
    }
    waitForBackgroundThreads();
    EXPECT_EQ(s_freed, Threads);
}

} // namespace velmora::test
