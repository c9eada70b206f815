// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

namespace velmora::test {

/// Handles everything that is pending on the main loop, deferred deletions included.
void handleEvents();

/// Handles events until a condition holds; false when it does not within the patience. For real
/// network and real processes only.
bool eventually(const std::function<bool()> &condition, int patienceMs = 15000);

/// Handles events for a while, to see that nothing happens.
void quietly(int milliseconds);

} // namespace velmora::test
