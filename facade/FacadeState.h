// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Velmora.h>

#include <memory>
#include <optional>

namespace velmora {

class SplashScreenPresenter;

/// What the facade remembers, for as long as the process runs.
struct FacadeState {
    /// Made by the first operation that needs it, never replaced.
    std::shared_ptr<SplashScreenPresenter> presenter;
    /// Whether the update cycle has been started for the splash screens. It is not while ads are
    /// removed.
    bool isUpdateCycleStarted = false;
    /// All banners that the host added; made by the first banner operation.
    std::optional<Velmora::BannerList> bannerControllers;
    double bannerHeight = 100;
    double bannerBottomInset = 0;
    double bannerCenterXInset = 0;

    static FacadeState &current();
};

} // namespace velmora
