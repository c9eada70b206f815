// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/tour/Scene.h"

namespace demo::tour {

/// A start with the pixel ratio that QT_SCALE_FACTOR asks for.
class HighDensityScene : public Scene {
public:
    using Scene::Scene;

protected:
    void play() override;
};

} // namespace demo::tour
