// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

namespace demo::tour {

/// Waits while the event loop runs.
class Waiting {
public:
    /// Waits until the condition holds. @return false when the time is over before
    static bool until(const std::function<bool()> &condition, int timeoutMs);

    /// Waits for a time as long as the condition holds. @return false when it stopped holding
    static bool whileHolds(const std::function<bool()> &condition, int durationMs);
};

} // namespace demo::tour
