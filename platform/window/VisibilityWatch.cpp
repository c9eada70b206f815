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
    QList<QPointer<QWidget>> chain;
    for (QWidget *widget = m_view; widget; widget = widget->parentWidget()) {
        chain.append(widget);
        if (widget->isWindow())
            break;
    }
    // Filters that stay are not installed again: that would change the list of event filters, which
    // Qt may be iterating over.
    for (QWidget *widget : std::as_const(m_watched)) {
        if (widget && !chain.contains(widget))
            widget->removeEventFilter(this);
    }
    for (QWidget *widget : std::as_const(chain)) {
        if (!m_watched.contains(widget))
            widget->installEventFilter(this);
    }
    m_watched = chain;
    disconnect(m_windowShown);
    if (Window *window = Window::of(m_view->parentWidget()))
        m_windowShown = connect(window, &Window::becameVisible, this, &VisibilityWatch::changed);
}

} // namespace velmora
