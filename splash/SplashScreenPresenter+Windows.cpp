// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenPresenter.h"

#include "MainQueue.h"
#include "Switches.h"
#include "Window.h"

#include <Velmora/Support.h>

namespace velmora {

namespace {

QWidget *windowOf(QWidget *widget) {
    return widget ? widget->window() : nullptr;
}

} // namespace

SplashScreenPresenter::Controller
SplashScreenPresenter::splashScreenControllerWithWindow(const QWidget *widget) const {
    return m_windows.find(widget);
}

bool SplashScreenPresenter::addSplashScreenForWindow(QWidget *widget, bool unity) {
    forgetGoneControllers();
    QWidget *window = windowOf(widget);
    if (!window || m_windows.find(window)) {
        LOG(window ? QStringLiteral("splash screen not added: the window has one")
                   : QStringLiteral("splash screen not added: no window was given"));
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
    if (m_show)
        joinSequence(controller);
    watchForWindows();
    updateTimerText();
    if (Window::of(window)->isKeyWindow())
        NotificationCenter::defaultCenter().post(NSWindowDidBecomeKeyNotification,
                                                 QVariant::fromValue<QObject *>(window));
    return true;
}

void SplashScreenPresenter::joinSequence(const Controller &controller) {
    // A video that ended before the close button was due leaves the start screens up till then.
    const bool isButtonDue = m_stateSplashScreen == SplashScreenStateEnd &&
                             (m_clock.isPhaseTimerPending() || m_closeButtonIsDue);
    if (m_stateSplashScreen < SplashScreenStateVideoCloseButton || isButtonDue) {
        controller->showStartScreen();
        controller->startTimerViewFromSec(m_clock.passedTime(), m_splashScreenStandartDuration);
    } else {
        controller->setInterstitialUrl(m_interstitialVideoUrl);
        controller->showEndScreen();
    }
    if (m_needsResumeSplashScreen)
        controller->pauseShow();
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
    watchForWindows();
}

void SplashScreenPresenter::removeAllSplashScreens() {
    for (const Controller &controller : m_windows.copy()) {
        controller->hide();
        controller->removeFromWindow();
    }
    m_show = false;
    m_windows.clear();
    watchForWindows();
}

// The host destroyed a splash screen's view, and kept the window.
void SplashScreenPresenter::forgetGoneControllers() {
    for (const Controller &controller : m_windows.copy()) {
        if (!controller->isGone())
            continue;
        if (controller == m_windows.active)
            m_windows.active = nullptr;
        detach(controller);
    }
}

// The host destroyed a window without a word.
void SplashScreenPresenter::windowDestroyed(QObject *window) {
    for (const Controller &controller : m_windows.copy()) {
        const QObject *own = controller->window();
        if (own && own != window)
            continue;
        // Not to be asked for anything any more.
        controller->setWindow(nullptr);
        if (m_windows.hasKey && controller == m_windows.active)
            windowBecameDisactive();
        detach(controller);
    }
}

void SplashScreenPresenter::windowBecameActive(QWidget *window) {
    const Window *facts = Window::of(window);
    if (facts && facts->isKeyWindow()) {
        m_windows.hasKey = true;
        m_windows.active = m_windows.find(window);
    }
    post([](SplashScreenPresenter &self) {
        if (self.m_needsResumeSplashScreen)
            self.resumeSplashScreen();
        if (self.m_needShow)
            self.showSplashScreens();
    });
}

void SplashScreenPresenter::windowBecameDisactive() {
    m_windows.hasKey = false;
    if (Switches::isADSRemoved() || !m_show)
        return;
    // Asked again later: the key status may just be moving to another registered window.
    post([](SplashScreenPresenter &self) {
        if (!self.m_windows.hasKey)
            self.pauseSplashScreens();
    });
}

void SplashScreenPresenter::windowWillClose(QWidget *window) {
    if (!Switches::isARCActivate())
        return;
    post([closing = QPointer<QWidget>(window)](SplashScreenPresenter &self) {
        if (closing)
            self.removeSplashScreenWithWindow(closing);
    });
}

} // namespace velmora
