// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "TimeSource.h"
#include <Velmora/Timer.h>

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QWidget>

#include <functional>

namespace velmora {

/// One sweep of the shine: two pale slanted stripes that cross a view from left to right and
/// come to rest beyond its right edge. Main thread only.
class ShineAnimation {
public:
    /// Length of a sweep, and the time from one sweep's start to the next one's, seconds.
    static constexpr double Duration = 2.0;
    static constexpr double Period = 5.0;

    /// A stripe as high as the view, its bottom edge shifted left by the slant. An open path.
    static QPainterPath band(double x, double width, double slant, double height);

    /// How far right of its place a stripe of a view of this width has moved, points, so many
    /// seconds into a sweep; negative before the middle.
    static double offset(double seconds, double viewWidth);

    /// @param unseen called when a sweep was given up because nobody draws the view
    ShineAnimation(QWidget *view, std::function<void()> unseen);
    ~ShineAnimation();
    ShineAnimation(const ShineAnimation &) = delete;
    ShineAnimation &operator=(const ShineAnimation &) = delete;

    /// Starts a sweep, from the left edge. The view is redrawn once a frame until it is over.
    void start();
    void stop();
    bool isSweeping() const { return m_frames && m_frames->isValid(); }

    /// Draws the stripes where they are now; for every paint of the view.
    void draw(QPainter &painter);

private:
    void frame();
    double secondsSince(TimeSource::Duration then) const;

    QWidget *m_view;
    std::function<void()> m_unseen;
    TimerPtr m_frames;
    TimeSource::Duration m_start{0};
    TimeSource::Duration m_lastDrawn{0};
};

} // namespace velmora
