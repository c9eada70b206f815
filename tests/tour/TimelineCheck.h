// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace demo::tour {

/// Reads a finished timeline and checks that the phases of the splash screens came in order and on
/// time, and that every notification occurred at least once.
class TimelineCheck {
public:
    explicit TimelineCheck(const QString &folder);

    /// Checks the timeline. To be called once. @return what is wrong, a line each
    QStringList faults();

private:
    enum class Stage { None, Announced, Shown, Video, Button };

    struct Event {
        qint64 ms = 0;
        QString name;
        QString object;
    };

    void beginScene(const Event &event);
    void take(const Event &event);
    void takeSequence(const Event &event);
    void step(const Event &event, Stage from, Stage to);
    void expectAfter(const Event &event, qint64 since, double seconds);
    void fault(const Event &event, const QString &what);

    QList<Event> m_events;
    QStringList m_faults;
    QString m_scene;
    Stage m_stage = Stage::None;
    int m_sequences = 0;
    bool m_expectsShowMoreOne = false;
    bool m_videoStopped = false;
    double m_load = 0;
    double m_delay = 0;
    qint64 m_registeredAt = 0;
    qint64 m_stageBegan = 0; ///< without the time in which the splash screen was paused
    qint64 m_awayAt = 0;
};

} // namespace demo::tour
