// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/Scenes.h"

namespace demo::tour {

const QList<Start> &starts() {
    static const QList<Start> starts{
        {"first-start", firstStart, "reader", "reader"},
        {"next-start", nextStart, "reader", "reader"},
        {"house-banner", houseBanner, "offline", "offline"},
        {"cached-banner", cachedBanner, "reader", "offline"},
        {"high-density", highDensity, "guest", "guest", "2"},
        {"high-density", highDensity, "guest", "guest", "1.5"},
        {"first-splash", firstSplash, "viewer", "viewer"},
        {"several-windows", severalWindows, "viewer", "viewer"},
        {"default-video", defaultVideo, "other", "other"},
        {"splash-format", splashFormat, "viewer", "viewer", "2", "de"},
        {"splash-format", splashFormat, "viewer", "viewer", {}, "ja"},
        {"restyled-splash", restyledSplash, "viewer", "viewer"},
    };
    return starts;
}

} // namespace demo::tour
