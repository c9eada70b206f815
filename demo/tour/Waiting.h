// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

namespace demo {

/// Waiting in a program that goes on living meanwhile.
class Waiting {
public:
    /// Runs the event loop until the condition holds. @return false when it never did in time
    static bool until(const std::function<bool()> &condition, int timeoutMs);

    /// Runs the event loop for a while. @return false as soon as the condition does not hold
    static bool whileHolds(const std::function<bool()> &condition, int durationMs);
};

} // namespace demo
