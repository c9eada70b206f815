// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/Options.h"
#include "demo/tour/Timeline.h"

#include <QtCore/QString>

#include <functional>
#include <memory>

class QWidget;

namespace demo {

class DemoApplication;
class JournalWindow;

/// One scene of the tour. A scene has a process of its own, since the framework asks its server
/// once a process only.
class Scene {
public:
    static const QString FirstStart;
    static const QString NextStart;
    static const QString HouseBanner;
    static const QString CachedBanner;
    static const QString HighDensity;
    static const QString FirstSplash;
    static const QString SeveralWindows;
    static const QString DefaultVideo;
    static const QString RestyledSplash;
    static const QString SplashFormat;

    /// The scene of that name; null when there is none.
    static std::unique_ptr<Scene> named(const QString &name, DemoApplication &demo,
                                        const Options &options);

    virtual ~Scene();

    /// Plays the scene. @return false, with a word on stderr for each thing that was missing
    bool perform();

protected:
    /// How long a busy machine may take for anything.
    static constexpr int Patience = 15000;

    Scene(DemoApplication &demo, const Options &options);

    virtual void play() = 0;

    /// Opens the journal's window and waits until it is on the screen, also with a size that
    /// was asked for.
    bool openWindow();
    bool resizeWindow(const QSize &size);

    /// Notes and reports a condition that should hold; the first one that does not leaves a
    /// picture. @return whether it does
    bool expect(bool condition, const QString &what);
    /// The same for a condition that should come to hold soon.
    bool await(const QString &what, const std::function<bool()> &condition,
               int timeoutMs = Patience);

    /// Waits until the screen shows a banner, fully faded in, and notes its name.
    bool awaitBanner(const QString &what, const std::function<bool(const QString &name)> &isRight,
                     int timeoutMs = Patience);

    /// Leaves a picture of the window on the screen.
    void picture(const QString &name, QWidget *window = nullptr);

    /// Clicks the banner and checks what the framework makes of it.
    void clickBanner();
    /// Moves the pointer away, so that nothing is highlighted below it.
    void parkPointer();
    void click(QWidget *widget);
    void click(QWidget *widget, const QPoint &point);

    QWidget *banner() const;
    QWidget *bannerImage() const;
    /// Name of the banner on the screen; empty without one.
    QString bannerName() const;
    bool isCampaignBanner(const QString &name) const;

    DemoApplication &m_demo;
    JournalWindow *m_window = nullptr;
    Timeline m_timeline;

private:
    bool leave(const QString &name, const QWidget *window);

    Options m_options;
    int m_nextPicture;
    bool m_complete = true;
};

} // namespace demo
