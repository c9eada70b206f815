// SPDX-License-Identifier: Apache-2.0
#include "CrossFade.h"

#include "Animator.h"
#include "ReducedMotion.h"

#include <algorithm>

namespace velmora {

void CrossFade::start(const QPixmap &from) {
    stop();
    if (from.isNull() || ReducedMotion::current().isOn())
        return;
    m_from = from;
    m_start = TimeSource::current().now();
    m_timer = Timer::scheduled(0, Timer::Kind::Repeating, [this] {
        m_view->update();
        if (progress() >= 1)
            stop();
    });
    m_timer->setFiresDuringTracking();
}

void CrossFade::stop() {
    Timer::cancel(m_timer);
    m_from = {};
}

double CrossFade::progress() const {
    const std::chrono::duration<double> passed = TimeSource::current().now() - m_start;
    return isRunning() ? std::clamp(passed.count() / Animator::Duration, 0.0, 1.0) : 1;
}

} // namespace velmora
