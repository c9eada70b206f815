// SPDX-License-Identifier: Apache-2.0
#include "OverlayInput.h"

#include "HostWindows.h"

#include <QtGui/QDropEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethod>
#include <QtGui/QInputMethodEvent>
#include <QtWidgets/QApplication>

#include <algorithm>

namespace velmora {

namespace {

// The keys that buttons, the focus and the close button use. Other keys may be shortcuts of the
// application.
bool isKeyOfView(const QKeyEvent &event) {
    switch (event.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Space:
    case Qt::Key_Select:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
        return (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    default:
        return false;
    }
}

// Pressed alone, they move the focus to the host's menu bar.
bool isMenuBarKey(const QKeyEvent &event) {
    return event.key() == Qt::Key_Alt || event.key() == Qt::Key_Meta;
}

} // namespace

OverlayInput::OverlayInput(QWidget *view, QWidget *superview, const OverlayFocus &focus)
    : m_view(view), m_superview(superview), m_focus(focus) {}

void OverlayInput::begin() {
    m_lastPress.reset();
    m_heldKey = 0;
    qApp->installEventFilter(this);
    // The completions of a line edit write into it, past all event filters.
    QWidget *popup = QApplication::activePopupWidget();
    if (popup && popup->focusProxy() && m_focus.isCovered(popup->focusProxy()))
        popup->close();
    // What was being composed belongs to the covered widget.
    if (coversInputOf(QGuiApplication::focusObject()))
        QGuiApplication::inputMethod()->reset();
    updateInputMethod();
}

void OverlayInput::end() {
    qApp->removeEventFilter(this);
    updateInputMethod();
}

// The focus object of a window that is not a widget's stays the same, and with it what the input
// method knows about it.
void OverlayInput::updateInputMethod() const {
    QGuiApplication::inputMethod()->update(Qt::ImEnabled);
}

double OverlayInput::doubleClickTimeLeft() const {
    if (!m_lastPress)
        return 0;
    const std::chrono::duration<double> passed = TimeSource::current().now() - *m_lastPress;
    return std::max(0.0, QApplication::doubleClickInterval() / 1000.0 - passed.count());
}

bool OverlayInput::eventFilter(QObject *watched, QEvent *event) {
    if (!m_view || !m_superview)
        return false;
    auto *window = qobject_cast<QWindow *>(watched);
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
        return window ? takesKeyOfWindow(window, event) : takesUnusedKey(watched, event);
    case QEvent::ContextMenu:
        return window && takesKeyOfWindow(window, event);
    case QEvent::InputMethod:
    case QEvent::InputMethodQuery:
        return takesInputMethod(watched, event);
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return window && takesDrag(window, event);
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::TouchBegin:
        notePress(window, event);
        return false;
    case QEvent::ToolTip:
    case QEvent::WhatsThis:
        // The view has ignored it, or there is nothing but the superview at the place.
        return watched == m_superview &&
               m_focus.frame().contains(static_cast<QHelpEvent *>(event)->pos());
    default:
        return false;
    }
}

bool OverlayInput::takesKeyOfWindow(QWindow *window, QEvent *event) {
    if (!coversFocusOf(window))
        return false;
    if (event->type() == QEvent::ShortcutOverride) {
        // Qt looks for shortcuts only if this event is ignored. CoveredShortcuts stops those that
        // must not act.
        const auto &key = *static_cast<QKeyEvent *>(event);
        event->setAccepted(isKeyOfView(key) || isMenuBarKey(key));
        return true;
    }
    event->accept();
    const bool isKey = event->type() != QEvent::ContextMenu;
    if (isKey)
        noteKey(event);
    if (isKey && m_focus.isInView() && window == m_superview->window()->windowHandle())
        return false; // Qt sends it to the widget that has the focus
    if (!isKey || !m_focus.holder())
        return true;
    QWidget *inner = m_focus.holder()->focusWidget();
    const QPointer<OverlayInput> self(this);
    m_isForwarding = true;
    QCoreApplication::sendEvent(inner && inner->isVisible() ? inner : m_focus.holder(), event);
    if (self)
        m_isForwarding = false;
    event->accept();
    return true;
}

// What neither the view nor an uncovered widget has used goes on to the parents.
bool OverlayInput::takesUnusedKey(const QObject *watched, QEvent *event) const {
    // A key press that a key proxy sends on makes Qt look for a shortcut once more.
    if (event->type() == QEvent::ShortcutOverride && watched->isWidgetType() &&
        m_focus.belongsToView(static_cast<const QWidget *>(watched))) {
        event->accept();
        return true;
    }
    const bool isFromView = m_isForwarding || m_focus.isInView();
    if (watched != m_superview->window() && !(watched == m_superview && isFromView))
        return false;
    event->setAccepted(event->type() != QEvent::ShortcutOverride ||
                       isMenuBarKey(*static_cast<QKeyEvent *>(event)));
    return true;
}

// Dead keys, the compose key and input methods write to the focus object and not to the window.
bool OverlayInput::takesInputMethod(const QObject *watched, QEvent *event) const {
    if (!coversInputOf(watched))
        return false;
    if (event->type() == QEvent::InputMethodQuery)
        static_cast<QInputMethodQueryEvent *>(event)->setValue(Qt::ImEnabled, false);
    event->accept();
    return true;
}

// Under X11, what is dropped on a native child window goes to the top-level window, and so to the
// widget that the overlay covers.
bool OverlayInput::takesDrag(QWindow *window, QEvent *event) const {
    auto *drag = static_cast<QDropEvent *>(event);
    if (!HostWindows::isIn(m_superview, window) ||
        !globalFrame().contains(window->mapToGlobal(drag->position().toPoint())))
        return false;
    // The drag may come from an uncovered widget of the same window.
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(window, &leave);
    drag->setDropAction(Qt::IgnoreAction);
    drag->ignore();
    return true;
}

void OverlayInput::noteKey(const QEvent *event) {
    const auto &key = *static_cast<const QKeyEvent *>(event);
    if (!key.isAutoRepeat())
        m_heldKey = event->type() == QEvent::KeyPress ? key.key() : 0;
}

void OverlayInput::notePress(const QWindow *window, const QEvent *event) {
    if (!window || !HostWindows::isIn(m_superview, window))
        return;
    const auto &points = static_cast<const QPointerEvent *>(event)->points();
    if (!points.isEmpty() && globalFrame().contains(points.first().globalPosition().toPoint()))
        m_lastPress = TimeSource::current().now();
}

bool OverlayInput::coversFocusOf(const QWindow *window) const {
    // The keys of an open menu are the menu's, in whichever window they arrive.
    if (!HostWindows::isIn(m_superview, window) || QApplication::activePopupWidget())
        return false;
    if (window == m_view->window()->windowHandle() && m_view->window() != m_superview->window())
        return false;
    if (window == HostWindows::windowOf(m_superview)) {
        const QWidget *now = m_superview->window()->focusWidget();
        return !now || m_focus.belongsToView(now) || m_focus.isCovered(now);
    }
    // A native window in the host's, in a window container for example.
    return globalFrame().intersects({window->mapToGlobal(QPoint()), window->size()});
}

bool OverlayInput::coversInputOf(const QObject *object) const {
    if (!object || !m_view || !m_superview)
        return false;
    if (object->isWidgetType())
        return m_focus.isCovered(static_cast<const QWidget *>(object));
    const QWindow *window = QGuiApplication::focusWindow();
    return object == QGuiApplication::focusObject() && window && coversFocusOf(window);
}

QRect OverlayInput::globalFrame() const {
    return m_focus.frame().translated(m_superview->mapToGlobal(QPoint()));
}

} // namespace velmora
