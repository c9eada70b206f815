// SPDX-License-Identifier: Apache-2.0
#include "Overlay.h"

#include "Animator.h"

#include <utility>

namespace velmora {

bool Overlay::nativeWindowsWouldHideIt() const {
    // The view itself has a native window where its siblings have.
    return m_siblings->areVisible(m_container ? m_container->window() : m_view->windowHandle());
}

QWidget *Overlay::focusHolder() const {
    return m_container ? m_container->keyProxy() : m_view.data();
}

void Overlay::beChild() {
    // A sub-window is where Tab turns round: Qt looks for the next widget inside it.
    constexpr auto Type = Qt::WindowFlags(Qt::WindowType_Mask);
    m_view->setParent(m_superview, (m_view->windowFlags() & ~Type) | Qt::SubWindow);
}

void Overlay::enterContainer() {
    Animator::setHiddenNow(m_view, m_hidden);
    const QPointer<QWidget> inner = m_view->focusWidget();
    m_container = std::make_unique<OverlayContainer>(m_superview, [this] { containerLost(); });
    // Before the view leaves, or else Qt would give its focus to something covered.
    m_focus->setHolder(focusHolder());
    m_container->setView(m_view);
    applyFrame();
    if (inner)
        inner->setFocus(Qt::OtherFocusReason);
    if (m_hidden)
        return;
    m_view->show();
    m_container->setVisible(true);
    raise();
}

void Overlay::leaveContainer() {
    beChild();
    m_container.reset();
    m_focus->setHolder(focusHolder());
}

// The host's native window was made anew, or the host has destroyed the container.
void Overlay::containerLost() {
    if (!m_view || !m_superview || !m_container)
        return;
    m_view->hide();
    leaveContainer();
    if (std::exchange(m_hidden, true)) {
        if (m_kind == Kind::Native)
            enterContainer();
    } else {
        setHiddenNow(false);
    }
}

void Overlay::nativeWindowsChanged() {
    if (m_hidden || !m_view || !m_superview)
        return;
    if (!m_container && nativeWindowsWouldHideIt())
        enterContainer();
    else if (m_container)
        raise();
}

} // namespace velmora
