// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "RingPicture.h"
#include "TimeSource.h"
#include <Velmora/Timer.h>

#include <QtGui/QColor>
#include <QtWidgets/QWidget>

namespace velmora {

/// The countdown ring: a disc with a ring on its edge, whose elapsed part grows clockwise from
/// twelve o'clock in a hundred steps. Main thread only.
///
/// Every redraw of the ring advances it by one step, whatever caused it: a tick, refresh(), a new
/// size, or being shown. The ring keeps a picture of what it has drawn and only paints that again
/// when something behind or in front of it changes (over a video that is every frame): such a
/// paint event is no redraw and does not advance the ring.
///
/// From one step to the next the elapsed part grows evenly: it is drawn again whenever its end has
/// moved by half a pixel. These frames are no steps, and there are none where motion is reduced or
/// the window is not the key window.
///
/// A ring that cannot be seen (hidden, minimised, covered, scrolled away) has no running timer and
/// draws nothing. When it can be seen again, it first adds the steps that were due meanwhile, up
/// to 99: the redraw that follows must find it at exactly 100, which ends the ticking.
class TimeProgressView : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor backgroundColor MEMBER m_backgroundColor)
    Q_PROPERTY(QColor backgroundProgressColor MEMBER m_backgroundProgressColor)
    Q_PROPERTY(QColor progressColor MEMBER m_progressColor)
    Q_PROPERTY(double widthBorder MEMBER m_widthBorder)
    Q_PROPERTY(double widthProgress MEMBER m_widthProgress)

public:
    explicit TimeProgressView(QWidget *parent = nullptr);
    ~TimeProgressView() override;

    /// Starts the countdown, in place of a running one.
    /// @param fromSec seconds already elapsed
    /// @param endSec  seconds of the whole countdown; a step takes a hundredth of it. With zero, a
    ///                negative number or NaN a step takes one frame. When fromSec / endSec is not
    ///                finite, the ring starts at 0.
    void startTimerFromSec(float fromSec, float endSec);

    /// Stops the ticking; the ring keeps its progress.
    void stop();

    /// Continues ticking from where the ring stands. In spite of its name it does not fill the
    /// ring.
    void complite();

    /// Marks the ring for redrawing.
    void refresh();

    /// The ring's diameter: the smaller of the view's width and height.
    double Diametr() const;

    // Colours of the disc, of the track and of the elapsed part; thickness of the track, and how
    // much thicker the elapsed part is, points. A change shows at the next redraw.
    QColor backgroundColor() const { return m_backgroundColor; }
    void setBackgroundColor(const QColor &color) { m_backgroundColor = color; }
    QColor backgroundProgressColor() const { return m_backgroundProgressColor; }
    void setBackgroundProgressColor(const QColor &color) { m_backgroundProgressColor = color; }
    QColor progressColor() const { return m_progressColor; }
    void setProgressColor(const QColor &color) { m_progressColor = color; }
    double widthBorder() const { return m_widthBorder; }
    void setWidthBorder(double width) { m_widthBorder = width; }
    double widthProgress() const { return m_widthProgress; }
    void setWidthProgress(double width) { m_widthProgress = width; }

    /// Progress in hundredths of the countdown; 100 is done.
    qint64 val1() const { return m_val1; }
    void setVal1(qint64 value);
    /// Length of the whole countdown, seconds.
    float countSec() const { return m_countSec; }
    /// The timer of the steps; null or invalid when the ring does not tick or cannot be seen.
    TimerPtr timer() const { return m_timer; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void startTicking();
    void stopTicking();
    void schedule();
    void resume();
    void tick();
    void rest();
    void addMissedSteps();
    RingPicture::Look look() const;
    void updateNextStep();
    QRect redraw();
    double sweepNow() const;
    void scheduleFrame();
    QRect drawFrame();

    QColor m_backgroundColor;
    QColor m_backgroundProgressColor;
    QColor m_progressColor;
    double m_widthBorder = 0;
    double m_widthProgress = 0;
    qint64 m_val1 = 0;
    float m_countSec = 0;

    TimerPtr m_timer;
    bool m_ticking = false;
    TimeSource::Duration m_interval{1};
    TimeSource::Duration m_lastTick{0};
    bool m_needsRedraw = true;
    RingPicture m_picture;

    /// How far the elapsed part reached, in degrees, when it began to grow towards the next step,
    /// and when that was.
    double m_startSweep = 0;
    TimeSource::Duration m_startTime{0};
    TimerPtr m_frameTimer;
    bool m_needsFrame = false;
};

} // namespace velmora
