// SPDX-License-Identifier: Apache-2.0
#include "OverlayMount.h"

#include "Animator.h"
#include "SplitterGuard.h"

#include <utility>

namespace velmora {

OverlayMount::OverlayMount(QWidget *view, QWidget *superview, OverlayFocus &focus,
                           std::function<void()> windowLost)
    : m_view(view), m_superview(superview), m_focus(focus), m_windowLost(std::move(windowLost)) {
    view->hide();
    becomeChild();
}

void OverlayMount::becomeChild() {
    // Qt looks for the widget that Tab leads to within the nearest window or sub-window, so a
    // sub-window keeps Tab inside the view.
    SplitterGuard::keepOut(m_view, m_superview);
    constexpr auto Type = Qt::WindowFlags(Qt::WindowType_Mask);
    m_view->setParent(m_superview, (m_view->windowFlags() & ~Type) | Qt::SubWindow);
}

void OverlayMount::enterWindow(bool hidden) {
    Animator::setHiddenNow(m_view, hidden);
    const QPointer<QWidget> inner = m_view->focusWidget();
    m_window =
        std::make_unique<OverlayWindow>(m_superview, NativeSiblings::Layer::Overlay, m_windowLost);
    // Before the view leaves the window: Qt would otherwise give its focus to a covered widget.
    m_focus.setHolder(focusHolder());
    m_window->setView(m_view);
    m_window->setFrame(m_frame);
    if (inner)
        inner->setFocus(Qt::OtherFocusReason);
    if (hidden)
        return;
    m_view->show();
    m_window->setVisible(true);
    raise();
}

void OverlayMount::leaveWindow() {
    if (!m_window)
        return;
    becomeChild();
    m_window.reset();
    m_focus.setHolder(focusHolder());
}

void OverlayMount::setFrame(const QRect &frame) {
    m_frame = frame;
    if (m_window)
        m_window->setFrame(frame);
    else
        m_view->setGeometry(frame);
}

void OverlayMount::setHidden(bool hidden, void (*set)(QWidget *, bool)) {
    if (m_window) {
        m_view->setVisible(!hidden);
        m_window->setVisible(!hidden);
    } else {
        set(m_view, hidden);
    }
}

bool OverlayMount::isOnTop() const {
    return m_window ? m_window->isOnTop() : topmostChild(m_superview) == m_view;
}

void OverlayMount::raise() {
    if (m_window)
        m_window->raise();
    else
        m_view->raise();
}

QWidget *OverlayMount::focusHolder() const {
    return m_window ? m_window->keyProxy() : m_view.data();
}

QWindow *OverlayMount::nativeWindow() const {
    return m_window ? m_window->nativeWindow() : m_view->windowHandle();
}

} // namespace velmora
