// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/TimelineCheck.h"

#include "demo/Advertising.h"
#include "tests/tour/Timeline.h"

#include <Velmora/Notifications.h>

#include <QtCore/QFile>
#include <QtCore/QHash>

namespace demo::tour {

namespace {

// Seconds from the start of the video to the close button.
constexpr double CloseButtonAfter = 5;
// Tolerances in seconds. A slow machine makes events late, never early; the little that is allowed
// covers the time between an event and its recording.
constexpr double Early = 0.25;
constexpr double Late = 4;

// The steps of a splash screen, in order.
enum Step { WillShow, DidShow, ShowMoreOne, VideoDidStart, CloseButton, DidClose };

const QStringList &steps() {
    static const QStringList steps{VLMsplashScreenWillShow,    VLMsplashScreenDidShow,
                                   VLMsplashScreenShowMoreOne, VLMadsVideoDidStart,
                                   Timeline::CloseButton,      VLMsplashScreenDidClose};
    return steps;
}

struct Event {
    qint64 ms = 0;
    QString name;
    QString object;
};

/// Checks one event after the other.
class Checker {
public:
    void take(const Event &event) {
        const Event delay = m_last.value(Timeline::Delay);
        if (event.name == Timeline::Scene) {
            m_nextStep = WillShow;
            m_sequences = 0;
        } else if (event.name == Timeline::Ready) {
            expectAfter(delay.object.toDouble(), delay.ms, event);
        } else if (event.name == Timeline::Back) {
            m_stepAt += event.ms - m_last.value(Timeline::Away).ms;
        } else if (event.name == VLMadsVideoDidStop) {
            expect(m_nextStep > VideoDidStart && !m_videoStopped, event, "is out of place");
            m_videoStopped = true;
        } else if (event.name == VLMclickForVideo) {
            expect(m_nextStep > VideoDidStart, event, "comes before the video");
        } else if (event.name == "ads-removed") {
            m_nextStep = WillShow;
        } else if (steps().contains(event.name)) {
            takeStep(event, int(steps().indexOf(event.name)));
        }
        m_last.insert(event.name, event);
    }

    /// What is wrong, after all events.
    QStringList faults() const {
        QStringList faults = m_faults;
        for (const QString &name : Advertising::notifications()) {
            if (!m_last.contains(name))
                faults += "the timeline lacks " + name;
        }
        return faults;
    }

private:
    void takeStep(const Event &event, int step) {
        expect(step == m_nextStep, event, "is out of place");
        if (step == VideoDidStart) {
            expectAfter(m_last.value(Timeline::LoadTime).object.toDouble(), m_stepAt, event);
            m_videoStopped = false;
        } else if (step == CloseButton) {
            expectAfter(CloseButtonAfter, m_stepAt, event);
        }
        m_nextStep = step == DidClose ? WillShow : step + 1;
        // It is not posted for the first splash screen of a run.
        if (m_nextStep == ShowMoreOne && ++m_sequences == 1)
            m_nextStep = VideoDidStart;
        m_stepAt = event.ms;
    }

    void expectAfter(double seconds, qint64 since, const Event &event) {
        const double passed = double(event.ms - since) / 1000;
        expect(passed >= seconds - Early && passed <= seconds + Late, event,
               QStringLiteral("comes after %1 s instead of %2 s").arg(passed).arg(seconds));
    }

    void expect(bool condition, const Event &event, const QString &fault) {
        const QString line = QStringLiteral("scene %1: %2 at %3 ms %4");
        if (!condition)
            m_faults += line.arg(m_last.value(Timeline::Scene).object, event.name,
                                 QString::number(event.ms), fault);
    }

    QHash<QString, Event> m_last; // of each name
    QStringList m_faults;
    int m_nextStep = WillShow;
    int m_sequences = 0; // in this scene
    bool m_videoStopped = false;
    qint64 m_stepAt = 0; // without the time in which the splash screen was paused
};

} // namespace

QStringList checkTimeline(const QString &folder) {
    Checker checker;
    QFile file(folder + '/' + Timeline::FileName);
    file.open(QIODevice::ReadOnly);
    while (!file.atEnd()) {
        const QStringList fields = QString::fromUtf8(file.readLine()).chopped(1).split('\t');
        checker.take({fields.value(0).toLongLong(), fields.value(1), fields.value(2)});
    }
    return checker.faults();
}

} // namespace demo::tour
