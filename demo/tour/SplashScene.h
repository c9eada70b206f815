// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/SplashTimes.h"
#include "demo/tour/Scene.h"

namespace demo {

/// What the scenes with splash screens share. Elements are named as in the framework's
/// interface.
class SplashScene : public Scene {
protected:
    SplashScene(DemoApplication &demo, const Options &options) : Scene(demo, options) {}

    /// Opens the window with these times.
    bool openWindow(const SplashTimes &times);
    /// Waits until a video and its still are stored.
    bool awaitStoredVideo();

    /// Each waits until the screen shows the whole thing, faded in.
    bool awaitStartScreen(JournalWindow *window = nullptr);
    bool awaitVideo();
    bool awaitCloseButton();
    /// @param hasStill whether the ad's still is shown there
    bool awaitEndScreen(bool hasStill);
    bool awaitEnd(const QString &notification, int count = 1);

    /// Clicks the close button and waits until the splash screen has gone.
    bool close();
    /// Clicks the video and checks what the framework makes of it.
    void clickVideo(const QStringList &names);
    void clickElement(const char *name);

    QWidget *splash(const JournalWindow *window = nullptr) const;
    QWidget *element(const char *name, const JournalWindow *window = nullptr) const;
    /// An element that is there to be seen.
    bool isShown(const char *name, const JournalWindow *window = nullptr) const;
    /// Nothing fades any more, and the screen shows the splash screen.
    bool isSettled(const JournalWindow *window = nullptr) const;
    /// The seconds that the screen counts down; empty when it does not.
    QString countdown() const;

    /// Everything that can be seen lies inside, and no text is cut.
    void expectTidy(const QString &where);

    int count(const QString &notification) const;
};

} // namespace demo
