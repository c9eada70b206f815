// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "PaletteWatch.h"
#include "SplashScreenController.h"
#include <Velmora/NotificationCenter.h>

#include <QtCore/QObject>

#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

namespace velmora {

/// The windows that are registered for splash screens: a controller for each, in the order of
/// registration, and which of them is key, was key last, or plays the video. Main thread only.
class SplashWindows {
public:
    using Controller = std::shared_ptr<SplashScreenController>;

    struct Handlers {
        /// A registered window became key.
        std::function<void(QWidget *)> becameKey;
        std::function<void()> resignedKey;
        std::function<void(QWidget *)> willClose;
        /// The host destroyed a window that is still registered.
        std::function<void(QObject *)> destroyed;
        std::function<void(QWidget *)> paletteChanged;
    };

    void setHandlers(Handlers handlers) { m_handlers = std::move(handlers); }

    const std::vector<Controller> &all() const { return m_controllers; }
    /// A copy to iterate over: a change to a window may run code of the host, which may add or
    /// remove windows.
    std::vector<Controller> copy() const { return m_controllers; }
    bool isEmpty() const { return m_controllers.empty(); }

    /// The controller of the window that a widget is or lies in, or null.
    Controller find(const QWidget *widget) const;

    void add(const Controller &controller) { m_controllers.push_back(controller); }
    void remove(const Controller &controller) { std::erase(m_controllers, controller); }
    void clear() { m_controllers.clear(); }

    /// Calls the handlers for a window until ignore() or the window's end. May be called again.
    void observe(QWidget *window);
    void ignore(QWidget *window);

    /// A registered window is key.
    bool hasKey = false;
    /// The controller of the registered window that became key last. Kept until the next pause,
    /// even when the window is unregistered before.
    Controller active;
    /// The controller that plays the video of the running sequence, or null.
    Controller playing;

private:
    Handlers m_handlers;
    std::vector<Controller> m_controllers;
    struct Observed {
        std::vector<NotificationCenter::Observation> notifications;
        std::unique_ptr<PaletteWatch> palette;
    };
    std::unordered_map<QObject *, Observed> m_observations;
    /// Receives QObject::destroyed of the windows; disconnects when this object goes.
    QObject m_guard;
};

} // namespace velmora
