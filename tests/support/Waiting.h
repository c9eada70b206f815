// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

namespace velmora::test {

/// Handles all pending events, deferred deletions included.
void handleEvents();

/// Handles events until a condition holds; false when it does not within the timeout. For waiting
/// on real networks and processes only: time in tests is virtual.
bool eventually(const std::function<bool()> &condition, int timeoutMs = 15000);

/// Handles events for so long, to check that nothing happens.
void quietly(int milliseconds);

} // namespace velmora::test
