// SPDX-License-Identifier: Apache-2.0
#include "FirstPicture.h"

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace velmora {

namespace {

using namespace std::chrono_literals;

constexpr auto LongestWait = 250ms;

struct State {
    std::mutex mutex;
    std::condition_variable settled;
    bool isExpected = false;
    bool isOver = false;

    // Never destroyed: the network thread may still be waiting when exit() begins.
    static State &instance() {
        static auto &state = *new State;
        return state;
    }
};

} // namespace

void FirstPicture::expect() {
    const std::lock_guard lock(State::instance().mutex);
    State::instance().isExpected = true;
}

void FirstPicture::settle() {
    State &state = State::instance();
    const std::lock_guard lock(state.mutex);
    if (!state.isExpected || state.isOver)
        return;
    state.isOver = true;
    state.settled.notify_all();
}

void FirstPicture::wait() {
    State &state = State::instance();
    std::unique_lock lock(state.mutex);
    if (state.isExpected)
        state.settled.wait_for(lock, LongestWait, [&state] { return state.isOver; });
    state.isOver = true;
}

} // namespace velmora
