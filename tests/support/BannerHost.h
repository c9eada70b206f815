// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "BannerController.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/VirtualTime.h"

#include <Velmora/Velmora.h>

#include <QtWidgets/QWidget>

namespace velmora::test {

/// A host with one window, a real ad server and virtual time.
class BannerHost : public LocalAdServer {
protected:
    BannerHost();
    ~BannerHost() override;

    /// The banner of the window, added now if there is none.
    BannerController *addBanner();
    BannerController *current() { return Velmora::BControllFromWindow(window.get()); }

    /// Lets the framework work until a banner with this name is on screen.
    bool shows(const QString &name);
    /// The same, for any banner that the ad server does not know.
    bool showsHouseBanner();

    VirtualTime time;
    std::unique_ptr<QWidget> window;
    QStringList notifications;
    QList<QUrl> opened;

private:
    std::vector<NotificationCenter::Observation> m_observations;
};

} // namespace velmora::test
