// SPDX-License-Identifier: Apache-2.0
#include "TimeProgressView.h"

#include "KeyFocus.h"
#include "ReducedMotion.h"

#include <Velmora/Support.h>

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr qint64 Done = 100; // steps
// Far beyond any countdown; the arithmetic on it cannot overflow.
constexpr qint64 Farthest = 1'000'000'000'000'000;
// Seconds. Shorter steps would only keep the processor busy.
constexpr double ShortestStep = 0.001;
constexpr double ShortestFrame = 1.0 / 60;
// Physical pixels, along the edge, that the end of the elapsed part moves from frame to frame.
constexpr double FramePixels = 0.5;
constexpr double DegreesPerRadian = 57.29577951308232;

// Where the elapsed part ends at a step, degrees. Beyond the last step the ring stays full.
double sweepAt(qint64 step) {
    return double(std::clamp<qint64>(step * 360 / Done, 0, 360));
}

} // namespace

TimeProgressView::TimeProgressView(QWidget *parent) : QWidget(parent) {}

TimeProgressView::~TimeProgressView() {
    stopTicking();
}

void TimeProgressView::startTimerFromSec(float fromSec, float endSec) {
    refresh();
    m_countSec = endSec;
    stopTicking();
    const double part = double(fromSec) / double(endSec) * 100;
    setVal1(std::isfinite(part) ? qint64(std::clamp(part, double(-Farthest), double(Farthest)))
                                : 0);
    startTicking();
}

void TimeProgressView::complite() {
    addMissedSteps();
    stopTicking();
    startTicking();
}

void TimeProgressView::stop() {
    addMissedSteps();
    stopTicking();
}

void TimeProgressView::refresh() {
    m_needsRedraw = true;
    updateNextStep();
}

double TimeProgressView::Diametr() const {
    return look().diameter();
}

void TimeProgressView::setVal1(qint64 value) {
    m_val1 = std::clamp(value, -Farthest, Farthest);
}

void TimeProgressView::startTicking() {
    m_ticking = true;
    schedule();
    if (!isVisible())
        rest();
}

void TimeProgressView::stopTicking() {
    // When the countdown continues, the elapsed part grows from where it is now.
    m_startSweep = sweepNow();
    m_ticking = false;
    rest();
}

void TimeProgressView::schedule() {
    const double step = double(m_countSec) / 100;
    m_timer = Timer::scheduled(step < ShortestStep ? 0 : step, Timer::Kind::Repeating,
                               [this] { tick(); });
    setGodTimer(m_timer);
    m_interval = m_timer->interval();
    m_lastTick = m_startTime = TimeSource::current().now();
    scheduleFrame();
}

// The steps stay where they would be if the ring had not rested.
void TimeProgressView::resume() {
    addMissedSteps();
    const std::chrono::duration<double> toNextStep =
        m_lastTick + m_interval - TimeSource::current().now();
    m_timer = Timer::scheduled(toNextStep.count(), Timer::Kind::OneShot, [this] {
        schedule();
        tick();
    });
    setGodTimer(m_timer);
}

void TimeProgressView::tick() {
    // The redraw that the last tick asked for never came, so the ring cannot be seen.
    if (m_needsRedraw) {
        rest();
        return;
    }
    m_lastTick = TimeSource::current().now();
    refresh();
}

void TimeProgressView::rest() {
    if (m_timer)
        m_timer->invalidate();
    Timer::cancel(m_frameTimer);
}

// Adds the steps that were due while the ring rested. Not the hundredth, which the redraw adds.
void TimeProgressView::addMissedSteps() {
    if (!m_ticking || (m_timer && m_timer->isValid()))
        return;
    const qint64 missed = (TimeSource::current().now() - m_lastTick) / m_interval;
    m_lastTick += m_interval * missed;
    setVal1(m_val1 < Done ? std::min(m_val1 + missed, Done - 1) : m_val1 + missed);
}

RingPicture::Look TimeProgressView::look() const {
    return {.size = size(),
            .density = devicePixelRatioF(),
            .disc = m_backgroundColor,
            .remaining = m_backgroundProgressColor,
            .elapsed = m_progressColor,
            .remainingWidth = m_widthBorder,
            .elapsedWidth = m_widthBorder + m_widthProgress};
}

// Asks for a paint event, also when the step does not change the picture.
void TimeProgressView::updateNextStep() {
    const QRect changed = m_picture.changeTo(look(), sweepAt(m_val1 + 1));
    update(changed.isEmpty() ? QRect(rect().center(), QSize(1, 1)) : changed);
}

void TimeProgressView::paintEvent(QPaintEvent *event) {
    const bool resting = m_ticking && !m_timer->isValid();
    if (resting)
        resume();
    QRect changed;
    // Only a size that lasts until the ring is painted redraws it. A host's style sheet may resize
    // it for a moment, see StyleShield.
    if (m_needsRedraw || resting || !m_picture.fits(look()))
        changed = redraw();
    else if (m_needsFrame)
        changed = drawFrame();
    QPainter(this).drawPixmap(0, 0, m_picture.pixmap());
    // More than expected, for example after missed steps.
    if (!QRegion(changed).subtracted(event->region()).isEmpty())
        update(changed);
}

QRect TimeProgressView::redraw() {
    m_needsRedraw = false;
    setVal1(m_val1 + 1);
    m_startSweep = sweepAt(m_val1);
    m_startTime = TimeSource::current().now();
    if (m_val1 == Done)
        stopTicking();
    m_needsFrame = false;
    scheduleFrame();
    return m_picture.draw(look(), m_startSweep);
}

// Between two steps.

double TimeProgressView::sweepNow() const {
    if (!m_ticking || !m_timer || !m_timer->isValid() || ReducedMotion::current().isOn())
        return m_startSweep;
    const std::chrono::duration<double> passed = TimeSource::current().now() - m_startTime;
    const std::chrono::duration<double> whole = m_timer->deadline() - m_startTime;
    const double part = whole.count() > 0 ? std::clamp(passed / whole, 0.0, 1.0) : 1;
    return m_startSweep + (sweepAt(m_val1 + 1) - m_startSweep) * part;
}

// A ring that is not painted schedules no further frame.
void TimeProgressView::scheduleFrame() {
    Timer::cancel(m_frameTimer);
    const double degrees = sweepAt(m_val1 + 1) - m_startSweep;
    const double pixels = degrees / DegreesPerRadian * Diametr() / 2 * devicePixelRatioF();
    if (!m_ticking || pixels < 2 * FramePixels || ReducedMotion::current().isOn() ||
        !KeyFocus::isInKeyWindow(*this))
        return;
    const TimeSource::Duration now = TimeSource::current().now();
    const auto seconds = [](TimeSource::Duration time) {
        return std::chrono::duration<double>(time).count();
    };
    const double wait =
        std::max(seconds(m_timer->deadline() - m_startTime) * FramePixels / pixels, ShortestFrame);
    // Close to the next step that one is enough.
    if (wait * 1.5 > seconds(m_timer->deadline() - now))
        return;
    m_frameTimer = Timer::scheduled(wait, Timer::Kind::OneShot, [this] {
        m_needsFrame = true;
        updateNextStep();
    });
    setGodTimer(m_frameTimer);
}

QRect TimeProgressView::drawFrame() {
    m_needsFrame = false;
    scheduleFrame();
    return m_picture.draw(look(), sweepNow());
}

void TimeProgressView::showEvent(QShowEvent *event) {
    QWidget::showEvent(event);
    m_needsRedraw = true;
}

void TimeProgressView::hideEvent(QHideEvent *event) {
    QWidget::hideEvent(event);
    rest();
}

} // namespace velmora
