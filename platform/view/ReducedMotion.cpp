// SPDX-License-Identifier: Apache-2.0
#include "ReducedMotion.h"

#include "ProcessRoot.h"

#include <utility>

namespace velmora {

ReducedMotion &ReducedMotion::current() {
    return ProcessRoot::get<ReducedMotion>();
}

void ReducedMotion::setMotion(Motion motion) {
    if (std::exchange(m_motion, motion) != motion)
        Q_EMIT changed();
}

bool ReducedMotion::isOn() {
    if (m_motion != Motion::FollowsDesktop)
        return m_motion == Motion::Reduced;
    if (!m_desktop) {
        m_desktop = DesktopMotion::watch();
        connect(m_desktop.get(), &DesktopMotion::changed, this, &ReducedMotion::changed);
    }
    return m_desktop->isReduced();
}

} // namespace velmora
