// SPDX-License-Identifier: Apache-2.0
#include "BannerRotation.h"

#include "MainQueue.h"
#include "VisibilityWatch.h"

#include <Velmora/Support.h>

#include <utility>

namespace velmora {

void BannerRotation::setTurnHandler(const std::weak_ptr<void> &owner, std::function<void()> turn) {
    m_owner = owner;
    m_turn = std::move(turn);
}

void BannerRotation::watch(QWidget *view) {
    m_visibility = new VisibilityWatch(view);
    // Posted: the signal comes while the host is showing or moving something.
    QObject::connect(m_visibility, &VisibilityWatch::changed, m_visibility,
                     [this, owner = m_owner] {
                         MainQueue::post([this, owner] {
                             if (const auto alive = owner.lock())
                                 takeTurnIfResting();
                         });
                     });
}

void BannerRotation::scheduleTurn() {
    m_timer = Timer::scheduled(SwapSeconds, Timer::Kind::OneShot, [this, owner = m_owner] {
        if (const auto alive = owner.lock())
            m_turn();
    });
    setGodTimer(m_timer);
}

void BannerRotation::cancelTurn() {
    m_rests = false;
    Timer::cancel(m_timer);
}

void BannerRotation::takeTurnIfResting() {
    if (m_rests && !isOutOfSight())
        m_turn();
}

bool BannerRotation::isOutOfSight() const {
    if (!m_visibility || !m_visibility->isWindowVisible())
        return true;
    return m_hasShownBanner && !m_visibility->isSuperviewVisible();
}

} // namespace velmora
