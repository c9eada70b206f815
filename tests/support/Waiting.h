// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

namespace velmora::test {

/// Handles all pending events, deferred deletions included.
void handleEvents();

/// Handles events until a condition holds. For tests that wait for a real network, display or
/// process; others use VirtualTime. @return false when the time is over before
bool eventually(const std::function<bool()> &condition, int timeoutMs = 15000);

/// Handles events for some time, so that a test can check that nothing happens.
void quietly(int milliseconds);

} // namespace velmora::test
