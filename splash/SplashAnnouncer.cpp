// SPDX-License-Identifier: Apache-2.0
#include "SplashAnnouncer.h"

#include "MainQueue.h"
#include "WindowProxy.h"

#include <Velmora/Support.h>

namespace velmora {

void SplashAnnouncer::setView(QWidget *view) {
    m_announcement = new Announcement(view);
}

void SplashAnnouncer::countdownStarted(const QWidget *window, qint64 secondsLeft) {
    if (m_told == Told::Nothing)
        sayLater(window, Told::Countdown,
                 VLMStringFromKey(QStringLiteral("CountdownStartedText")).arg(secondsLeft));
}

void SplashAnnouncer::canBeClosed(const QWidget *window) {
    if (m_told != Told::CanBeClosed)
        sayLater(window, Told::CanBeClosed, VLMStringFromKey(QStringLiteral("CanBeClosedText")));
}

void SplashAnnouncer::reset() {
    m_told = Told::Nothing;
    if (m_announcement)
        m_announcement->say({});
}

// Later, when the splash screen is shown and has the focus, which screen readers speak first.
void SplashAnnouncer::sayLater(const QWidget *window, Told what, const QString &text) {
    m_told = what;
    if (!m_announcement)
        return;
    MainQueue::post(m_announcement, [announcement = m_announcement.data(),
                                     host = QPointer<const QWidget>(window), text] {
        if (announcement->parentWidget()->isVisible() && host && WindowProxy::isActive(host))
            announcement->say(text);
    });
}

} // namespace velmora
