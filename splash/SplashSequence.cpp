// SPDX-License-Identifier: Apache-2.0
#include "SplashSequence.h"

#include "Refusal.h"
#include "Switches.h"

#include <Velmora/NotificationCenter.h>
#include <Velmora/Notifications.h>
#include <Velmora/Support.h>

#include <utility>

namespace velmora {

SplashSequence::SplashSequence(SplashWindows &windows, SplashVideo &video)
    : m_windows(windows), m_video(video) {}

void SplashSequence::connectClock(const std::weak_ptr<void> &owner) {
    const auto whileAlive = [this, owner](void (SplashSequence::*operation)()) {
        return [this, owner, operation] {
            if (const auto alive = owner.lock())
                (this->*operation)();
        };
    };
    using Self = SplashSequence;
    m_clock.setHandlers({whileAlive(&Self::countdownTicked), whileAlive(&Self::startShowVideo),
                         whileAlive(&Self::showCloseButton)});
}

void SplashSequence::begin(qint64 loadTime) {
    m_show = true;
    m_closeButtonIsDue = false;
    m_windows.playing = m_windows.active ? m_windows.active : m_windows.all().front();
    m_clock.begin();
    startWaitVideoTimer(double(loadTime));
    m_clock.startTick();
    if (loadTime == 1)
        m_video.warmUpPlayer();
    updateTimerText();
    for (const Controller &controller : m_windows.copy()) {
        controller->setAdExpected(m_video.isAvailable());
        controller->startTimerViewFromSec(0, loadTime + SplashClock::VideoSeconds);
        controller->showStartScreen();
    }
    m_state = SplashScreenStateStart;
}

void SplashSequence::end() {
    noteVideoDuration();
    m_show = false;
    m_closeButtonIsDue = false;
    m_clock.stopTick();
    m_windows.playing = nullptr;
    for (const Controller &controller : m_windows.copy())
        controller->hide();
}

void SplashSequence::setClosed() {
    m_withoutSplash = false;
    m_state = SplashScreenStateClosed;
}

void SplashSequence::join(const Controller &controller) {
    // When a video ends before the close button is due, the start screens stay up until it is.
    const bool waitsForButton =
        m_state == SplashScreenStateEnd && (m_clock.isPhaseTimerPending() || m_closeButtonIsDue);
    if (m_state < SplashScreenStateVideoCloseButton || waitsForButton) {
        controller->setAdExpected(m_video.isAvailable());
        controller->showStartScreen();
        controller->startTimerViewFromSec(m_clock.passedTime(), m_standardDuration);
    } else {
        controller->setInterstitialUrl(m_video.interstitialUrl());
        controller->showEndScreen();
    }
    if (m_needsResume)
        controller->pauseShow();
}

// Phases.

void SplashSequence::startShowVideo() {
    stopWaitVideoTimer();
    m_showVideo = true;
    m_state = SplashScreenStateVideo;
    // The timer may fire when its sequence is over. Then no window is covered again.
    if (m_show)
        startVideo();
    else
        startVideoTimerWithTime(SplashClock::VideoSeconds);
    // Nor is the host told of a video in a sequence that the removal of ads has ended.
    if (m_show || !Switches::isADSRemoved())
        NotificationCenter::defaultCenter().post(VLMadsVideoDidStart);
}

void SplashSequence::startVideo() {
    m_video.choose();
    const Controller controller = m_windows.playing;
    const qint64 total = m_loadTime + SplashClock::VideoSeconds;
    const QUrl video = m_video.urlToPlay();
    if (!controller) {
        Refusal::report(Refusal::Request::PlayVideo, Refusal::Reason::NoWindow,
                        QStringLiteral("no video is played: its window was taken out"));
    } else if (video.isEmpty()) {
        Refusal::report(Refusal::Request::PlayVideo, Refusal::Reason::NoVideo,
                        QStringLiteral("there is no video to play"));
        for (const Controller &covering : m_windows.copy())
            covering->setAdExpected(false);
        controller->startTimerViewFromSec(m_loadTime, total);
    } else {
        controller->setVideoUrl(video);
        controller->setInterstitialUrl(m_video.interstitialUrl()); // in case that the video fails
        controller->showVideo();
        controller->startVideoTimerViewFromSec(m_loadTime, total);
    }
    startVideoTimerWithTime(SplashClock::VideoSeconds);
    updateTimerText();
    updateVideoTimerText();
}

void SplashSequence::showCloseButton() {
    m_state = SplashScreenStateVideoCloseButton;
    m_closeButtonIsDue = false;
    stopVideo();
}

void SplashSequence::stopVideo() {
    noteVideoDuration();
    stopVideoTimer();
    if (const Controller playing = m_windows.playing)
        playing->continueShowVideo();
    showEndScreens();
}

void SplashSequence::showEndScreens() {
    if (!m_show)
        return;
    for (const Controller &controller : m_windows.copy()) {
        controller->setInterstitialUrl(m_video.interstitialUrl());
        controller->showEndScreen();
    }
}

void SplashSequence::videoEnded() {
    if (!m_show)
        return;
    noteVideoDuration();
    m_showEnd = true;
    m_showVideo = false;
    m_state = SplashScreenStateEnd;
    // Otherwise the timer of the close button shows the end screens.
    if (!m_clock.isPhaseTimerPending())
        showEndScreens();
    NotificationCenter::defaultCenter().post(VLMadsVideoDidStop);
}

void SplashSequence::noteVideoDuration() {
    if (const Controller playing = m_windows.playing)
        m_video.setDuration(playing->videoSeconds());
}

// The timer of the phase.

void SplashSequence::startWaitVideoTimer(double seconds) {
    m_clock.startVideoAfter(seconds);
    for (const Controller &controller : m_windows.copy())
        controller->continueShow();
}

void SplashSequence::stopWaitVideoTimer() {
    m_clock.stopPhaseTimer();
    for (const Controller &controller : m_windows.copy())
        controller->pauseShow();
}

void SplashSequence::startVideoTimerWithTime(double seconds) {
    m_clock.startCloseButtonAfter(seconds);
    for (const Controller &controller : m_windows.copy())
        controller->continueShowVideo();
}

void SplashSequence::stopVideoTimer() {
    m_clock.stopPhaseTimer();
    for (const Controller &controller : m_windows.copy())
        controller->pauseShowVideo();
}

// The countdown.

void SplashSequence::countdownTicked() {
    // After a pause the ticking starts again by a timer, which may fire when the sequence is
    // already over.
    if (!m_show)
        m_clock.stopTick();
    // Not earlier where there is time: until the fades are over, the windows need the processor.
    else if (m_state == SplashScreenStateStart && m_clock.passedTime() == 1)
        m_video.warmUpPlayer();
    updateTimerText();
    updateVideoTimerText();
}

void SplashSequence::updateTimerText() {
    const qint64 left = m_clock.secondsLeftOf(m_loadTime + SplashClock::VideoSeconds);
    for (const Controller &controller : m_windows.copy())
        controller->setTimerText(QString::number(left));
}

void SplashSequence::updateVideoTimerText() {
    const qint64 left = m_clock.secondsLeftOf(secondsToCloseButton());
    for (const Controller &controller : m_windows.copy())
        controller->setVideoTimerText(QString::number(left));
}

qint64 SplashSequence::secondsToCloseButton() const {
    return (m_withoutSplash ? 0 : m_loadTime) + SplashClock::VideoSeconds;
}

// Pause and resume.

void SplashSequence::pause() {
    m_needsResume = true;
    m_clock.pause();
    if (m_show) {
        if (m_state == SplashScreenStateEnd && m_clock.isPhaseTimerPending())
            m_closeButtonIsDue = true;
        stopWaitVideoTimer(); // cancels the close button's timer, too
        m_clock.stopTick();
        m_clock.cancelResumeTick();
    }
    if (const Controller playing = m_windows.playing)
        playing->pauseShowVideo();
    m_windows.active = nullptr;
}

void SplashSequence::resume() {
    m_needsResume = false;
    if (!m_show || Switches::isADSRemoved())
        return;
    if (m_state < SplashScreenStateVideoCloseButton) {
        m_clock.resume();
        m_clock.resumeTick();
    }
    if (m_state == SplashScreenStateStart) {
        startWaitVideoTimer(m_clock.secondsTo(m_loadTime));
    } else if (m_state == SplashScreenStateVideo || std::exchange(m_closeButtonIsDue, false)) {
        startVideoTimerWithTime(m_clock.secondsTo(secondsToCloseButton()));
    } else if (m_state == SplashScreenStateVideoCloseButton) {
        for (const Controller &controller : m_windows.copy())
            controller->continueShowVideo();
    }
}

} // namespace velmora
