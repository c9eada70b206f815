// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/tour/Scene.h"

namespace demo::tour {

/// A later start while the ad server is down: a banner that an earlier run stored is shown.
class CachedBannerScene : public Scene {
public:
    using Scene::Scene;

protected:
    void play() override;
};

} // namespace demo::tour
