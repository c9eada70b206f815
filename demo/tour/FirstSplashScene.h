// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/tour/SplashScene.h"

namespace demo {

/// The first splash screen of a run: refused while it is too early, then all its stages, each
/// with what a person can do there.
class FirstSplashScene : public SplashScene {
public:
    FirstSplashScene(DemoApplication &demo, const Options &options) : SplashScene(demo, options) {}

protected:
    void play() override;

private:
    void turnPage();
    bool tooEarly();
    bool startScreen();
    bool video();
    void endScreen();
};

} // namespace demo
