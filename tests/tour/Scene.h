// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/tour/Timeline.h"

#include <QtCore/QJsonObject>
#include <QtCore/QMultiHash>
#include <QtCore/QStringList>

#include <functional>

class QWidget;

namespace velmora::adserver {
class AdServer;
}

namespace demo {

class DemoApplication;
class JournalWindow;

namespace tour {

/// What a scene works with: it operates the demo's first window as a reader does, reports what is
/// not as expected, and saves pictures. Each scene runs in a process of its own, because the
/// framework asks the ad server only once per process.
class Scene {
public:
    /// Matches the pictures' file names.
    static inline const QString PictureMask = "[0-9][0-9]-*.png";

    Scene(DemoApplication &demo, const QString &folder, qint64 tourStarted, const QString &name);

    /// Plays the scene. @return false when an expectation failed; each is reported on stderr
    bool run(void (*play)(Scene &));

    /// Opens the journal's window in its default size and waits until it is active.
    void openWindow();
    void resizeWindow(const QSize &size);

    /// Reports a condition that does not hold, and takes a picture the first time that happens.
    /// @param what what should be there, for the report
    void expect(bool condition, const QString &what);
    /// The same for a condition without which the scene cannot go on. A failure ends the scene.
    void require(bool condition, const QString &what);
    /// The same for a condition that is to become true. A failure ends the scene.
    void await(const QString &what, const std::function<bool()> &condition);
    void awaitActive(const QWidget *window);
    /// Waits until an event was recorded that many times in this scene.
    void awaitEvent(const QString &event, int times = 1);
    /// Expects that a condition holds during that time.
    void watch(const QString &what, const std::function<bool()> &condition, int milliseconds);

    /// Saves a picture of a window, the journal's by default, as the screen shows it.
    void picture(const QString &name, QWidget *window = nullptr);
    /// Adds an event to the timeline.
    void note(const QString &event, const QString &object = {}) { m_timeline.add(event, object); }

    /// Clicks at a point of a widget, given as fractions of its size. Then the pointer leaves the
    /// window, so that no control is highlighted in the next picture.
    void click(QWidget *widget, double x = 0.5, double y = 0.5);
    /// Clicks a control of the journal's window and waits until the screen shows another one.
    /// @return the other one
    QWidget *reveal(const char *button, const char *revealed);
    /// Clicks an ad and checks the notification, which has one of the names, and that a link opens.
    void clickAd(QWidget *ad, const QString &notification, const QStringList &names);
    /// Clicks a button that asks for the removal of ads, takes a picture of the offer and accepts
    /// it. The ad must be shown until then.
    void pay(QWidget *button, const QString &pictureName, const std::function<bool()> &isAdShown);

    DemoApplication &demo() const { return m_demo; }
    velmora::adserver::AdServer &server() const;
    /// The table that the ad server sends: the campaign's ads, by placement.
    QJsonObject adTable() const;
    /// The values under a key of the campaign's ads of a placement ("standard" or "video").
    QStringList adValues(const QString &placement, const QString &key) const;
    JournalWindow *window() const { return m_window; }
    /// A control of the journal's window, by object name.
    QWidget *control(const char *name);

    /// How often an event was recorded in this scene.
    int count(const QString &event) const { return int(m_events.count(event)); }
    /// The object of the last such event; null when there was none.
    QString lastObject(const QString &event) const { return m_events.value(event); }

private:
    /// Expects that the requests say nothing about the user or the system.
    void expectPrivateRequests();
    void movePointerAway();
    bool savePicture(const QString &name, const QWidget *window);

    DemoApplication &m_demo;
    Timeline m_timeline;
    QString m_folder;
    QString m_name;
    QMultiHash<QString, QString> m_events;
    JournalWindow *m_window = nullptr;
    bool m_complete = true;
};

} // namespace tour
} // namespace demo
