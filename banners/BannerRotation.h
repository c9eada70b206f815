// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Timer.h>

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>

namespace velmora {

class VisibilityWatch;

/// The turns of a banner, at each of which it may be swapped for another: one every 15 seconds.
/// While nobody can see the banner the rotation rests, without a timer. Main thread only.
class BannerRotation {
public:
    /// From one turn to the next.
    static constexpr double SwapSeconds = 15;

    ~BannerRotation() { cancelTurn(); }

    /// @param turn  called at every turn; is to schedule the next one, or to rest
    /// @param owner of this object, kept alive during a turn
    void setTurnHandler(const std::weak_ptr<void> &owner, std::function<void()> turn);
    /// Watches whether a view can be seen. The view must have a superview.
    void watch(QWidget *view);

    /// Starts the timer of the next turn.
    void scheduleTurn();
    /// Cancels that timer, and ends a rest.
    void cancelTurn();
    const TimerPtr &timer() const { return m_timer; }

    /// Postpones the next turn until the banner can be seen again. It is taken then at once.
    void rest() { m_rests = true; }

    /// True when nobody can see the banner. The first banner is also wanted on a page that lies
    /// behind another, so that it is there when the page is opened.
    bool isOutOfSight() const;
    void setHasShownBanner() { m_hasShownBanner = true; }
    bool hasShownBanner() const { return m_hasShownBanner; }

private:
    void takeTurnIfResting();

    std::weak_ptr<void> m_owner;
    std::function<void()> m_turn;
    TimerPtr m_timer;
    QPointer<VisibilityWatch> m_visibility;
    bool m_rests = false;
    bool m_hasShownBanner = false;
};

} // namespace velmora
