// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "DesktopMotion.h"

#include <QtCore/QMap>
#include <QtCore/QVariant>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusVariant>

#include <array>

namespace velmora {

/// Asks the settings portal (org.freedesktop.portal.Settings), which answers on GNOME, KDE Plasma
/// and other desktops, inside and outside of sandboxes, under X11 and Wayland. Without a session
/// bus nothing is asked, and none is started.
class PortalMotion : public DesktopMotion {
    Q_OBJECT

public:
    PortalMotion();

    bool isReduced() const override;

private Q_SLOTS:
    void settingChanged(const QString &space, const QString &key, const QDBusVariant &value);

private:
    void connectToBus();
    void ask();
    void answered(QDBusPendingCallWatcher *answer);
    void store(const QString &space, const QString &key, const QVariant &value);

    /// Which of the settings that are known ask for reduced motion, see the source.
    std::array<bool, 3> m_reduced{};
    /// Reset at the end, so that the thread that connects does not use this object any more.
    std::shared_ptr<int> m_alive = std::make_shared<int>();
};

} // namespace velmora
