// SPDX-License-Identifier: Apache-2.0
#include "ContentArea.h"

#include "MainQueue.h"
#include "Window.h"

#include <Velmora/ViewController.h>

#include <QtCore/QEvent>
#include <QtWidgets/QMainWindow>

#include <utility>

namespace velmora {

ContentArea::ContentArea(QWidget *window, std::function<void()> changed)
    : m_window(window), m_changed(std::move(changed)) {
    window->installEventFilter(this);
    check();
}

QWidget *ContentArea::superview() const {
    const Window *companion = Window::of(m_window);
    if (!companion)
        return nullptr;
    ViewController *content = companion->contentViewController();
    QWidget *view = content ? content->view() : nullptr;
    return view ? view : m_window.data();
}

QWidget *ContentArea::menuBar() const {
    const auto *mainWindow = qobject_cast<const QMainWindow *>(m_window);
    return mainWindow ? mainWindow->menuWidget() : nullptr;
}

QRect ContentArea::rect() const {
    const QWidget *whole = superview();
    if (!whole)
        return {};
    const QWidget *menu = whole == m_window ? menuBar() : nullptr;
    // The menu bar is hidden when the desktop shows it in a panel of its own.
    const bool isInWindow = menu && menu->isVisibleTo(m_window);
    return whole->rect().adjusted(0, isInWindow ? menu->geometry().bottom() + 1 : 0, 0, 0);
}

bool ContentArea::eventFilter(QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::LayoutRequest:
    case QEvent::ChildAdded:
    case QEvent::ChildRemoved:
        if (watched == m_window)
            checkLater();
        break;
    case QEvent::Resize:
    case QEvent::Move:
    case QEvent::Show:
    case QEvent::Hide:
        if (watched == m_menuBar)
            checkLater();
        break;
    default:
        break;
    }
    return false;
}

void ContentArea::checkLater() {
    if (!std::exchange(m_checkPosted, true))
        MainQueue::post(this, [this] { check(); });
}

void ContentArea::check() {
    m_checkPosted = false;
    QWidget *menu = menuBar();
    if (menu != m_menuBar) {
        if (m_menuBar)
            m_menuBar->removeEventFilter(this);
        m_menuBar = menu;
        if (menu)
            menu->installEventFilter(this);
    }
    const int top = rect().top();
    if (std::exchange(m_top, top) != top && m_changed)
        m_changed();
}

} // namespace velmora
