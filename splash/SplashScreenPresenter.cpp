// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenPresenter.h"

#include "AdsEventLogger.h"
#include "MainQueue.h"
#include "Refusal.h"
#include "SoundChoice.h"
#include "Switches.h"
#include "Window.h"
#include "Workspace.h"

#include <Velmora/Notifications.h>
#include <Velmora/Support.h>

namespace velmora {

namespace {

using Reason = Refusal::Reason;

void refuseToShow(Reason reason, const QString &why) {
    Refusal::report(Refusal::Request::ShowSplashScreen, reason,
                    QStringLiteral("splash screen not shown: %1").arg(why));
}

void notify(const QString &name) {
    NotificationCenter::defaultCenter().post(name);
}

QWidget *windowOf(QWidget *widget) {
    return widget ? widget->window() : nullptr;
}

// How long a sequence goes on without any window.
constexpr double WindowlessSeconds = 10;

} // namespace

SplashScreenPresenter::SplashScreenPresenter() {
    // The first call loads the events that an earlier run could not deliver.
    AdsEventLogger::sharedInstance();
}

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
    m_sequence.connectClock(weak_from_this());
    m_windows.setHandlers({whileAlive(&Self::windowBecameActive),
                           whileAlive(&Self::windowBecameDisactive),
                           whileAlive(&Self::windowWillClose), whileAlive(&Self::windowDestroyed),
                           whileAlive(&Self::windowPaletteChanged)});
}

void SplashScreenPresenter::post(std::function<void(SplashScreenPresenter &)> work) {
    MainQueue::post([weak = weak_from_this(), work = std::move(work)] {
        if (const auto self = weak.lock())
            work(*self);
    });
}

void SplashScreenPresenter::setAllSplashScreenParamsFor(const Controller &controller) const {
    if (controller)
        m_options.applyAll(*controller);
}

void SplashScreenPresenter::setAppearance(Appearance appearance) {
    m_options.setAppearance(appearance);
    applyPresetToAll();
}

void SplashScreenPresenter::applyPresetToAll() {
    for (const Controller &controller : m_windows.all())
        m_options.applyPreset(*controller);
}

// Requests.

void SplashScreenPresenter::showSplashScreens() {
    if (isShow()) {
        refuseToShow(Reason::AlreadyShown, QStringLiteral("one is on screen"));
        return;
    }
    if (!m_waiting.isOver()) {
        refuseToShow(Reason::NotReady, QStringLiteral("the waiting period is not over"));
        return;
    }
    if (isSkipped())
        return;
    // The active controller stays known when its window loses the key status between sequences.
    if (m_windows.active && m_windows.hasKey) {
        startWhenUserIsIdle();
    } else {
        Refusal::report(
            Refusal::Request::ShowSplashScreen,
            m_windows.isEmpty() ? Reason::NoRegisteredWindow : Reason::NoKeyWindow,
            QStringLiteral("splash screen waits for a registered window to become key"));
        m_needShow = true;
    }
}

// Ads stay ready, so that the host's next request can succeed.
bool SplashScreenPresenter::isSkipped() {
    if (!m_isSkippedWhenEmpty || m_video.isAvailable())
        return false;
    m_needShow = false;
    m_video.retryDownload();
    refuseToShow(Reason::NoVideo, QStringLiteral("there is no video to play"));
    return true;
}

void SplashScreenPresenter::startWhenUserIsIdle() {
    const QString activity = m_userActivity.current();
    if (activity.isEmpty()) {
        forceShowSplashScreens();
        return;
    }
    m_needShow = false;
    if (m_userActivity.isWaiting())
        return;
    Refusal::report(Refusal::Request::ShowSplashScreen, Reason::UserIsBusy,
                    QStringLiteral("splash screen waits for the user: %1").arg(activity));
    m_userActivity.callWhenIdle(whileAlive(&SplashScreenPresenter::showSplashScreens));
}

void SplashScreenPresenter::needForceShowSplashScreens() {
    m_waiting.cancel();
    if (withoutSplash())
        forceShowVideoWithoutSplash();
    else
        forceShowSplashScreens();
}

void SplashScreenPresenter::forceShowSplashScreens() {
    startSequence(loadTime());
}

void SplashScreenPresenter::forceShowVideoWithoutSplash() {
    startSequence(0);
}

bool SplashScreenPresenter::maySequenceStart() const {
    if (Switches::isADSRemoved())
        Refusal::reportAdsRemoved(Refusal::Request::ShowSplashScreen);
    else if (isShow() || m_isStarting)
        refuseToShow(Reason::AlreadyShown, QStringLiteral("one is on screen"));
    else if (m_windows.isEmpty())
        refuseToShow(Reason::NoRegisteredWindow, QStringLiteral("no window is registered"));
    else if (!m_windows.hasKey)
        refuseToShow(Reason::NoKeyWindow, QStringLiteral("no registered window is key"));
    else
        return true;
    return false;
}

void SplashScreenPresenter::startSequence(qint64 loadTime) {
    forgetGoneControllers();
    if (!maySequenceStart())
        return;
    ++m_splashScreenStartCount;
    m_isStarting = true;
    notify(VLMsplashScreenWillShow);
    m_isStarting = false;
    // The host may have answered by taking its windows out or removing all ads.
    if (Switches::isADSRemoved()) {
        Refusal::reportAdsRemoved(Refusal::Request::ShowSplashScreen);
        return;
    }
    if (m_windows.isEmpty()) {
        refuseToShow(Reason::NoRegisteredWindow, QStringLiteral("no window is registered"));
        return;
    }
    m_needShow = false;
    m_userActivity.stopWaiting();
    m_waiting.setNotOver();
    if (const auto chosen = SoundChoice::isMuted())
        setMuted(*chosen);
    applyPresetToAll();
    m_sequence.begin(loadTime);
    notify(VLMsplashScreenDidShow);
    if (m_splashScreenStartCount >= 2)
        notify(VLMsplashScreenShowMoreOne);
}

void SplashScreenPresenter::hideSplashScreens() {
    m_needShow = false;
    m_sequence.end();
    watchForWindows();
    startWaitTimer();
}

void SplashScreenPresenter::resumeSplashScreen() {
    m_sequence.resume();
    if (m_needShow && !isSkipped())
        startWhenUserIsIdle();
}

// Windows.

SplashScreenPresenter::Controller
SplashScreenPresenter::splashScreenControllerWithWindow(const QWidget *widget) const {
    return m_windows.find(widget);
}

bool SplashScreenPresenter::addSplashScreenForWindow(QWidget *widget, bool unity) {
    forgetGoneControllers();
    QWidget *window = windowOf(widget);
    if (!window) {
        Refusal::report(Refusal::Request::AddSplashScreen, Reason::NoWindow,
                        QStringLiteral("splash screen not added: no window was given"));
        return false;
    }
    if (m_windows.find(window)) {
        Refusal::report(Refusal::Request::AddSplashScreen, Reason::AlreadyAdded,
                        QStringLiteral("splash screen not added: the window has one"));
        return false;
    }
    if (m_windows.isEmpty())
        m_waiting.startFirst();
    const Controller controller = SplashScreenController::initSplashScreenWithWindow(window, unity);
    controller->setOutput(weak_from_this());
    setAllSplashScreenParamsFor(controller);
    controller->setMuted(m_muted);
    m_windows.add(controller);
    registrationNotificationForWindow(window);
    if (isShow())
        m_sequence.join(controller);
    windowsChanged();
    updateTimerText();
    if (Window::of(window)->isKeyWindow())
        NotificationCenter::defaultCenter().post(NSWindowDidBecomeKeyNotification,
                                                 QVariant::fromValue<QObject *>(window));
    return true;
}

void SplashScreenPresenter::registrationNotificationForWindow(QWidget *window) {
    m_windows.observe(window);
}

void SplashScreenPresenter::deregistrationNotificationForWindow(QWidget *window) {
    m_windows.ignore(window);
}

void SplashScreenPresenter::removeSplashScreenWithWindow(QWidget *widget) {
    QWidget *window = windowOf(widget);
    const Controller controller = m_windows.find(window);
    if (controller)
        detach(controller);
    deregistrationNotificationForWindow(window);
}

void SplashScreenPresenter::detach(const Controller &controller) {
    if (controller == m_windows.playing)
        m_windows.playing = nullptr;
    controller->hide();
    controller->removeFromWindow();
    m_windows.remove(controller);
    windowsChanged();
}

void SplashScreenPresenter::removeAllSplashScreens() {
    for (const Controller &controller : m_windows.copy()) {
        controller->hide();
        controller->removeFromWindow();
    }
    m_sequence.setNotShown();
    m_windows.clear();
    windowsChanged();
}

// A host may destroy a splash screen's view and keep the window.
void SplashScreenPresenter::forgetGoneControllers() {
    for (const Controller &controller : m_windows.copy()) {
        if (!controller->isGone())
            continue;
        if (controller == m_windows.active)
            m_windows.active = nullptr;
        detach(controller);
    }
}

void SplashScreenPresenter::windowDestroyed(QObject *window) {
    for (const Controller &controller : m_windows.copy()) {
        const QObject *own = controller->window();
        if (own && own != window)
            continue;
        // The window is half destroyed: the controller must not call it any more.
        controller->setWindow(nullptr);
        if (m_windows.hasKey && controller == m_windows.active)
            windowBecameDisactive();
        detach(controller);
    }
}

void SplashScreenPresenter::windowsChanged() {
    m_userActivity.setObserving(!m_windows.isEmpty());
    watchForWindows();
}

// The user of a sequence that has no window left could never close it.
void SplashScreenPresenter::watchForWindows() {
    const bool isWindowless = isShow() && m_windows.isEmpty();
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
    endAsIfClosed();
}

// Also before the close button is due, when the user could not have closed it.
void SplashScreenPresenter::endAsIfClosed() {
    m_sequence.clock().stopPhaseTimer();
    didClickClose();
}

void SplashScreenPresenter::windowBecameActive(QWidget *window) {
    const Window *companion = Window::of(window);
    if (companion && companion->isKeyWindow()) {
        m_windows.hasKey = true;
        m_windows.active = m_windows.find(window);
    }
    post([](SplashScreenPresenter &self) {
        if (self.needsResumeSplashScreen())
            self.resumeSplashScreen();
        if (self.m_needShow)
            self.showSplashScreens();
    });
}

void SplashScreenPresenter::windowBecameDisactive() {
    m_windows.hasKey = false;
    if (Switches::isADSRemoved() || !isShow())
        return;
    // Posted: the key status may just be moving to another registered window.
    post([](SplashScreenPresenter &self) {
        if (!self.m_windows.hasKey)
            self.pauseSplashScreens();
    });
}

// Between two sequences nobody sees the colours, and the next sequence begins with the right ones.
void SplashScreenPresenter::windowPaletteChanged(QWidget *window) {
    const Controller controller = m_windows.find(window);
    if (isShow() && controller)
        m_options.applyPreset(*controller);
}

void SplashScreenPresenter::windowWillClose(QWidget *window) {
    if (!Switches::isARCActivate())
        return;
    post([closing = QPointer<QWidget>(window)](SplashScreenPresenter &self) {
        if (closing)
            self.removeSplashScreenWithWindow(closing);
    });
}

// The user's actions.

void SplashScreenPresenter::didClickOnVideo() {
    if (!m_video.hasLink())
        return;
    Workspace::openURL(m_video.linkToOpen());
    NotificationCenter::defaultCenter().post(VLMclickForVideo, m_video.advertisedName());
}

void SplashScreenPresenter::didClickRemoveAds() {
    notify(VLMtryRemoveAds);
}

void SplashScreenPresenter::didClickClose() {
    m_sequence.setClosed();
    hideSplashScreens();
    notify(VLMsplashScreenDidClose);
}

void SplashScreenPresenter::didNotAppear() {
    endAsIfClosed();
}

void SplashScreenPresenter::didChangeMuted(bool muted) {
    SoundChoice::storeMuted(muted);
    setMuted(muted);
}

void SplashScreenPresenter::setMutedByHost(bool muted) {
    setMuted(SoundChoice::isMuted().value_or(muted));
    for (const Controller &controller : m_windows.copy())
        controller->updateSoundButton();
}

void SplashScreenPresenter::setMuted(bool muted) {
    m_muted = muted;
    for (const Controller &controller : m_windows.copy())
        controller->setMuted(muted);
}

qint64 SplashScreenPresenter::videoDuration() {
    m_sequence.noteVideoDuration();
    return m_video.duration();
}

} // namespace velmora
