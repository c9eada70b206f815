// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ReservedSpace.h"

#include <Velmora/BannerController.h>

#include <QtCore/QPointer>
#include <QtCore/QRect>

#include <memory>
#include <vector>

namespace velmora {

/// The parts of the host's windows that banners cover. Tells the host when one changes
/// (VelmoraEvents::bannerRectChanged(), windowBannerRectChanged()), and keeps the host's content
/// out of them if the host wants that. Does both on a later turn of the main loop, once for all
/// changes of a turn: a change comes in the middle of a layout or of a host's call, when no code of
/// the host may run. One per process. Main thread only.
class BannerAreas {
public:
    static BannerAreas &current();

    /// Adds a banner that has been put into a view.
    void add(const std::weak_ptr<BannerController> &banner) { m_banners.push_back(banner); }

    /// What is covered may have changed. Does nothing while there is no banner.
    static void checkLater();

    /// Whether the content of the views that banners lie in ends above the banner. Default: false.
    void setReservesSpace(bool on);

private:
    using Banners = std::vector<std::shared_ptr<BannerController>>;

    /// What the host was told last about a window.
    struct Told {
        QPointer<QWidget> window;
        QRect rect;
    };

    void check();
    Banners existingBanners();
    void reserveSpace(const Banners &banners);
    void tellHost(const Banners &banners);
    Told &toldAbout(QWidget *window);

    std::vector<std::weak_ptr<BannerController>> m_banners;
    std::vector<std::shared_ptr<ReservedSpace>> m_reserved;
    std::vector<Told> m_told;
    bool m_reservesSpace = false;
    bool m_isCheckPosted = false;
};

} // namespace velmora
