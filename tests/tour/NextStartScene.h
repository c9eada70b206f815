// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/tour/Scene.h"

namespace demo::tour {

/// The start after advertising was removed: no banner, and no request to the ad server.
class NextStartScene : public Scene {
public:
    using Scene::Scene;

protected:
    void play() override;
};

} // namespace demo::tour
