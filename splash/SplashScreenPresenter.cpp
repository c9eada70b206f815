#include "splash/SplashScreenPresenter.h"

#include "content/AdsDownloader.h"
#include "content/AdsEventLogger.h"
#include "facade/Switches.h"
#include "platform/MainQueue.h"

#include <Velmora/Notifications.h>
#include <Velmora/Support.h>

#include <algorithm>
#include <utility>

namespace velmora {

namespace {

void announce(const QString &name) {
    NotificationCenter::defaultCenter().post(name);
}

void cancel(const TimerPtr &timer) {
    if (timer)
        timer->invalidate();
}

// Cancels a timer and lets go of it.
void drop(TimerPtr &timer) {
    cancel(std::exchange(timer, nullptr));
}

} // namespace

TimerPtr SplashScreenPresenter::scheduled(double seconds, Timer::Kind kind, Operation operation) {
    const TimerPtr timer = Timer::scheduled(seconds, kind, [weak = weak_from_this(), operation] {
        if (const auto self = weak.lock())
            (self.get()->*operation)();
    });
    setGodTimer(timer);
    return timer;
}

void SplashScreenPresenter::post(std::function<void(SplashScreenPresenter &)> work) {
    MainQueue::post([weak = weak_from_this(), work = std::move(work)] {
        if (const auto self = weak.lock())
            work(*self);
    });
}

// Requests.

void SplashScreenPresenter::showSplashScreens() {
    if (m_show || !m_waitTimeLeft) {
        LOG(m_show ? QStringLiteral("splash screen not shown: one is on screen")
                   : QStringLiteral("splash screen not shown: the waiting period is not over"));
        return;
    }
    if (m_activeController) {
        forceShowSplashScreens();
    } else {
        LOG(QStringLiteral("splash screen waits for a registered window to become key"));
        m_needShow = true;
    }
}

void SplashScreenPresenter::needForceShowSplashScreens() {
    cancel(m_firstStartTimer);
    cancel(m_prepareTimer);
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
    else if (!m_focus)
        reason = QStringLiteral("no registered window is key");
    else if (m_SSControllers.empty())
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
    if (m_SSControllers.empty() || Switches::isADSRemoved())
        return;
    m_needShow = false;
    m_waitTimeLeft = false;
    m_show = true;
    m_closeButtonIsDue = false;
    m_controllerWithVideo = m_activeController;
    if (!m_controllerWithVideo)
        m_controllerWithVideo = m_SSControllers.front();
    m_startTimerDate = TimeSource::current().now();
    m_timeDuration = TimeSource::Duration::zero();
    m_passedTime = 0;
    startWaitVideoTimer(double(loadTime));
    startTickTimer();
    warmUpVideo();
    updateTimerText();
    for (const Controller &controller : everyController()) {
        controller->startTimerViewFromSec(0, loadTime + VideoSeconds);
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
    m_controllerWithVideo = nullptr;
    for (const Controller &controller : everyController())
        controller->hide();
    startWaitTimer();
}

void SplashScreenPresenter::didClickClose() {
    m_withoutSplash = false;
    m_stateSplashScreen = SplashScreenStateClosed;
    hideSplashScreens();
    announce(VLMsplashScreenDidClose);
}

// The waiting period.

void SplashScreenPresenter::startWaitTimer() {
    m_prepareTimer =
        scheduled(double(m_waitTime), Timer::Kind::OneShot, &SplashScreenPresenter::endWaitTimer);
}

void SplashScreenPresenter::endWaitTimer() {
    drop(m_prepareTimer);
    m_waitTimeLeft = true;
}

void SplashScreenPresenter::refreshWaitAgain() {
    drop(m_prepareTimer);
    m_waitTimeLeft = false;
    startWaitTimer();
}

// The tick.

void SplashScreenPresenter::startTickTimer() {
    m_tickTimer = scheduled(1, Timer::Kind::Repeating, &SplashScreenPresenter::tick);
}

void SplashScreenPresenter::stopTickTimer() {
    drop(m_tickTimer);
}

void SplashScreenPresenter::tick() {
    // Nobody will see a sequence any more, and nothing else would end the ticking.
    if (!m_show && m_SSControllers.empty() && Switches::isADSRemoved())
        stopTickTimer();
    ++m_passedTime;
    updateTimerText();
    updateVideoTimerText();
}

void SplashScreenPresenter::resumeTimer() {
    tick();
    startTickTimer();
}

void SplashScreenPresenter::updateTimerText() {
    const qint64 left = std::max<qint64>(m_loadTime + VideoSeconds - m_passedTime, 0);
    for (const Controller &controller : everyController())
        controller->setTimerText(QString::number(left));
}

void SplashScreenPresenter::updateVideoTimerText() {
    const qint64 left = std::max<qint64>(secondsToCloseButton() - m_passedTime, 0);
    for (const Controller &controller : everyController())
        controller->setVideoTimerText(QString::number(left));
}

qint64 SplashScreenPresenter::secondsToCloseButton() const {
    return (m_withoutSplash ? 0 : m_loadTime) + VideoSeconds;
}

// The video timer: in the start phase it waits for the video, in the video phase for the close
// button.

void SplashScreenPresenter::startWaitVideoTimer(double seconds) {
    m_videoTimer = scheduled(seconds, Timer::Kind::OneShot, &SplashScreenPresenter::startShowVideo);
    for (const Controller &controller : everyController())
        controller->continueShow();
}

void SplashScreenPresenter::stopWaitVideoTimer() {
    drop(m_videoTimer);
    for (const Controller &controller : everyController())
        controller->pauseShow();
}

void SplashScreenPresenter::startVideoTimerWithTime(double seconds) {
    m_videoTimer =
        scheduled(seconds, Timer::Kind::OneShot, &SplashScreenPresenter::showCloseButton);
    for (const Controller &controller : everyController())
        controller->continueShowVideo();
}

void SplashScreenPresenter::stopVideoTimer() {
    drop(m_videoTimer);
    for (const Controller &controller : everyController())
        controller->pauseShowVideo();
}

// Pause and resume.

double SplashScreenPresenter::timeDuration() const {
    return std::chrono::duration<double>(m_timeDuration).count();
}

double SplashScreenPresenter::secondsLeftTo(qint64 second) const {
    return std::chrono::duration<double>(std::chrono::seconds(second) - m_timeDuration).count();
}

void SplashScreenPresenter::pauseSplashScreens() {
    m_needsResumeSplashScreen = true;
    m_timeDuration += TimeSource::current().now() - m_startTimerDate;
    if (m_show) {
        m_closeButtonIsDue =
            m_closeButtonIsDue || (m_stateSplashScreen == SplashScreenStateEnd && m_videoTimer);
        stopWaitVideoTimer();
        stopTickTimer();
        cancel(m_resumeTickTimer);
        for (const Controller &controller : everyController())
            controller->pauseShow();
    }
    if (const Controller playing = m_controllerWithVideo)
        playing->pauseShowVideo();
    m_activeController = nullptr;
}

void SplashScreenPresenter::resumeSplashScreen() {
    m_needsResumeSplashScreen = false;
    if (Switches::isADSRemoved())
        return;
    if (m_show) {
        if (m_stateSplashScreen < SplashScreenStateVideoCloseButton) {
            m_startTimerDate = TimeSource::current().now();
            cancel(m_resumeTickTimer);
            const auto nextSecond = std::chrono::ceil<std::chrono::seconds>(m_timeDuration);
            m_resumeTickTimer = scheduled(secondsLeftTo(nextSecond.count()), Timer::Kind::OneShot,
                                          &SplashScreenPresenter::resumeTimer);
        }
        if (m_stateSplashScreen == SplashScreenStateStart) {
            startWaitVideoTimer(secondsLeftTo(m_loadTime));
        } else if (m_stateSplashScreen == SplashScreenStateVideo ||
                   std::exchange(m_closeButtonIsDue, false)) {
            startVideoTimerWithTime(secondsLeftTo(secondsToCloseButton()));
        } else if (m_stateSplashScreen == SplashScreenStateVideoCloseButton) {
            for (const Controller &controller : everyController())
                controller->continueShowVideo();
        }
    }
    if (m_needShow)
        forceShowSplashScreens();
}

} // namespace velmora
