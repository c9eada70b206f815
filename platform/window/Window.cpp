// SPDX-License-Identifier: Apache-2.0
#include "Window.h"

#include "MainQueue.h"
#include "ProcessRoot.h"
#include "ResizeLock.h"
#include "WindowProxy.h"

#include <Velmora/NotificationCenter.h>

#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtCore/QVariant>
#include <QtWidgets/QMainWindow>

#include <utility>

namespace velmora {

const QString NSWindowDidBecomeKeyNotification = QStringLiteral("NSWindowDidBecomeKeyNotification");
const QString NSWindowDidResignKeyNotification = QStringLiteral("NSWindowDidResignKeyNotification");
const QString NSWindowWillCloseNotification = QStringLiteral("NSWindowWillCloseNotification");

namespace {

struct KeyWindow {
    QPointer<Window> window;
};

// The key window among those with a companion.
Window *keyWindow() {
    const auto *key = ProcessRoot::existing<KeyWindow>();
    return key ? key->window.data() : nullptr;
}

void setKeyWindow(Window *window) {
    ProcessRoot::get<KeyWindow>().window = window;
}

} // namespace

Window *Window::of(QWidget *widget) {
    if (!widget)
        return nullptr;
    QWidget *window = widget->window();
    if (auto *known = window->findChild<Window *>(QString(), Qt::FindDirectChildrenOnly))
        return known;
    return new Window(window);
}

Window::Window(QWidget *window) : QObject(window), m_window(window), m_wasVisible(isVisible()) {
    window->installEventFilter(this);
    if (WindowProxy::isActive(window) && isVisible())
        setKeyWindow(this);
}

Window::~Window() = default;

bool Window::isVisible() const {
    return m_window->isVisible() && !m_window->isMinimized();
}

bool Window::isKeyWindow() const {
    return keyWindow() == this && isVisible();
}

QWidget *Window::contentView() const {
    const auto *mainWindow = qobject_cast<const QMainWindow *>(m_window);
    QWidget *central = mainWindow ? mainWindow->centralWidget() : nullptr;
    return central ? central : m_window;
}

quint64 Window::styleMask() const {
    const QWindow *host = WindowProxy::hostOf(m_window);
    const bool isFixed = host ? host->minimumSize() == host->maximumSize()
                              : m_window->minimumSize() == m_window->maximumSize();
    const Qt::WindowFlags flags = host ? host->flags() : m_window->windowFlags();
    return m_resizeLock || isFixed || flags.testFlag(Qt::MSWindowsFixedSizeDialogHint) ? 0
                                                                                       : Resizable;
}

void Window::setStyleMask(quint64 mask) {
    // The limits of another toolkit's window are not Qt's to set.
    const QWindow *host = WindowProxy::hostOf(m_window);
    const bool isForeign = host && host->type() == Qt::ForeignWindow;
    if (mask & Resizable)
        m_resizeLock.reset();
    else if (!m_resizeLock && !isForeign)
        m_resizeLock = std::make_unique<ResizeLock>(m_window);
}

bool Window::eventFilter(QObject *watched, QEvent *event) {
    if (watched != m_window)
        return false;
    if (!m_window->isWindow()) {
        m_wasVisible = false;
        lostActivation();
        return false;
    }
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::WindowStateChange:
        noteVisibility(isVisible());
        break;
    case QEvent::WindowActivate:
        becameActive();
        break;
    case QEvent::WindowDeactivate:
        lostActivation();
        break;
    case QEvent::Close:
        // The host may still ignore the event. The window is closed if a Hide event follows at
        // once.
        m_closing = true;
        MainQueue::post(this, [this] { m_closing = false; });
        break;
    case QEvent::Hide:
        if (event->spontaneous())
            break;
        noteVisibility(false);
        if (std::exchange(m_closing, false))
            post(NSWindowWillCloseNotification);
        lostActivation();
        break;
    default:
        break;
    }
    return false;
}

void Window::noteVisibility(bool visible) {
    if (std::exchange(m_wasVisible, visible) != visible && visible)
        Q_EMIT becameVisible();
}

void Window::becameActive() {
    if (keyWindow() == this || !isVisible())
        return;
    const QPointer<Window> self(this);
    if (Window *previous = keyWindow())
        previous->lostActivation();
    // An observer of the notification may have destroyed this window.
    if (!self)
        return;
    setKeyWindow(this);
    post(NSWindowDidBecomeKeyNotification);
}

void Window::lostActivation() {
    if (keyWindow() != this)
        return;
    setKeyWindow(nullptr);
    post(NSWindowDidResignKeyNotification);
}

void Window::post(const QString &name) {
    NotificationCenter::defaultCenter().post(name, QVariant::fromValue<QObject *>(m_window));
}

} // namespace velmora
