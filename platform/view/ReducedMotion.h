// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "DesktopMotion.h"

#include <Velmora/Motion.h>

#include <QtCore/QObject>

#include <memory>

namespace velmora {

/// Whether the framework's views are to move as little as possible: as the host has said, or as the
/// desktop asks. Main thread only.
class ReducedMotion : public QObject {
    Q_OBJECT

public:
    static ReducedMotion &current();

    /// What the host wants. Default: Motion::FollowsDesktop.
    void setMotion(Motion motion);

    /// The desktop is asked at the first call; until it has answered, motion is not reduced.
    bool isOn();

Q_SIGNALS:
    /// isOn() may have changed.
    void changed();

private:
    Motion m_motion = Motion::FollowsDesktop;
    std::unique_ptr<DesktopMotion> m_desktop;
};

} // namespace velmora
