// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/tour/ServerProbe.h"
#include "tests/tour/Timeline.h"
#include "tests/tour/TourOptions.h"

#include <QtCore/QString>

#include <functional>

class QWidget;

namespace demo {

class DemoApplication;
class EventLog;
class JournalWindow;

namespace tour {

/// One scene of the tour. Each scene runs in a process of its own, because the framework asks the
/// ad server only once per process.
class Scene {
public:
    Scene(DemoApplication &demo, const TourOptions &options);
    virtual ~Scene();

    /// Plays the scene. @return false when an expectation failed; each is reported on stderr
    bool perform();

protected:
    /// The longest wait for a condition, for a slow machine.
    static constexpr int TimeoutMs = 15000;

    virtual void play() = 0;

    /// Opens the journal's window in its default size and waits until it is active.
    bool openWindow();
    bool resizeWindow(const QSize &size);

    /// Reports a condition that does not hold, and takes a picture the first time that happens.
    /// @param what what should be there, for the report
    /// @return whether the condition holds
    bool expect(bool condition, const QString &what);
    /// The same for a condition that is to become true within a time.
    bool await(const QString &what, const std::function<bool()> &condition,
               int timeoutMs = TimeoutMs);

    /// Waits until the screen shows a banner whose name isRight accepts, fully faded in, and adds
    /// its name to the timeline.
    bool awaitBanner(const QString &what, const std::function<bool(const QString &name)> &isRight,
                     int timeoutMs = TimeoutMs);
    /// The same for a banner of the campaign.
    bool awaitCampaignBanner();
    /// Waits until the purchase sheet is shown. @return its buy button; null when it never was
    QWidget *awaitPurchaseSheet(const QString &what);

    /// Saves a picture of a window, the journal's by default, as the screen shows it.
    void picture(const QString &name, QWidget *window = nullptr);

    /// Clicks the banner and checks the notification and the opened link.
    void clickBanner();
    /// Checks that the link opened last leads to a page of the store.
    void expectStoreLink();
    /// Moves the pointer out of the window, so that no control is highlighted in the next picture.
    void movePointerAway();
    void click(QWidget *widget);
    void click(QWidget *widget, const QPoint &point);

    /// A control of the journal's window, by object name; null when there is none.
    QWidget *control(const char *name) const;
    QWidget *banner() const;
    QWidget *bannerImage() const;
    /// Name of the banner that is shown; empty when there is none.
    QString bannerName() const;
    bool isCampaignBanner(const QString &name) const;

    /// How often an event was recorded in this scene.
    int count(const QString &event) const;
    /// The object of the last such event; null when there was none.
    QString lastObject(const QString &event) const;

    DemoApplication &m_demo;
    ServerProbe m_server;
    JournalWindow *m_window = nullptr;
    Timeline m_timeline;

private:
    bool savePicture(const QString &name, const QWidget *window);

    TourOptions m_options;
    int m_nextPicture;
    bool m_complete = true;
};

} // namespace tour
} // namespace demo
