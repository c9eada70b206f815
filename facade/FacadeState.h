// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Velmora.h>

#include <memory>
#include <optional>

namespace velmora {

class SplashScreenPresenter;

/// What the facade keeps for the life of the process.
struct FacadeState {
    /// Made by the first operation that needs it, never replaced.
    std::shared_ptr<SplashScreenPresenter> presenter;
    /// The presenter's update cycle; it waits until ads are allowed.
    bool isUpdateCycleStarted = false;
    /// All banners that the host added; made by the first banner operation.
    std::optional<Velmora::BannerList> bannerControllers;
    double bannerHeight = 100;
    double bannerBottomInset = 0;
    double bannerCenterXInset = 0;

    static FacadeState &current();
};

} // namespace velmora
