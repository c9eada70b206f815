// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/tour/Scene.h"

namespace demo {

/// The start after advertising was removed: no banner, and nobody is asked for one.
class NextStartScene : public Scene {
public:
    NextStartScene(DemoApplication &demo, const Options &options) : Scene(demo, options) {}

protected:
    void play() override;
};

} // namespace demo
