// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashScreenController.h"
#include <Velmora/NotificationCenter.h>

#include <QtCore/QObject>

#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

namespace velmora {

/// The windows that are registered for splash screens, a controller each in the order of their
/// registration: which of them is key, which was key last, and which plays the video. Main thread
/// only.
class SplashWindows {
public:
    using Controller = std::shared_ptr<SplashScreenController>;

    struct Handlers {
        /// A registered window became key.
        std::function<void(QWidget *)> becameKey;
        std::function<void()> resignedKey;
        std::function<void(QWidget *)> willClose;
        /// The host destroyed a window without taking it out.
        std::function<void(QObject *)> destroyed;
    };

    void setHandlers(Handlers handlers) { m_handlers = std::move(handlers); }

    const std::vector<Controller> &all() const { return m_controllers; }
    /// A copy to walk over: what a step does to the windows may make the host add or remove some.
    std::vector<Controller> copy() const { return m_controllers; }
    bool isEmpty() const { return m_controllers.empty(); }

    /// The controller of the window that a widget is or lies in, or null.
    Controller find(const QWidget *widget) const;

    void add(const Controller &controller) { m_controllers.push_back(controller); }
    void remove(const Controller &controller) { std::erase(m_controllers, controller); }
    void clear() { m_controllers.clear(); }

    /// Reports what happens to a window, once; until ignore() or its end.
    void observe(QWidget *window);
    void ignore(QWidget *window);

    /// A registered window is key.
    bool hasKey = false;
    /// The controller of the registered window that became key last; stays, also after its window
    /// was taken out, until the next pause.
    Controller active;
    /// The one that plays the video of the running sequence.
    Controller playing;

private:
    Handlers m_handlers;
    std::vector<Controller> m_controllers;
    std::unordered_map<QObject *, std::vector<NotificationCenter::Observation>> m_observations;
    /// Ends the connections to the windows' destruction.
    QObject m_guard;
};

} // namespace velmora
