// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/tour/SplashScene.h"

namespace demo::tour {

/// Every phase in a window of usual and of very small size, in the language and at the pixel ratio
/// of this run.
class SplashFormatScene : public SplashScene {
public:
    using SplashScene::SplashScene;

protected:
    void play() override;

private:
    /// Takes pictures of a phase in both sizes, the present size first.
    void pictures(const QString &phase);
    void picture(const QString &phase, bool small);

    bool m_small = false;
};

} // namespace demo::tour
