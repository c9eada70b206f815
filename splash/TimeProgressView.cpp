// SPDX-License-Identifier: Apache-2.0
#include "TimeProgressView.h"

#include <Velmora/Support.h>

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr qint64 Done = 100; // steps
// Far beyond any countdown; the arithmetic on it cannot overflow.
constexpr qint64 Farthest = 1'000'000'000'000'000;
// Seconds. Shorter steps would only keep the processor busy.
constexpr double ShortestStep = 0.001;

double radiusInside(double radius, double width) {
    return std::max(0.0, std::min(radius, radius - width));
}

QRectF circle(QPointF center, double radius) {
    return {center.x() - radius, center.y() - radius, 2 * radius, 2 * radius};
}

// Part of a ring, clockwise from an angle; degrees, counter-clockwise from three o'clock.
QPainterPath sector(QPointF center, double outer, double inner, double from, double sweep) {
    QPainterPath path;
    if (outer <= 0 || sweep <= 0)
        return path;
    path.arcMoveTo(circle(center, outer), from);
    path.arcTo(circle(center, outer), from, -sweep);
    if (inner > 0)
        path.arcTo(circle(center, inner), from - sweep, sweep);
    else
        path.lineTo(center);
    path.closeSubpath();
    return path;
}

void fill(QPainter &painter, const QPainterPath &path, const QColor &color) {
    if (color.isValid())
        painter.fillPath(path, color);
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
    update();
}

double TimeProgressView::Diametr() const {
    return std::min(width(), height());
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
    m_ticking = false;
    rest();
}

void TimeProgressView::schedule() {
    const double step = double(m_countSec) / 100;
    m_timer = Timer::scheduled(step < ShortestStep ? 0 : step, Timer::Kind::Repeating,
                               [this] { tick(); });
    setGodTimer(m_timer);
    m_interval = m_timer->interval();
    m_lastTick = TimeSource::current().now();
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
}

// Adds the steps that were due while the ring rested. Not the hundredth, which the redraw adds.
void TimeProgressView::addMissedSteps() {
    if (!m_ticking || (m_timer && m_timer->isValid()))
        return;
    const qint64 missed = (TimeSource::current().now() - m_lastTick) / m_interval;
    m_lastTick += m_interval * missed;
    setVal1(m_val1 < Done ? std::min(m_val1 + missed, Done - 1) : m_val1 + missed);
}

void TimeProgressView::paintEvent(QPaintEvent *) {
    const bool resting = m_ticking && !m_timer->isValid();
    if (resting) {
        addMissedSteps();
        schedule();
    }
    const QSize pixels = (QSizeF(size()) * devicePixelRatioF()).toSize();
    // Only a size that lasts until the ring is painted redraws it. A host's style sheet may resize
    // it for a moment, see StyleShield.
    if (m_needsRedraw || resting || m_picture.size() != pixels)
        redraw();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_picture);
}

void TimeProgressView::redraw() {
    m_needsRedraw = false;
    m_picture = QPixmap((QSizeF(size()) * devicePixelRatioF()).toSize());
    m_picture.setDevicePixelRatio(devicePixelRatioF());
    m_picture.fill(Qt::transparent);
    QPainter painter(&m_picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawRect(painter);
}

void TimeProgressView::drawRect(QPainter &painter) {
    const QPointF center = QRectF(rect()).center();
    const double radius = Diametr() / 2;
    QPainterPath disc;
    disc.addEllipse(center, radius, radius);
    fill(painter, disc, m_backgroundColor);

    setVal1(m_val1 + 1);
    // Beyond 100 the ring stays full.
    const double sweep = double(std::clamp<qint64>(m_val1 * 360 / 100, 0, 360));
    const QPainterPath elapsed =
        sector(center, radius, radiusInside(radius, m_widthBorder + m_widthProgress), 90, sweep);
    const QPainterPath remaining =
        sector(center, radius, radiusInside(radius, m_widthBorder), 90 - sweep, 360 - sweep);
    fill(painter, remaining, m_backgroundProgressColor);
    fill(painter, elapsed, m_progressColor);
    if (m_val1 == Done)
        stopTicking();
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
