// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "TimeSource.h"
#include <Velmora/Timer.h>

#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

namespace velmora {

/// Lets a new picture of a view fade in over the one before it. Main thread only.
class CrossFade {
public:
    explicit CrossFade(QWidget *view) : m_view(view) {}
    ~CrossFade() { stop(); }
    CrossFade(const CrossFade &) = delete;
    CrossFade &operator=(const CrossFade &) = delete;

    /// Begins to fade a picture out, for as long as Animator's fades last. The view is updated with
    /// every frame. Ignored for a null picture, and where motion is reduced.
    void start(const QPixmap &from);
    void stop();

    bool isRunning() const { return m_timer != nullptr; }
    /// The picture that fades out; null when there is none.
    const QPixmap &from() const { return m_from; }
    /// Opacity of the new picture, 0 to 1.
    double progress() const;

private:
    QWidget *m_view;
    QPixmap m_from;
    TimerPtr m_timer;
    TimeSource::Duration m_start{0};
};

} // namespace velmora
