// SPDX-License-Identifier: Apache-2.0
#include "ItemExposure.h"

#include <QtCore/QEvent>

namespace velmora {

ItemExposure::ItemExposure(QQuickItem *item) : m_item(item) {
    connect(item, &QQuickItem::visibleChanged, this, &ItemExposure::changed);
    connect(item, &QQuickItem::windowChanged, this, &ItemExposure::enterWindow);
    enterWindow(item->window());
}

bool ItemExposure::isExposed() const {
    return m_item->isVisible() && m_window && m_window->isExposed() &&
           !(m_window->windowStates() & Qt::WindowMinimized);
}

void ItemExposure::enterWindow(QQuickWindow *window) {
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = window;
    if (m_window)
        m_window->installEventFilter(this);
    Q_EMIT changed();
}

bool ItemExposure::eventFilter(QObject *, QEvent *event) {
    if (event->type() == QEvent::Expose || event->type() == QEvent::WindowStateChange)
        Q_EMIT changed();
    return false;
}

} // namespace velmora
