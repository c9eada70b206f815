// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Announcement.h"

#include <QtCore/QPointer>

namespace velmora {

/// Makes screen readers speak how long a splash screen stays, and when it can be closed: each once
/// in a sequence, in the active window only. Main thread only.
class SplashAnnouncer {
public:
    /// @param view of the splash screen
    void setView(QWidget *view);

    /// @param window of the host
    void countdownStarted(const QWidget *window, qint64 secondsLeft);
    void canBeClosed(const QWidget *window);
    /// The sequence is over.
    void reset();

    /// Keeps this from taking space after a style sheet has changed.
    void shrink() {
        if (m_announcement)
            m_announcement->shrink();
    }

private:
    enum class Told { Nothing, Countdown, CanBeClosed };
    void sayLater(const QWidget *window, Told what, const QString &text);

    QPointer<Announcement> m_announcement;
    Told m_told = Told::Nothing;
};

} // namespace velmora
