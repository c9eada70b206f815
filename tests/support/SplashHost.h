// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashScreenPresenter.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/VirtualTime.h"

#include <Velmora/Velmora.h>

#include <QtWidgets/QWidget>

namespace velmora::test {

/// A host with windows of its own, virtual time and no ad server.
class SplashHost : public FreshProcess {
protected:
    // What heard() calls the notifications.
    static inline const QString WillShow = QStringLiteral("splashcreenwillshow");
    static inline const QString DidShow = QStringLiteral("splashcreendidshow");
    static inline const QString MoreOne = QStringLiteral("splashcreensecondstart");
    static inline const QString VideoStart = QStringLiteral("videostart");
    static inline const QString VideoStop = QStringLiteral("videostop");
    static inline const QString DidClose = QStringLiteral("splashscreendidclose");

    SplashHost();
    ~SplashHost() override;

    /// Opens a window, which becomes key.
    QWidget *openWindow(QAnyStringView name);
    /// Opens a window that is registered for splash screens.
    QWidget *openRegistered(QAnyStringView name);
    void activate(QWidget *window);
    void closeWindow(QWidget *window) { delete window; }

    static SplashScreenPresenter &presenter() { return Velmora::SSPresenter(); }
    static SplashScreenController &controller(QWidget *window) {
        return *presenter().splashScreenControllerWithWindow(window);
    }
    static bool isShown(const QWidget *element);
    static QString countdown(QWidget *window);
    static QString videoCountdown(QWidget *window);

    /// Makes the next sequence "play" a file that is no video: the player refuses it, and the video
    /// never ends.
    void useUnplayableVideo();

    /// Makes an ad the only video ad of the table, and begins to load it. Its name is also that of
    /// its files and of its page in the store.
    static void drawVideo(const QString &name);

    /// The notifications since the last call: the last part of their names, with ":" and the
    /// object when they have one.
    QStringList heard();

    VirtualTime time;
    QList<QUrl> opened;

private:
    std::vector<QPointer<QWidget>> m_windows;
    std::vector<NotificationCenter::Observation> m_observations;
    QStringList m_heard;
};

/// The same with a window that is registered for splash screens.
class RegisteredHost : public SplashHost {
protected:
    QWidget *window = openRegistered("main");
};

} // namespace velmora::test
