#pragma once

#include <Velmora/Velmora.h>

#include <optional>

namespace velmora {

/// What the facade keeps for the life of the process.
struct FacadeState {
    /// All banners that the host added; made by the first banner operation.
    std::optional<Velmora::BannerList> bannerControllers;
    double bannerHeight = 100;
    double bannerBottomInset = 0;
    double bannerCenterXInset = 0;

    static FacadeState &current();
};

} // namespace velmora
