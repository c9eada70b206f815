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

    /// Waits until a banner of this name is on screen; false when it does not come.
    bool shows(const QString &name);
    /// Waits for any house banner.
    bool showsHouseBanner();

    VirtualTime time;
    std::unique_ptr<QWidget> window;
    QStringList notifications;
    QList<QUrl> opened;

private:
    std::vector<NotificationCenter::Observation> m_observations;
};

} // namespace velmora::test
