// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashScreenPresenter.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/VirtualTime.h"

#include <Velmora/Velmora.h>

#include <QtWidgets/QWidget>

#include <map>

namespace velmora::test {

/// A host with several windows, virtual time and no ad server.
class SplashHost : public FreshProcess {
protected:
    SplashHost();
    ~SplashHost() override;

    /// Shows a new window and makes it the key window.
    QWidget *openWindow(const QString &name);
    /// The same, and registers it for splash screens.
    QWidget *openRegistered(const QString &name);
    void activate(QWidget *window);
    void closeWindow(QWidget *window) { delete window; }

    static SplashScreenPresenter &presenter() { return Velmora::SSPresenter(); }
    static SplashScreenController &controller(QWidget *window) {
        return *presenter().splashScreenControllerWithWindow(window);
    }
    static bool isShown(const QWidget *element);
    static QString countdown(QWidget *window);
    static QString videoCountdown(QWidget *window);

    /// Sets a default video that exists but cannot be played.
    void useUnplayableVideo();

    /// The notifications since the last call, each as the last part of its name.
    QStringList heard();

    VirtualTime time;
    QList<QUrl> opened;

private:
    std::vector<QPointer<QWidget>> m_windows;
    std::vector<NotificationCenter::Observation> m_observations;
    QStringList m_heard;
};

} // namespace velmora::test
