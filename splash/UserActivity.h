// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "KeyboardUse.h"

#include <Velmora/Timer.h>

#include <QtCore/QObject>
#include <QtCore/QString>

#include <functional>

namespace velmora {

/// Whether the user is in the middle of something in the host's windows, which a splash screen
/// would interrupt: holds a mouse button, drags, types, or has a popup or a modal dialog open. Sees
/// only the events of this process. Does not see the popups of Qt Quick, which are items in a
/// window, nor input to windows that Qt knows only by their native id. Main thread only.
class UserActivity final : public QObject {
public:
    ~UserActivity() override;

    /// Sets whether the application's events are observed, which is needed for keys and drags. Off
    /// at first. Switching it off ends the waiting.
    void setObserving(bool observing);

    /// What the user is doing, in English, for a log line; empty when a splash screen would
    /// interrupt nothing.
    QString current() const;

    /// Calls back once, on a later turn of the main loop, when current() is empty. Replaces an
    /// earlier callback. Nothing is polled: only events and the end of the time after a keystroke
    /// lead to a check.
    void callWhenIdle(std::function<void()> callback);
    bool isWaiting() const { return m_callback != nullptr; }
    void stopWaiting();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void note(const QObject *watched, QEvent *event);
    void noteDrag(const QEvent *event);
    void checkLater();
    void check();

    KeyboardUse m_keyboard;
    bool m_isObserving = false;
    /// A drag is over a window of the host, or began in one.
    bool m_isDragging = false;
    bool m_isDragOwn = false;
    std::function<void()> m_callback;
    bool m_isCheckPosted = false;
    /// Fires when the user does not count as typing any more.
    TimerPtr m_typingEnds;
};

} // namespace velmora
