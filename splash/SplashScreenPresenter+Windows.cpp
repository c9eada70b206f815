#include "splash/SplashScreenPresenter.h"

#include "facade/Switches.h"
#include "platform/MainQueue.h"
#include "platform/Window.h"

#include <Velmora/Support.h>

#include <algorithm>

namespace velmora {

namespace {

QWidget *windowOf(const Notification &notification) {
    return qobject_cast<QWidget *>(notification.object.value<QObject *>());
}

} // namespace

SplashScreenPresenter::Controller
SplashScreenPresenter::splashScreenControllerWithWindow(const QWidget *window) const {
    const auto found =
        std::find_if(m_SSControllers.begin(), m_SSControllers.end(),
                     [window](const Controller &known) { return known->window() == window; });
    return window && found != m_SSControllers.end() ? *found : nullptr;
}

bool SplashScreenPresenter::addSplashScreenForWindow(QWidget *window, bool unity) {
    forgetGoneControllers();
    if (!window || splashScreenControllerWithWindow(window)) {
        LOG(window ? QStringLiteral("splash screen not added: the window has one")
                   : QStringLiteral("splash screen not added: no window was given"));
        return false;
    }
    if (m_SSControllers.empty())
        m_firstStartTimer = scheduled(double(m_delayForFirstStart), Timer::Kind::OneShot,
                                      &SplashScreenPresenter::endWaitTimer);
    const Controller controller = SplashScreenController::initSplashScreenWithWindow(window, unity);
    controller->setOutput(weak_from_this());
    setAllSplashScreenParamsFor(controller);
    m_SSControllers.push_back(controller);
    registrationNotificationForWindow(window);
    if (m_show) {
        if (m_stateSplashScreen == SplashScreenStateStart ||
            m_stateSplashScreen == SplashScreenStateVideo) {
            controller->showStartScreen();
            controller->startTimerViewFromSec(m_passedTime, m_splashScreenStandartDuration);
        } else if (m_stateSplashScreen == SplashScreenStateVideoCloseButton) {
            controller->setInterstitialUrl(m_interstitialVideoUrl);
            controller->showEndScreen();
        }
    }
    updateTimerText();
    if (Window::of(window)->isKeyWindow())
        NotificationCenter::defaultCenter().post(NSWindowDidBecomeKeyNotification,
                                                 QVariant::fromValue<QObject *>(window));
    return true;
}

void SplashScreenPresenter::registrationNotificationForWindow(QWidget *window) {
    Window::of(window);
    auto &center = NotificationCenter::defaultCenter();
    const auto object = QVariant::fromValue<QObject *>(window);
    const auto weak = weak_from_this();
    const auto observe = [&](const QString &name, auto handler) {
        return center.addObserver(name, object, [weak, handler](const Notification &told) {
            if (const auto self = weak.lock())
                handler(*self, windowOf(told));
        });
    };
    auto &observations = m_windowObservations[window];
    observations.clear();
    observations.push_back(
        observe(NSWindowDidBecomeKeyNotification,
                [](SplashScreenPresenter &self, QWidget *key) { self.windowBecameActive(key); }));
    observations.push_back(
        observe(NSWindowDidResignKeyNotification,
                [](SplashScreenPresenter &self, QWidget *) { self.windowBecameDisactive(); }));
    observations.push_back(
        observe(NSWindowWillCloseNotification, [](SplashScreenPresenter &self, QWidget *closing) {
            self.windowWillClose(closing);
        }));
    QObject::disconnect(window, nullptr, &m_windowGuard, nullptr);
    QObject::connect(window, &QObject::destroyed, &m_windowGuard,
                     [this](QObject *gone) { windowDestroyed(gone); });
}

void SplashScreenPresenter::deregistrationNotificationForWindow(QWidget *window) {
    m_windowObservations.erase(window);
    if (window)
        QObject::disconnect(window, nullptr, &m_windowGuard, nullptr);
}

void SplashScreenPresenter::removeSplashScreenWithWindow(QWidget *window) {
    const Controller controller = splashScreenControllerWithWindow(window);
    if (controller)
        detach(controller);
    deregistrationNotificationForWindow(window);
}

void SplashScreenPresenter::detach(const Controller &controller) {
    if (controller == m_controllerWithVideo)
        m_controllerWithVideo = nullptr;
    controller->hide();
    controller->removeFromWindow();
    std::erase(m_SSControllers, controller);
}

void SplashScreenPresenter::removeAllSplashScreens() {
    for (const Controller &controller : everyController()) {
        controller->hide();
        controller->removeFromWindow();
    }
    m_show = false;
    m_SSControllers.clear();
}

// The host destroyed the content that a view lay in, and kept the window.
void SplashScreenPresenter::forgetGoneControllers() {
    for (const Controller &controller : everyController()) {
        if (!controller->isGone())
            continue;
        if (controller == m_activeController)
            m_activeController = nullptr;
        detach(controller);
    }
}

// The host destroyed a window without a word.
void SplashScreenPresenter::windowDestroyed(QObject *window) {
    m_windowObservations.erase(window);
    for (const Controller &controller : everyController()) {
        const QObject *own = controller->window();
        if (own && own != window)
            continue;
        // Not to be asked for anything any more.
        controller->setWindow(nullptr);
        if (m_focus && controller == m_activeController)
            windowBecameDisactive();
        detach(controller);
    }
}

void SplashScreenPresenter::windowBecameActive(QWidget *window) {
    const Window *facts = Window::of(window);
    if (facts && facts->isKeyWindow()) {
        m_focus = true;
        m_activeController = splashScreenControllerWithWindow(window);
    }
    post([](SplashScreenPresenter &self) {
        if (self.m_needsResumeSplashScreen)
            self.resumeSplashScreen();
        if (self.m_needShow)
            self.showSplashScreens();
    });
}

void SplashScreenPresenter::windowBecameDisactive() {
    m_focus = false;
    if (Switches::isADSRemoved() || !m_show)
        return;
    // Asked again later: the key status may just be moving to another registered window.
    post([](SplashScreenPresenter &self) {
        if (!self.m_focus)
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
