// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/SplashTimes.h"
#include "tests/tour/Scene.h"

namespace demo::tour {

/// What the scenes with splash screens share. Elements have the object names of the framework's
/// interface resource.
class SplashScene : public Scene {
public:
    using Scene::Scene;

protected:
    /// Opens the journal's window with these times.
    bool openWindow(const SplashTimes &times);
    /// Waits until a video and its still are on disk.
    bool awaitStoredVideo();

    /// Each of these waits until the screen shows all that belongs to the phase, faded in.
    bool awaitStartScreen(JournalWindow *window = nullptr);
    bool awaitVideo();
    bool awaitCloseButton();
    /// @param hasStill whether the ad's still is shown there
    bool awaitEndScreen(bool hasStill);

    /// Waits until a notification was posted that many times in this scene.
    bool awaitNotification(const QString &notification, int times = 1);

    /// Clicks the close button and waits until the splash screen is gone.
    bool close();
    /// Clicks the video and checks the notification and the opened link.
    /// @param names those that the notification may carry
    void clickVideo(const QStringList &names);
    void clickElement(const char *name);

    /// The splash screen of a window, the journal's by default; null while none is visible.
    QWidget *splash(const JournalWindow *window = nullptr) const;
    QWidget *element(const char *name, const JournalWindow *window = nullptr) const;
    bool isShown(const char *name, const JournalWindow *window = nullptr) const;
    /// Whether no fade runs any more and the screen shows the splash screen.
    bool isSettled(const JournalWindow *window = nullptr) const;
    /// The number that the countdown shows; empty when there is no countdown.
    QString countdown() const;

    /// Checks that every visible element lies inside the splash screen and no text is cut off.
    /// @param phase what is shown, for the report
    void expectAllFits(const QString &phase);
};

} // namespace demo::tour
