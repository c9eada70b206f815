// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashLengths.h"
#include "SplashScreenOutlets.h"

namespace velmora {

/// Places the controls that lie over the video and the still: ring or close button in the top right
/// corner with the ad mark beside it, sound button and remove-ads button in the bottom corners. The
/// close button has the ring's place, so that a click there never opens the ad. Where the
/// remove-ads button finds no room it is left out. Main thread only.
class SplashVideoLayout {
public:
    explicit SplashVideoLayout(const SplashScreenOutlets &outlets) : m_outlets(outlets) {}

    void apply(const QSize &window);

private:
    /// Returns whether everything has room with these lengths.
    bool fits(const QSize &window, const SplashLengths &lengths) const;
    void setTextSizes(const SplashLengths &lengths);
    void placeTopCorner(const QSize &window, const SplashLengths &lengths);
    void placeBottomCorners(const QSize &window, const SplashLengths &lengths);
    QRect markFrame(const QRect &ring, const SplashLengths &lengths) const;
    /// Empty where it does not fit between the sound button and the ring.
    QRect removeAdsFrame(const QSize &window, const SplashLengths &lengths) const;

    SplashScreenOutlets m_outlets;
};

} // namespace velmora
