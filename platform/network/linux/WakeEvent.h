// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/eventfd.h>
#include <unistd.h>

#include <cstdint>

namespace velmora {

/// An eventfd that wakes a thread which waits for the descriptor in poll(). Any thread may signal.
class WakeEvent {
public:
    WakeEvent() : m_descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}
    ~WakeEvent() {
        if (isValid())
            close(m_descriptor);
    }
    WakeEvent(const WakeEvent &) = delete;
    WakeEvent &operator=(const WakeEvent &) = delete;

    /// False when the process has no file descriptor left; the constructor has then set errno.
    bool isValid() const { return m_descriptor >= 0; }
    int descriptor() const { return m_descriptor; }

    void signal() const { eventfd_write(m_descriptor, 1); }
    void clear() const {
        std::uint64_t count = 0;
        eventfd_read(m_descriptor, &count);
    }

private:
    int m_descriptor;
};

} // namespace velmora
