// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenPresenter.h"

#include "AdsDownloader.h"
#include "AdsEventLogger.h"
#include "MainQueue.h"
#include "SplashScreenStyle.h"
#include "Switches.h"

#include <Velmora/Notifications.h>
#include <Velmora/Support.h>

#include <utility>

namespace velmora {

namespace {

void announce(const QString &name) {
    NotificationCenter::defaultCenter().post(name);
}

constexpr double WindowlessSeconds = 10;

} // namespace

void SplashScreenPresenter::post(std::function<void(SplashScreenPresenter &)> work) {
    MainQueue::post([weak = weak_from_this(), work = std::move(work)] {
        if (const auto self = weak.lock())
            work(*self);
    });
}

SplashScreenPresenter::SplashScreenPresenter()
    : m_splashScreenStandartDuration(m_loadTime + SplashClock::VideoSeconds),
      m_downloader(AdsDownloader::sharedInstance()),
      m_logger(&AdsEventLogger::sharedInstance()),
      m_splashScreenOptions(SplashScreenStyle::standardOptions()) {}

SplashScreenPresenter::~SplashScreenPresenter() {
    Timer::cancel(m_windowlessTimer);
}

std::shared_ptr<SplashScreenPresenter> SplashScreenPresenter::make() {
    const std::shared_ptr<SplashScreenPresenter> presenter(new SplashScreenPresenter);
    presenter->connectParts();
    return presenter;
}

void SplashScreenPresenter::connectParts() {
    using Self = SplashScreenPresenter;
    m_clock.setHandlers({whileAlive(&Self::countdownTicked), whileAlive(&Self::startShowVideo),
                         whileAlive(&Self::showCloseButton)});
    m_windows.setHandlers({whileAlive(&Self::windowBecameActive),
                           whileAlive(&Self::windowBecameDisactive),
                           whileAlive(&Self::windowWillClose), whileAlive(&Self::windowDestroyed)});
}

void SplashScreenPresenter::setAllSplashScreenParamsFor(const Controller &controller) const {
    if (controller)
        SplashScreenStyle::restoreAll(*controller, m_splashScreenOptions);
}

// Requests.

void SplashScreenPresenter::showSplashScreens() {
    if (m_show || !m_waiting.isOver()) {
        LOG(m_show ? QStringLiteral("splash screen not shown: one is on screen")
                   : QStringLiteral("splash screen not shown: the waiting period is not over"));
        return;
    }
    // The active controller stays known when its window loses the key status between sequences.
    if (m_windows.active && m_windows.hasKey) {
        forceShowSplashScreens();
    } else {
        LOG(QStringLiteral("splash screen waits for a registered window to become key"));
        m_needShow = true;
    }
}

void SplashScreenPresenter::needForceShowSplashScreens() {
    m_waiting.cancel();
    if (m_withoutSplash)
        forceShowVideoWithoutSplash();
    else
        forceShowSplashScreens();
}

bool SplashScreenPresenter::maySequenceStart() const {
    QString reason;
    if (Switches::isADSRemoved())
        return false;
    if (m_show || m_isStarting)
        reason = QStringLiteral("one is on screen");
    else if (!m_windows.hasKey)
        reason = QStringLiteral("no registered window is key");
    else if (m_windows.isEmpty())
        reason = QStringLiteral("no window is registered");
    if (!reason.isEmpty())
        LOG(QStringLiteral("splash screen not shown: %1").arg(reason));
    return reason.isEmpty();
}

void SplashScreenPresenter::forceShowSplashScreens() {
    forgetGoneControllers();
    if (maySequenceStart())
        startSequence(m_loadTime);
}

void SplashScreenPresenter::forceShowVideoWithoutSplash() {
    forgetGoneControllers();
    if (maySequenceStart())
        startSequence(0);
}

void SplashScreenPresenter::startSequence(qint64 loadTime) {
    ++m_splashScreenStartCount;
    m_isStarting = true;
    announce(VLMsplashScreenWillShow);
    m_isStarting = false;
    // The host may have answered by taking its windows out or removing all ads.
    if (m_windows.isEmpty() || Switches::isADSRemoved())
        return;
    m_needShow = false;
    m_waiting.setNotOver();
    m_show = true;
    m_closeButtonIsDue = false;
    m_windows.playing = m_windows.active ? m_windows.active : m_windows.all().front();
    m_clock.begin();
    startWaitVideoTimer(double(loadTime));
    startTickTimer();
    warmUpVideo();
    updateTimerText();
    for (const Controller &controller : m_windows.copy()) {
        controller->startTimerViewFromSec(0, loadTime + SplashClock::VideoSeconds);
        controller->showStartScreen();
    }
    m_stateSplashScreen = SplashScreenStateStart;
    announce(VLMsplashScreenDidShow);
    if (m_splashScreenStartCount >= 2)
        announce(VLMsplashScreenShowMoreOne);
}

void SplashScreenPresenter::hideSplashScreens() {
    noteVideoDuration();
    m_show = false;
    m_needShow = false;
    m_closeButtonIsDue = false;
    stopTickTimer();
    Timer::cancel(m_windowlessTimer);
    m_windows.playing = nullptr;
    for (const Controller &controller : m_windows.copy())
        controller->hide();
    startWaitTimer();
}

void SplashScreenPresenter::didClickClose() {
    m_withoutSplash = false;
    m_stateSplashScreen = SplashScreenStateClosed;
    hideSplashScreens();
    announce(VLMsplashScreenDidClose);
}

// A sequence whose windows have all gone is over for its user, who could never close it.

void SplashScreenPresenter::watchForWindows() {
    const bool isWindowless = m_show && m_windows.isEmpty();
    if (!isWindowless) {
        Timer::cancel(m_windowlessTimer);
    } else if (!m_windowlessTimer) {
        m_windowlessTimer =
            Timer::scheduled(WindowlessSeconds, Timer::Kind::OneShot,
                             whileAlive(&SplashScreenPresenter::endWindowlessSequence));
        setGodTimer(m_windowlessTimer);
    }
}

void SplashScreenPresenter::endWindowlessSequence() {
    LOG(QStringLiteral("the splash screen ends: it has had no window for a while"));
    didClickClose();
}

// The waiting period.

void SplashScreenPresenter::startWaitTimer() {
    m_waiting.start();
}

void SplashScreenPresenter::endWaitTimer() {
    m_waiting.end();
}

void SplashScreenPresenter::refreshWaitAgain() {
    m_waiting.restart();
}

// The tick.

void SplashScreenPresenter::startTickTimer() {
    m_clock.startTick();
}

void SplashScreenPresenter::stopTickTimer() {
    m_clock.stopTick();
}

void SplashScreenPresenter::tick() {
    m_clock.tick();
}

void SplashScreenPresenter::resumeTimer() {
    m_clock.startTick();
    m_clock.tick();
}

void SplashScreenPresenter::countdownTicked() {
    // The tick that makes up for a pause may come when the sequence is over, or the windows were
    // taken out with the ads: nothing else would end the ticking.
    if (!m_show)
        stopTickTimer();
    updateTimerText();
    updateVideoTimerText();
}

void SplashScreenPresenter::updateTimerText() {
    const qint64 left = m_clock.secondsLeftOf(m_loadTime + SplashClock::VideoSeconds);
    for (const Controller &controller : m_windows.copy())
        controller->setTimerText(QString::number(left));
}

void SplashScreenPresenter::updateVideoTimerText() {
    const qint64 left = m_clock.secondsLeftOf(secondsToCloseButton());
    for (const Controller &controller : m_windows.copy())
        controller->setVideoTimerText(QString::number(left));
}

qint64 SplashScreenPresenter::secondsToCloseButton() const {
    return (m_withoutSplash ? 0 : m_loadTime) + SplashClock::VideoSeconds;
}

// The video timer: in the start phase it waits for the video, in the video phase for the close
// button.

void SplashScreenPresenter::startWaitVideoTimer(double seconds) {
    m_clock.startVideoAfter(seconds);
    for (const Controller &controller : m_windows.copy())
        controller->continueShow();
}

void SplashScreenPresenter::stopWaitVideoTimer() {
    m_clock.stopPhaseTimer();
    for (const Controller &controller : m_windows.copy())
        controller->pauseShow();
}

void SplashScreenPresenter::startVideoTimerWithTime(double seconds) {
    m_clock.startCloseButtonAfter(seconds);
    for (const Controller &controller : m_windows.copy())
        controller->continueShowVideo();
}

void SplashScreenPresenter::stopVideoTimer() {
    m_clock.stopPhaseTimer();
    for (const Controller &controller : m_windows.copy())
        controller->pauseShowVideo();
}

// Pause and resume.

void SplashScreenPresenter::pauseSplashScreens() {
    m_needsResumeSplashScreen = true;
    m_clock.pause();
    if (m_show) {
        m_closeButtonIsDue = m_closeButtonIsDue || (m_stateSplashScreen == SplashScreenStateEnd &&
                                                    m_clock.isPhaseTimerPending());
        stopWaitVideoTimer();
        stopTickTimer();
        m_clock.cancelResumeTick();
        for (const Controller &controller : m_windows.copy())
            controller->pauseShow();
    }
    if (const Controller playing = m_windows.playing)
        playing->pauseShowVideo();
    m_windows.active = nullptr;
}

void SplashScreenPresenter::resumeSplashScreen() {
    m_needsResumeSplashScreen = false;
    if (Switches::isADSRemoved())
        return;
    if (m_show) {
        if (m_stateSplashScreen < SplashScreenStateVideoCloseButton) {
            m_clock.resume();
            m_clock.resumeTick();
        }
        if (m_stateSplashScreen == SplashScreenStateStart) {
            startWaitVideoTimer(m_clock.secondsTo(m_loadTime));
        } else if (m_stateSplashScreen == SplashScreenStateVideo ||
                   std::exchange(m_closeButtonIsDue, false)) {
            startVideoTimerWithTime(m_clock.secondsTo(secondsToCloseButton()));
        } else if (m_stateSplashScreen == SplashScreenStateVideoCloseButton) {
            for (const Controller &controller : m_windows.copy())
                controller->continueShowVideo();
        }
    }
    if (m_needShow)
        forceShowSplashScreens();
}

} // namespace velmora
