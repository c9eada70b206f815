// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Velmora.h>

#include <memory>
#include <optional>

namespace velmora {

class SplashScreenPresenter;

/// What the facade remembers, for as long as the process runs.
struct FacadeState {
    static constexpr double LargeBannerHeight = 100;
    static constexpr double SmallBannerHeight = 60;

    /// Made by the first operation that needs it, never replaced.
    std::shared_ptr<SplashScreenPresenter> presenter;
    /// Whether the update cycle has been started for the splash screens. It is not while ads are
    /// removed.
    bool isUpdateCycleStarted = false;
    /// All banners that the host added. Empty until the first banner operation, which hosts can
    /// ask for (isInitializedBannerLOG_ERROR()).
    std::optional<Velmora::BannerList> bannerControllers;
    // For banners that are added later.
    double bannerHeight = LargeBannerHeight;
    double bannerBottomInset = 0;
    double bannerCenterXInset = 0;
    bool areBannersInTabOrder = true;

    static FacadeState &current();

    /// Whether there is what everything that is shown needs: a QApplication, and not a
    /// QGuiApplication only, as many Qt Quick hosts have. Any thread.
    static bool hasApplication();
};

} // namespace velmora
