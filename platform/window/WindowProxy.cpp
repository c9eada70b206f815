// SPDX-License-Identifier: Apache-2.0
#include "WindowProxy.h"

#include "ForeignWindow.h"
#include "Log.h"
#include "MainQueue.h"
#include "StyleShield.h"

#include <QtCore/QPointer>
#include <QtGui/QCloseEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QWindowStateChangeEvent>
#include <QtWidgets/QApplication>

#include <utility>

namespace velmora {

// A widget can't be the child of a QWindow. This object can, and destroys the widget.
class WindowProxy::Owner : public QObject {
public:
    explicit Owner(QWindow *host) : QObject(host), proxy(new WindowProxy(host)) {}

    static const Owner *of(const QWindow *window) {
        for (const QObject *child : window->children()) {
            if (const auto *owner = dynamic_cast<const Owner *>(child))
                return owner;
        }
        return nullptr;
    }

    const std::unique_ptr<WindowProxy> proxy;
};

namespace {

QWindow *topmostParentOf(QWindow *window) {
    while (window && window->parent())
        window = window->parent();
    return window;
}

// Until a QWidget::createWindowContainer() is shown for the first time, its window is the child of
// a QWindow that is never shown.
bool isInUnshownContainer(const QWindow *topmost) {
    return topmost->objectName().endsWith(QLatin1String("ContainerFakeParent"));
}

QWidget *widgetWithNativeWindow(const QWindow *window) {
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        if (widget->windowHandle() == window)
            return widget;
    }
    return nullptr;
}

} // namespace

QWidget *WindowProxy::widgetFor(QWindow *window) {
    if (QWidget *existing = existingWidgetFor(window))
        return existing;
    QWindow *host = topmostParentOf(window);
    if (host && isInUnshownContainer(host)) {
        Log::write(QStringLiteral("a QWindow is in a window container that was not shown yet: give "
                                  "the container instead"));
        return nullptr;
    }
    return host ? (new Owner(host))->proxy.get() : nullptr;
}

QWidget *WindowProxy::existingWidgetFor(QWindow *window) {
    // The window may have been put into another one since it got its proxy.
    for (const QWindow *each = window; each; each = each->parent()) {
        if (const Owner *owner = Owner::of(each))
            return owner->proxy.get();
    }
    return window ? widgetWithNativeWindow(topmostParentOf(window)) : nullptr;
}

QWindow *WindowProxy::hostOf(const QWidget *widget) {
    const auto *proxy = qobject_cast<const WindowProxy *>(widget);
    return proxy ? proxy->m_host.data() : nullptr;
}

QWindow *WindowProxy::nativeWindowOf(const QWidget *widget) {
    QWindow *host = hostOf(widget);
    return host || !widget ? host : widget->windowHandle();
}

bool WindowProxy::isActive(const QWidget *window) {
    const auto *proxy = qobject_cast<const WindowProxy *>(window);
    return proxy ? proxy->isHostActive() : window->isActiveWindow();
}

WindowProxy::WindowProxy(QWindow *host) : m_host(host) {
    setAttribute(Qt::WA_DontShowOnScreen);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    // What is put into the proxy is shown by other native windows, so painting it here is wasted.
    setUpdatesEnabled(false);
    setWindowIcon(host->icon());
    // Otherwise sizes in the application's style sheet would apply to the proxy.
    new StyleShield(this, [this] { follow(); });
    host->installEventFilter(this);
    for (const auto signal :
         {&QWindow::xChanged, &QWindow::yChanged, &QWindow::widthChanged, &QWindow::heightChanged})
        connect(host, signal, this, &WindowProxy::follow);
    connect(host, &QWindow::visibleChanged, this, &WindowProxy::followVisibility);
    connect(host, &QWindow::windowStateChanged, this, &WindowProxy::followState);
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &WindowProxy::followActivation);
    m_foreign = ForeignWindow::watch(host);
    if (m_foreign) {
        connect(m_foreign.get(), &ForeignWindow::changed, this, &WindowProxy::followVisibility);
        connect(m_foreign.get(), &ForeignWindow::closed, this, &WindowProxy::forwardClose);
    }
    follow();
    m_isActive = isVisible() && isHostActive();
}

WindowProxy::~WindowProxy() {
    // Not by ~QWidget(): what is in the proxy then moves out of native windows that are gone, and
    // needs a parent that is whole.
    hide();
}

bool WindowProxy::eventFilter(QObject *watched, QEvent *event) {
    if (watched == m_host && event->type() == QEvent::Close) {
        QCloseEvent copy;
        QCoreApplication::sendEvent(this, &copy);
    }
    return false;
}

void WindowProxy::follow() {
    if (!m_host)
        return;
    const QRect geometry = m_foreign ? m_foreign->geometry() : m_host->geometry();
    if (!geometry.isEmpty())
        setGeometry(geometry);
    if (!isHostVisible())
        hide();
    else if (m_host->handle())
        show();
    else
        showLater();
}

// A QWindow that is shown for the first time emits visibleChanged() before it has a native window,
// and so before native windows can be placed in it.
void WindowProxy::showLater() {
    MainQueue::post(this, [this] {
        const QPointer<WindowProxy> self(this);
        setVisible(isHostVisible());
        if (self)
            followActivation();
    });
}

void WindowProxy::followVisibility() {
    const QPointer<WindowProxy> self(this);
    follow();
    if (self)
        followActivation();
}

void WindowProxy::followState() {
    const QPointer<WindowProxy> self(this);
    followVisibility();
    if (!self)
        return;
    QWindowStateChangeEvent change(Qt::WindowNoState);
    QCoreApplication::sendEvent(this, &change);
}

void WindowProxy::followActivation() {
    const bool isActiveNow = isVisible() && isHostActive();
    if (std::exchange(m_isActive, isActiveNow) == isActiveNow)
        return;
    QEvent event(isActiveNow ? QEvent::WindowActivate : QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(this, &event);
}

void WindowProxy::forwardClose() {
    QCloseEvent close;
    const QPointer<WindowProxy> self(this);
    QCoreApplication::sendEvent(this, &close);
    if (self)
        hide();
}

bool WindowProxy::isHostVisible() const {
    if (!m_host)
        return false;
    if (m_foreign)
        return m_foreign->isVisible();
    return m_host->isVisible() && !m_host->windowStates().testFlag(Qt::WindowMinimized);
}

bool WindowProxy::isHostActive() const {
    if (m_foreign)
        return m_foreign->isActive();
    const QWindow *focus = QGuiApplication::focusWindow();
    return m_host && focus &&
           (focus == m_host || m_host->isAncestorOf(focus, QWindow::ExcludeTransients));
}

} // namespace velmora
