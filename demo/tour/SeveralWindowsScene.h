// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/tour/SplashScene.h"

namespace demo {

/// Splash screens from the panel: one without start screen, then a second one, which another
/// window joins and which rests while the reader is elsewhere.
class SeveralWindowsScene : public SplashScene {
public:
    SeveralWindowsScene(DemoApplication &demo, const Options &options)
        : SplashScene(demo, options) {}

protected:
    void play() override;

private:
    /// Opens a page of the panel and waits until a control on it can be seen.
    bool turnTo(const char *tab, const char *button);
    void press(const char *tab, const char *button);
    bool videoOnly();
    bool secondWindow();
    bool elsewhere();
    void lastSteps();

    JournalWindow *m_second = nullptr;
};

} // namespace demo
