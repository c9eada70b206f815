// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/tour/SplashScene.h"

namespace demo::tour {

/// The first splash screen of a run: refused before its delay is over, then every phase, with the
/// clicks that are possible in it.
class FirstSplashScene : public SplashScene {
public:
    using SplashScene::SplashScene;

protected:
    void play() override;

private:
    void turnPage();
    bool tooEarly();
    bool startScreen();
    bool video();
    void endScreen();
};

} // namespace demo::tour
