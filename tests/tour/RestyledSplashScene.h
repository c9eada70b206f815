// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/tour/SplashScene.h"

namespace demo::tour {

/// A splash screen in a look of the host's. The reader pays while it is shown, which removes it.
class RestyledSplashScene : public SplashScene {
public:
    using SplashScene::SplashScene;

protected:
    void play() override;

private:
    void pay();
};

} // namespace demo::tour
