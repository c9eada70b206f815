// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/tour/SplashScene.h"

namespace demo::tour {

/// The ad server has no videos, so the host's default video is played. It has no still, so the end
/// screen shows the icon instead. The look is changed while the end screen is shown.
class DefaultVideoScene : public SplashScene {
public:
    using SplashScene::SplashScene;

protected:
    void play() override;
};

} // namespace demo::tour
