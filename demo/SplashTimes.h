// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace demo {

/// The times of the splash screens, in whole seconds. They are shorter than a real host's, so that
/// a splash screen comes soon.
struct SplashTimes {
    int delay = 10; ///< from the first window to the first splash screen
    int load = 5;   ///< length of the start screen
    int wait = 60;  ///< from the end of one splash screen to the next
};

} // namespace demo
