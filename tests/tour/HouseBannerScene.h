// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/tour/Scene.h"

namespace demo::tour {

/// A first start while the ad server is down: a house banner is shown.
class HouseBannerScene : public Scene {
public:
    using Scene::Scene;

protected:
    void play() override;
};

} // namespace demo::tour
