// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Timer.h>

#include <functional>

namespace velmora {

/// Decides when changes are stored that need not be stored at once: on the next turn of the event
/// loop, so that one write stores everything that was posted up to now, and after a pause while
/// storing is expensive. Main thread only.
class StorePace {
public:
    /// @param store stores everything that has changed
    explicit StorePace(std::function<void()> store);
    /// Stores nothing any more.
    ~StorePace();

    /// Stores on the next turn of the event loop, or after the pause.
    void storeLater();
    /// Stores on the next turn of the event loop.
    void storeSoon();
    /// Stores in half a second, because it was not possible now.
    void retry();

    /// Everything is stored.
    void setDone() { m_isDue = false; }
    /// While this is set, a pause follows each time that storeSoon() has stored. It is four times
    /// as long as storing took, half a second at most.
    void setHasPauses(bool hasPauses) { m_hasPauses = hasPauses; }

private:
    void storeNow();
    void pause(double seconds);

    const std::function<void()> m_store;
    bool m_isDue = false;
    bool m_isPosted = false;
    bool m_hasPauses = false;
    TimerPtr m_timer; // valid during a pause
};

} // namespace velmora
