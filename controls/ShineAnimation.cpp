// SPDX-License-Identifier: Apache-2.0
#include "ShineAnimation.h"

#include "FlippedCoordinates.h"
#include "KeyFocus.h"
#include "NSBezierPath+Extension.h"
#include "ProcessRoot.h"

#include <QtCore/QEasingCurve>

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora {

namespace {

// Half the frames of a usual screen halve the cost, and a stripe that crosses the view within two
// seconds looks no different. In a window without the user's attention a quarter does.
constexpr double FrameSeconds = 1.0 / 30;
constexpr double FrameSecondsNotKey = 1.0 / 15;

// Seconds after which a view that has asked for a redraw and got none counts as hidden or covered.
// Long enough for a main thread that is busy for a moment.
constexpr double UnseenAfter = 0.25;

// Of text to what is behind it.
constexpr double LeastContrast = 4.5;

// As WCAG 2.2 defines it.
double relativeLuminance(const QColor &color) {
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

// Never destroyed: the main thread may still be drawing when another is in exit().
const QEasingCurve &easeOut() {
    static const QEasingCurve &curve = *[] {
        auto *made = new QEasingCurve(QEasingCurve::BezierSpline);
        made->addCubicBezierSegment({0, 0}, {0.58, 1}, {1, 1});
        return made;
    }();
    return curve;
}

} // namespace

QPainterPath ShineAnimation::band(double x, double width, double slant, double height) {
    const FlippedCoordinates up(height);
    QPainterPath path;
    path.moveTo(up.point(x, 0));
    path.lineTo(up.point(x + width - slant, 0));
    path.lineTo(up.point(x + width, height));
    path.lineTo(up.point(x, height));
    path.lineTo(up.point(x - slant, 0));
    return path;
}

double ShineAnimation::offset(double seconds, double viewWidth) {
    const double progress = easeOut().valueForProgress(std::clamp(seconds / Duration, 0.0, 1.0));
    // The path of the middle of an area as large as the view, which carries the stripe.
    const double from = -viewWidth / 3;
    const double to = viewWidth + 1.5 * viewWidth / 3;
    return from + (to - from) * progress - viewWidth / 2;
}

bool ShineAnimation::isReadableOnIt(const QColor &text) {
    return (relativeLuminance(Qt::white) + 0.05) / (relativeLuminance(text) + 0.05) >=
           LeastContrast;
}

ShineAnimation::ShineAnimation(QWidget *view, std::function<void()> unseen)
    : m_view(view), m_unseen(std::move(unseen)) {}

ShineAnimation::~ShineAnimation() {
    stop();
}

void ShineAnimation::start() {
    stop();
    m_start = m_lastDrawn = TimeSource::current().now();
    const double interval = KeyFocus::isInKeyWindow(*m_view) ? FrameSeconds : FrameSecondsNotKey;
    m_frames = Timer::scheduled(interval, Timer::Kind::Repeating, [this] { frame(); });
}

void ShineAnimation::stop() {
    if (m_frames)
        m_frames->invalidate();
}

void ShineAnimation::frame() {
    if (secondsSince(m_start) >= Duration) {
        stop();
    } else if (secondsSince(m_lastDrawn) > UnseenAfter) {
        stop();
        m_unseen();
        return;
    }
    m_view->update();
}

double ShineAnimation::secondsSince(TimeSource::Duration then) const {
    return std::chrono::duration<double>(TimeSource::current().now() - then).count();
}

void ShineAnimation::draw(QPainter &painter) {
    m_lastDrawn = TimeSource::current().now();
    if (!isSweeping())
        return;
    const double w = m_view->width();
    const double h = m_view->height();
    const QPointF origin(offset(secondsSince(m_start), w), 0);
    const auto gradient = &NSBezierPathExtension::startAnimationPathGradientFill;
    const QRectF bounds(m_view->rect());
    const QColor cream = QColor::fromRgbF(1, 1, 200 / 255.0f);
    const QColor fadedCream = QColor::fromRgbF(1, 1, 200 / 255.0f, 0.5f);
    gradient(band(w / 3, w / 3, w / 7, h), bounds, cream, fadedCream).draw(painter, origin);
    gradient(band(w / 6, w / 6, w / 7, h), bounds, QColor::fromRgbF(1, 1, 1, 0.5f),
             QColor::fromRgbF(1, 1, 1, 0.25f))
        .draw(painter, origin);
    // Qt makes what it draws gradients with when it draws the first one. exit() must not destroy
    // that before the framework has stopped drawing.
    [[maybe_unused]] static const bool s_once = (ProcessRoot::registerAtExit(), true);
}

} // namespace velmora
