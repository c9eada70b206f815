// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/SplashTimes.h"

#include <QtCore/QStringList>

class QWidget;

namespace demo::tour {

class Scene;

/// The splash screen in a window of a scene. Its elements have the object names of the framework's
/// interface resource.
class Splash {
public:
    /// @param window by default, the journal's window of the scene
    explicit Splash(Scene &scene, QWidget *window = nullptr) : m_scene(scene), m_window(window) {}

    /// Opens the journal's window with these times.
    void openWindow(const SplashTimes &times);
    /// Waits until a video and its still are on disk.
    void awaitStoredVideo();

    /// Each of these waits until the screen shows all that belongs to the phase, faded in.
    void awaitStartScreen();
    void awaitVideo();
    void awaitCloseButton();
    /// @param ad what is shown of the ad: "interstitialImage" or, without a still, "iconImageView"
    void awaitEndScreen(const char *ad = "interstitialImage");

    void click(const char *name);
    /// Clicks the video and checks the notification and the opened link.
    /// @param names those that the notification may carry
    void clickVideo(const QStringList &names);
    /// Clicks the close button and waits until the splash screen is gone.
    void close();

    /// The splash screen; null while none is visible.
    QWidget *root() const;
    /// An element of the visible splash screen; null when there is none of that name.
    QWidget *element(const char *name) const;
    bool isShown(const char *name) const;
    /// Whether no fade runs any more and the screen shows the splash screen.
    bool isSettled() const;
    /// The number that the countdown shows; empty when there is no countdown.
    QString countdown() const;

private:
    Scene &m_scene;
    QWidget *m_window;
};

} // namespace demo::tour
