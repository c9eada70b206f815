// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AdBannerController.h"
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

    /// Adds a banner to the window if it has none. @return the window's banner
    AdBannerController *addBanner();
    AdBannerController *current() {
        BannerController *banner = Velmora::BControllFromWindow(window.get());
        return banner ? &AdBannerController::of(*banner) : nullptr;
    }

    /// Serves banner ads of these names, adds a banner to the window and waits until it shows one
    /// of them. @return the window's banner
    AdBannerController *showOneOf(const QStringList &names);

    /// Serves a banner named "wide" alone, with a red picture of 728x90.
    void serveWide();

    /// Waits until the banner's picture has been drawn, and until it takes clicks.
    bool takesClicks();

    /// Waits until a banner with this name is shown.
    bool shows(QAnyStringView name);
    /// Waits until any house banner is shown.
    bool showsHouseBanner();

    VirtualTime time;
    std::unique_ptr<QWidget> window;
    QStringList notifications;
    QList<QUrl> opened;

private:
    std::vector<NotificationCenter::Observation> m_observations;
};

} // namespace velmora::test
