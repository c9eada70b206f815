// SPDX-License-Identifier: Apache-2.0
#include "ItemExposure.h"

#include <QtCore/QEvent>
#include <QtQuick/QQuickRenderControl>
#include <QtQuick/QQuickWindow>

namespace velmora {

ItemExposure::ItemExposure(QQuickItem *item) : m_item(item) {
    connect(item, &QQuickItem::visibleChanged, this, &ItemExposure::changed);
    connect(item, &QQuickItem::windowChanged, this, &ItemExposure::enterWindow);
    enterWindow(item->window());
}

bool ItemExposure::isExposed() const {
    return m_item->isVisible() && m_nativeWindow && m_nativeWindow->isExposed() &&
           !(m_nativeWindow->windowStates() & Qt::WindowMinimized);
}

void ItemExposure::enterWindow(QQuickWindow *window) {
    disconnect(m_windowShown);
    watchNativeWindow(window);
    // A QQuickWidget has its native window only when it is shown.
    if (window) {
        m_windowShown = connect(window, &QWindow::visibleChanged, this,
                                [this, window] { watchNativeWindow(window); });
    }
}

void ItemExposure::watchNativeWindow(QQuickWindow *window) {
    if (m_nativeWindow)
        m_nativeWindow->removeEventFilter(this);
    QWindow *onScreen = window ? QQuickRenderControl::renderWindowFor(window) : nullptr;
    m_nativeWindow = onScreen ? onScreen : window;
    if (m_nativeWindow)
        m_nativeWindow->installEventFilter(this);
    Q_EMIT changed();
}

bool ItemExposure::eventFilter(QObject *, QEvent *event) {
    if (event->type() == QEvent::Expose || event->type() == QEvent::WindowStateChange)
        Q_EMIT changed();
    return false;
}

} // namespace velmora
