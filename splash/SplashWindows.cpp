// SPDX-License-Identifier: Apache-2.0
#include "SplashWindows.h"

#include "Window.h"

#include <algorithm>

namespace velmora {

SplashWindows::Controller SplashWindows::find(const QWidget *widget) const {
    const QWidget *window = widget ? widget->window() : nullptr;
    const auto found =
        std::find_if(m_controllers.begin(), m_controllers.end(),
                     [window](const Controller &known) { return known->window() == window; });
    return window && found != m_controllers.end() ? *found : nullptr;
}

void SplashWindows::observe(QWidget *window) {
    Window::of(window);
    auto &center = NotificationCenter::defaultCenter();
    const auto object = QVariant::fromValue<QObject *>(window);
    const QPointer<QWidget> target(window);
    Observed &observed = m_observations[window];
    auto &observations = observed.notifications;
    observations.clear();
    // Copies of the handlers: a handler may destroy this object, with the handlers in it.
    observations.push_back(center.addObserver(
        NSWindowDidBecomeKeyNotification, object,
        [target, handler = m_handlers.becameKey](const Notification &) { handler(target); }));
    observations.push_back(center.addObserver(
        NSWindowDidResignKeyNotification, object,
        [handler = m_handlers.resignedKey](const Notification &) { handler(); }));
    observations.push_back(center.addObserver(
        NSWindowWillCloseNotification, object,
        [target, handler = m_handlers.willClose](const Notification &) { handler(target); }));
    observed.palette = std::make_unique<PaletteWatch>(
        window, [target, handler = m_handlers.paletteChanged] { handler(target); });
    QObject::disconnect(window, nullptr, &m_guard, nullptr);
    QObject::connect(window, &QObject::destroyed, &m_guard, [this](QObject *gone) {
        m_observations.erase(gone);
        m_handlers.destroyed(gone);
    });
}

void SplashWindows::ignore(QWidget *window) {
    m_observations.erase(window);
    if (window)
        QObject::disconnect(window, nullptr, &m_guard, nullptr);
}

} // namespace velmora
