// SPDX-License-Identifier: Apache-2.0
#include "CoveredShortcuts.h"

#include "HostWindows.h"

#include <QtGui/QAction>
#include <QtGui/QGuiApplication>
#include <QtGui/QShortcut>
#include <QtGui/QShortcutEvent>

#include <algorithm>

namespace velmora {

namespace {

bool quits(const QObject *owner, const QKeySequence &keys) {
    const auto *action = qobject_cast<const QAction *>(owner);
    // Not every desktop has a standard key for it.
    return (action && action->menuRole() == QAction::QuitRole) ||
           keys == QKeySequence(Qt::CTRL | Qt::Key_Q) ||
           QKeySequence::keyBindings(QKeySequence::Quit).contains(keys);
}

bool isOfApplication(const QObject *owner) {
    if (const auto *action = qobject_cast<const QAction *>(owner))
        return action->shortcutContext() == Qt::ApplicationShortcut;
    if (const auto *shortcut = qobject_cast<const QShortcut *>(owner))
        return shortcut->context() == Qt::ApplicationShortcut;
    // The shortcuts of Qt Quick have this property. Those of labels and buttons are the window's.
    return owner->property("context").toInt() == Qt::ApplicationShortcut;
}

bool isWidgetIn(const QObject *object, const QWindow *window) {
    const auto *widget = qobject_cast<const QWidget *>(object);
    return widget && widget->window()->windowHandle() == window;
}

// Whether a shortcut was added to a widget of a window.
bool belongsTo(const QWindow *window, const QObject *owner) {
    if (const auto *action = qobject_cast<const QAction *>(owner)) {
        const QObjectList widgets = action->associatedObjects();
        return std::any_of(widgets.begin(), widgets.end(),
                           [window](const QObject *each) { return isWidgetIn(each, window); });
    }
    return isWidgetIn(owner, window) || isWidgetIn(owner->parent(), window);
}

} // namespace

void CoveredShortcuts::begin() {
    qApp->installEventFilter(this);
}

void CoveredShortcuts::end() {
    qApp->removeEventFilter(this);
}

bool CoveredShortcuts::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() != QEvent::Shortcut || !m_superview)
        return false;
    const QKeySequence keys = static_cast<QShortcutEvent *>(event)->key();
    return !isOfApplication(watched) && !quits(watched, keys) && actsInWindow(watched);
}

bool CoveredShortcuts::actsInWindow(const QObject *owner) const {
    const QWindow *active = QGuiApplication::focusWindow();
    if (!active)
        return false;
    if (HostWindows::isIn(m_superview, active))
        return true;
    // In an active tool window, such as a floating dock, the shortcuts of its parent act as well.
    const bool hasParentsShortcuts = active->type() == Qt::Tool || active->type() == Qt::Popup;
    return hasParentsShortcuts && HostWindows::isIn(m_superview, active->transientParent()) &&
           !belongsTo(active, owner);
}

} // namespace velmora
