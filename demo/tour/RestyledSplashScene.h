// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/tour/SplashScene.h"

namespace demo {

/// A splash screen in the host's own look, which the reader ends by paying for that.
class RestyledSplashScene : public SplashScene {
public:
    RestyledSplashScene(DemoApplication &demo, const Options &options)
        : SplashScene(demo, options) {}

protected:
    void play() override;

private:
    void pay();
};

} // namespace demo
