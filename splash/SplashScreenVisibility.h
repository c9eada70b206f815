// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashScreenOutlets.h"

namespace velmora {

/// Which elements of a splash screen are visible in which phase: one table, element by phase.
/// Main thread only.
class SplashScreenVisibility {
public:
    enum class Phase {
        Start,
        Video,
        StillWithCountdown,   ///< the video has failed before its close button was due
        VideoWithCloseButton, ///< the video plays on under its close button
        End,
    };

    /// What the host has left out: on the start and end screens, on the start screen, on the end
    /// screen.
    struct LeftOut {
        bool icon = false;
        bool iconBeforeVideo = false;
        bool iconAfterVideo = false;
        bool backgroundImage = false;
        bool backgroundImageBeforeVideo = false;
        bool backgroundImageAfterVideo = false;
        bool buttonBeforeVideo = false;
        bool buttonAfterVideo = false;
    };

    /// What decides, beside the phase, whether an element is visible.
    struct Conditions {
        const LeftOut &leftOut;
        /// The start screen is nothing but the background's colour.
        bool withoutSplash;
        /// The end screen shows the ad's picture.
        bool hasInterstitial;
        /// A video ad comes after the start screen.
        bool isAdExpected;
    };

    /// Shows and hides the elements with a fade. The start phase hides at once what it never
    /// shows, so that nothing of an earlier sequence is seen fading out. Missing elements are
    /// skipped.
    static void apply(const SplashScreenOutlets &outlets, Phase phase,
                      const Conditions &conditions);
};

} // namespace velmora
