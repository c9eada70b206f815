// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/TimelineCheck.h"

#include "demo/Advertising.h"
#include "tests/tour/Timeline.h"

#include <Velmora/Notifications.h>

#include <QtCore/QFile>

namespace demo::tour {

namespace {

// Seconds from the start of the video to the close button.
constexpr double CloseButtonAfter = 5;
// Tolerances in seconds. A slow machine makes events late, never early; the little that is allowed
// covers the time between an event and its recording.
constexpr double Early = 0.25;
constexpr double Late = 4;

} // namespace

TimelineCheck::TimelineCheck(const QString &folder) {
    QFile file(folder + QLatin1Char('/') + Timeline::FileName);
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QStringList parts = line.split(QLatin1Char('\t'));
        if (parts.size() == 3)
            m_events.append({parts[0].toLongLong(), parts[1], parts[2]});
    }
}

QStringList TimelineCheck::faults() {
    QStringList missing = Advertising::notifications();
    for (const Event &event : std::as_const(m_events)) {
        take(event);
        missing.removeAll(event.name);
    }
    for (const QString &name : std::as_const(missing))
        m_faults.append(QStringLiteral("the timeline lacks %1").arg(name));
    return m_faults;
}

void TimelineCheck::beginScene(const Event &event) {
    m_scene = event.object;
    m_stage = Stage::None;
    m_sequences = 0;
    m_expectsShowMoreOne = false;
}

void TimelineCheck::take(const Event &event) {
    if (event.name == Timeline::Scene) {
        beginScene(event);
    } else if (event.name == Timeline::Delay) {
        m_delay = event.object.toDouble();
        m_registeredAt = event.ms;
    } else if (event.name == Timeline::Ready) {
        expectAfter(event, m_registeredAt, m_delay);
    } else if (event.name == Timeline::LoadTime) {
        m_load = event.object.toDouble();
    } else if (event.name == Timeline::Away) {
        m_awayAt = event.ms;
    } else if (event.name == Timeline::Back) {
        m_stageBegan += event.ms - m_awayAt;
    } else {
        takeSequence(event);
    }
}

void TimelineCheck::takeSequence(const Event &event) {
    const bool isNotification = Advertising::notifications().contains(event.name);
    if (isNotification && m_expectsShowMoreOne && event.name != VLMsplashScreenShowMoreOne)
        fault(event, QStringLiteral("comes before ") + VLMsplashScreenShowMoreOne);
    if (event.name == VLMsplashScreenWillShow) {
        step(event, Stage::None, Stage::Announced);
    } else if (event.name == VLMsplashScreenDidShow) {
        step(event, Stage::Announced, Stage::Shown);
        m_expectsShowMoreOne = ++m_sequences > 1;
        m_videoStopped = false;
    } else if (event.name == VLMsplashScreenShowMoreOne) {
        if (!m_expectsShowMoreOne)
            fault(event, QStringLiteral("is out of place"));
        m_expectsShowMoreOne = false;
    } else if (event.name == VLMadsVideoDidStart) {
        expectAfter(event, m_stageBegan, m_load);
        step(event, Stage::Shown, Stage::Video);
    } else if (event.name == Timeline::CloseButton) {
        expectAfter(event, m_stageBegan, CloseButtonAfter);
        step(event, Stage::Video, Stage::Button);
    } else if (event.name == VLMadsVideoDidStop) {
        if (m_stage < Stage::Video || m_videoStopped)
            fault(event, QStringLiteral("is out of place"));
        m_videoStopped = true;
    } else if (event.name == VLMclickForVideo) {
        if (m_stage < Stage::Video)
            fault(event, QStringLiteral("comes before the video"));
    } else if (event.name == VLMsplashScreenDidClose) {
        step(event, Stage::Button, Stage::None);
    } else if (event.name == QLatin1String("ads-removed")) {
        m_stage = Stage::None;
    }
}

void TimelineCheck::step(const Event &event, Stage from, Stage to) {
    if (m_stage != from)
        fault(event, QStringLiteral("is out of place"));
    m_stage = to;
    m_stageBegan = event.ms;
}

void TimelineCheck::expectAfter(const Event &event, qint64 since, double seconds) {
    const double passed = double(event.ms - since) / 1000;
    if (passed < seconds - Early || passed > seconds + Late)
        fault(event, QStringLiteral("comes after %1 s instead of %2 s").arg(passed).arg(seconds));
}

void TimelineCheck::fault(const Event &event, const QString &what) {
    m_faults.append(QStringLiteral("scene %1: %2 at %3 ms %4")
                        .arg(m_scene, event.name)
                        .arg(event.ms)
                        .arg(what));
}

} // namespace demo::tour
