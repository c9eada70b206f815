// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashScreenAppearance.h"
#include "SplashScreenOutlets.h"

namespace velmora {

/// Which elements of a splash screen are visible in which phase: one table, element by phase.
/// Main thread only.
class SplashScreenVisibility {
public:
    enum class Phase {
        Start,
        Video,
        VideoWithCloseButton, ///< the video plays on under its close button
        End,
    };

    /// What the table's answers depend on, beside the phase.
    struct Conditions {
        const SplashScreenAppearance &appearance;
        /// The start screen is nothing but the background's colour.
        bool withoutSplash;
        /// The end screen shows the ad's still.
        bool hasStill;
    };

    /// Shows and hides the elements with a fade, but for those that no start screen has: these
    /// are hidden at once when one begins. Elements that are missing are skipped.
    static void apply(const SplashScreenOutlets &outlets, Phase phase,
                      const Conditions &conditions);
};

} // namespace velmora
