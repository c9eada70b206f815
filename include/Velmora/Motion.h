// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velmora {

/// How much the framework's advertising moves. See Velmora::setMotion().
enum class Motion {
    FollowsDesktop, ///< Reduced where the desktop asks for reduced motion, else Full
    Full,           ///< fades, shine and animated banners
    /// No fades and no shine. A banner stands on its first picture; a button on it plays its
    /// animation. Countdown rings advance in steps. Videos play.
    Reduced,
};

} // namespace velmora
