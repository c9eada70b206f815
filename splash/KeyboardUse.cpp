// SPDX-License-Identifier: Apache-2.0
#include "KeyboardUse.h"

#include <algorithm>

namespace velmora {

namespace {

constexpr std::chrono::seconds AfterKeystroke{1};
constexpr std::chrono::seconds LongestHold{10};

} // namespace

void KeyboardUse::pressed(quint32 key) {
    m_heldSince.insert(key, TimeSource::current().now());
    textEntered();
}

void KeyboardUse::released(quint32 key) {
    m_heldSince.remove(key);
    textEntered();
}

void KeyboardUse::textEntered() {
    m_until = TimeSource::current().now() + AfterKeystroke;
}

KeyboardUse::Duration KeyboardUse::remaining() const {
    Duration until = m_until;
    for (const Duration since : m_heldSince)
        until = std::max(until, since + LongestHold);
    return until - TimeSource::current().now();
}

} // namespace velmora
