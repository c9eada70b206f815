// SPDX-License-Identifier: Apache-2.0
#include "demo/Reader.h"

namespace demo {

void Reader::setSurroundings(const Surroundings &surroundings) {
    m_surroundings = surroundings;
    m_surroundings.apply();
}

void Reader::startWith(const Surroundings &surroundings) {
    m_started = surroundings;
    setSurroundings(surroundings);
}

bool Reader::needsRestart() const {
    return m_surroundings.language != m_started.language ||
           m_surroundings.scale != m_started.scale || m_surroundings.isDark != m_started.isDark;
}

} // namespace demo
