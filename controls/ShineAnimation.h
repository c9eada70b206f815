// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "TimeSource.h"
#include <Velmora/Timer.h>

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QWidget>

#include <functional>

namespace velmora {

/// The shine of a button: a sweep is two pale slanted stripes that cross a view from left to
/// right, slower and slower, and end beyond its right edge. Main thread only.
class ShineAnimation {
public:
    /// Length of a sweep, and the time from one sweep's start to the next one's, seconds.
    static constexpr double Duration = 2.0;
    static constexpr double Period = 5.0;

    /// The outline of a stripe as high as the view, its bottom edge shifted left by the slant. An
    /// open path.
    static QPainterPath band(double x, double width, double slant, double height);

    /// How far a stripe has moved to the right of the place that band() gives it, points; negative
    /// to the left of that.
    /// @param seconds since the sweep began
    static double offset(double seconds, double viewWidth);

    /// Whether a text of a colour has a contrast of at least 4.5:1 to the stripes where they are
    /// brightest (WCAG 2.2, 1.4.3).
    static bool isReadableOnIt(const QColor &text);

    /// @param unseen called when a sweep was stopped because the view is not redrawn
    ShineAnimation(QWidget *view, std::function<void()> unseen);
    ~ShineAnimation();
    ShineAnimation(const ShineAnimation &) = delete;
    ShineAnimation &operator=(const ShineAnimation &) = delete;

    /// Starts a sweep from the left edge, in place of a running one. The view is updated 30 times
    /// a second until it is over, or 15 times where its window was not key at the start.
    void start();
    void stop();

    /// Draws the stripes where they are now. To be called in every paint event of the view, also
    /// without a sweep: that the view is painted shows that it can be seen.
    void draw(QPainter &painter);

private:
    bool isSweeping() const { return m_frames && m_frames->isValid(); }
    void frame();
    double secondsSince(TimeSource::Duration then) const;

    QWidget *m_view;
    std::function<void()> m_unseen;
    TimerPtr m_frames;
    TimeSource::Duration m_start{0};
    TimeSource::Duration m_lastDrawn{0};
};

} // namespace velmora
