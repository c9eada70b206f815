// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/tour/SplashScene.h"

namespace demo::tour {

/// Splash screens started from the panel: one without a start screen, then one that a second window
/// joins and that pauses while a window without a splash screen is active.
class SeveralWindowsScene : public SplashScene {
public:
    using SplashScene::SplashScene;

protected:
    void play() override;

private:
    /// Opens a page of the panel and waits until the screen shows a control on it.
    bool turnTo(const char *tab, const char *name);
    void press(const char *tab, const char *button);
    bool videoOnly();
    bool secondWindow();
    bool pause();
    void lastSteps();

    JournalWindow *m_second = nullptr;
};

} // namespace demo::tour
