// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/tour/Scene.h"

namespace demo {

/// A later start without the ad server: a banner of an earlier run is shown.
class CachedBannerScene : public Scene {
public:
    CachedBannerScene(DemoApplication &demo, const Options &options) : Scene(demo, options) {}

protected:
    void play() override;
};

} // namespace demo
