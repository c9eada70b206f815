// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/tour/Scene.h"

#include <memory>

namespace demo::tour {

/// Makes the scenes by name.
class SceneFactory {
public:
    static const QString FirstStart;
    static const QString NextStart;
    static const QString HouseBanner;
    static const QString CachedBanner;
    static const QString HighDensity;
    static const QString FirstSplash;
    static const QString SeveralWindows;
    static const QString DefaultVideo;
    static const QString RestyledSplash;
    static const QString SplashFormat;

    /// The scene that options.scene names; null when there is none of that name.
    static std::unique_ptr<Scene> make(DemoApplication &demo, const TourOptions &options);
};

} // namespace demo::tour
