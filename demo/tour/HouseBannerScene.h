// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/tour/Scene.h"

namespace demo {

/// A first start without the ad server: the framework shows a banner of its own.
class HouseBannerScene : public Scene {
public:
    HouseBannerScene(DemoApplication &demo, const Options &options) : Scene(demo, options) {}

protected:
    void play() override;
};

} // namespace demo
