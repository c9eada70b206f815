// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/tour/SplashScene.h"

namespace demo {

/// A server without videos: the host's own is played. There is no still, so the end screen shows
/// the icon; it changes its look at once.
class DefaultVideoScene : public SplashScene {
public:
    DefaultVideoScene(DemoApplication &demo, const Options &options) : SplashScene(demo, options) {}

protected:
    void play() override;
};

} // namespace demo
