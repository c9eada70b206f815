// SPDX-License-Identifier: Apache-2.0
#include "VisibilityWatch.h"

#include "Window.h"

#include <QtCore/QEvent>

namespace velmora {

VisibilityWatch::VisibilityWatch(QWidget *view) : QObject(view), m_view(view) {
    follow();
}

bool VisibilityWatch::isWindowVisible() const {
    const Window *window = Window::of(m_view->parentWidget());
    return window && window->isVisible();
}

bool VisibilityWatch::isSuperviewVisible() const {
    return isWindowVisible() && m_view->parentWidget()->isVisible();
}

bool VisibilityWatch::eventFilter(QObject *watched, QEvent *event) {
    const bool isShown = event->type() == QEvent::Show && watched == m_view->parentWidget();
    const bool hasMoved = event->type() == QEvent::ParentChange;
    if (hasMoved)
        follow();
    if (isShown || hasMoved)
        Q_EMIT changed();
    return false;
}

void VisibilityWatch::follow() {
    m_ancestors.followToWindow(m_view);
    disconnect(m_windowShown);
    if (Window *window = Window::of(m_view->parentWidget()))
        m_windowShown = connect(window, &Window::becameVisible, this, &VisibilityWatch::changed);
}

} // namespace velmora
