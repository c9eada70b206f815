// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/tour/Scene.h"

namespace demo {

/// A start on a screen with small pixels.
class HighDensityScene : public Scene {
public:
    HighDensityScene(DemoApplication &demo, const Options &options) : Scene(demo, options) {}

protected:
    void play() override;
};

} // namespace demo
