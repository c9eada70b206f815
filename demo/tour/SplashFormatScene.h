// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/tour/SplashScene.h"

namespace demo {

/// Every stage in a usual and in a very small window, in the language and at the pixel density
/// of this run.
class SplashFormatScene : public SplashScene {
public:
    SplashFormatScene(DemoApplication &demo, const Options &options) : SplashScene(demo, options) {}

protected:
    void play() override;

private:
    /// Pictures of a stage in both sizes, the present one first.
    void pictures(const QString &stage);
    void picture(const QString &stage, bool small);

    bool m_small = false;
};

} // namespace demo
