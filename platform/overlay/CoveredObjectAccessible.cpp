// SPDX-License-Identifier: Apache-2.0
#include "CoveredObjectAccessible.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>

namespace velmora {

CoveredObjectAccessible::CoveredObjectAccessible(QObject *object, OverlayAccessibility *cover)
    : QAccessibleObject(object), m_cover(cover) {}

QWindow *CoveredObjectAccessible::coveredWindow() const {
    return m_cover && m_cover->place() == object() ? qobject_cast<QWindow *>(object()) : nullptr;
}

QAccessibleInterface *CoveredObjectAccessible::parent() const {
    QObject *parent = qGuiApp;
    if (m_cover && !coveredWindow())
        parent = m_cover->place();
    return QAccessible::queryAccessibleInterface(parent);
}

int CoveredObjectAccessible::childCount() const {
    return coveredWindow() && m_cover->view() ? 1 : 0;
}

QAccessibleInterface *CoveredObjectAccessible::child(int index) const {
    return index == 0 && childCount() > 0 ? QAccessible::queryAccessibleInterface(m_cover->view())
                                          : nullptr;
}

int CoveredObjectAccessible::indexOfChild(const QAccessibleInterface *child) const {
    return child && childCount() > 0 && child->object() == m_cover->view() ? 0 : -1;
}

QString CoveredObjectAccessible::text(QAccessible::Text kind) const {
    const QWindow *window = coveredWindow();
    return window && kind == QAccessible::Name ? window->title() : QString();
}

QRect CoveredObjectAccessible::rect() const {
    const QWindow *window = coveredWindow();
    return window ? QRect(window->mapToGlobal(QPoint()), window->size()) : QRect();
}

QWindow *CoveredObjectAccessible::window() const {
    return m_cover ? qobject_cast<QWindow *>(m_cover->place()) : nullptr;
}

QAccessible::Role CoveredObjectAccessible::role() const {
    return coveredWindow() ? QAccessible::Window : QAccessible::Client;
}

QAccessible::State CoveredObjectAccessible::state() const {
    QAccessible::State state;
    const QWindow *window = coveredWindow();
    state.invisible = !window || !window->isVisible();
    state.active = window && window->isActive();
    return state;
}

} // namespace velmora
