// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "HelperMessage.h"

#include <chrono>

namespace velmora {

/// One end of the connection between the library and a video helper: a socket that keeps messages
/// apart and in order. Any thread may send; one thread receives.
class HelperChannel {
public:
    /// What happens while the other end does not receive.
    enum class WhenFull {
        Waits,
        Drops ///< the message
    };

    /// @param socket is closed by the destructor
    HelperChannel(int socket, WhenFull whenFull);
    ~HelperChannel();
    HelperChannel(const HelperChannel &) = delete;
    HelperChannel &operator=(const HelperChannel &) = delete;

    /// @param file an open file that the other end gets a copy of; -1 for none
    /// @return false when the message was dropped or the other end is gone
    bool send(const HelperMessage &message, int file = -1);

    /// Waits for a message.
    /// @param file receives an open file, which the caller closes, or -1; null: files are refused
    /// @return false when the other end is gone
    bool receive(HelperMessage *message, int *file = nullptr);

    /// Waits for a message, or for the end of a process.
    /// @param process an open file that stands for it
    /// @return false when the process has ended
    bool waitForMessageOrEnd(int process) const;

    /// Whether there is a message, or the other end is gone, within the given time.
    bool waitForMessage(std::chrono::milliseconds longest) const;

    /// Ends the connection for both ends, so that a receive() that waits returns. Any thread.
    void hangUp();

private:
    const int m_socket;
    const WhenFull m_whenFull;
};

} // namespace velmora
