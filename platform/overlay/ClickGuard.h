// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Timer.h>

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

namespace velmora {

/// Drops presses and wheel turns in a part of a window for a moment after a click has closed what
/// was there. The second click of a double click would otherwise press what was below.
///
/// Native windows of the host may lie there, so this filters the events of the whole application.
/// The superview owns it; it destroys itself at its end. Main thread only.
class ClickGuard : public QObject {
    Q_OBJECT

public:
    /// @param frame   in the superview's coordinates
    /// @param seconds how long; a press that began before is dropped with its release
    static void begin(QWidget *superview, const QRect &frame, double seconds);
    ~ClickGuard() override { m_timer->invalidate(); }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    ClickGuard(QWidget *superview, const QRect &frame, double seconds);
    bool isInside(const QWindow *window, const QEvent *event) const;
    bool takesPress(QWindow *window, QEvent *event);
    void forgetPress();
    void endIfDone();

    QWidget *m_superview;
    QRect m_frame;
    TimerPtr m_timer;
    /// Where the press was dropped whose release has not come yet.
    QPointer<QWindow> m_pressed;
};

} // namespace velmora
