// SPDX-License-Identifier: Apache-2.0
#include "Overlay.h"

#include "Animator.h"

#include <utility>

namespace velmora {

Overlay::Overlay(QWidget *view, QWidget *superview, Kind kind)
    : m_view(view),
      m_superview(superview),
      m_kind(kind),
      m_setFrame(superview->rect()),
      m_setSize(superview->size()) {
    view->hide();
    beChild();
    m_focus = std::make_unique<OverlayFocus>(view, superview);
    applyFrame();
    // Nothing that the view does not want goes on to what lies underneath: clicks, drags and
    // wheel, the focus that a click gives, things dragged from elsewhere.
    view->setAttribute(Qt::WA_NoMousePropagation);
    view->setFocusPolicy(Qt::ClickFocus);
    view->setAcceptDrops(true);
    // A main window would show its dividers' cursors through the view.
    if (!view->testAttribute(Qt::WA_SetCursor))
        view->setCursor(Qt::ArrowCursor);
    view->installEventFilter(this);
    superview->installEventFilter(this);
    connect(view, &QObject::destroyed, this, &Overlay::viewGone);
    connect(superview, &QObject::destroyed, this, &Overlay::superviewGone);
    m_siblings = std::make_unique<NativeSiblings>(superview, [this] { nativeWindowsChanged(); });
    followWindow();
    if (kind == Kind::Native)
        enterContainer();
}

Overlay::~Overlay() {
    if (m_superview)
        remove();
    else
        delete takeView();
}

QWidget *Overlay::takeView() {
    if (!m_view || m_superview)
        return nullptr;
    m_view->removeEventFilter(this);
    m_view->disconnect(this);
    return std::exchange(m_view, nullptr);
}

void Overlay::remove() {
    if (!m_view)
        return;
    if (!m_superview) {
        takeView()->deleteLater();
        return;
    }
    m_focus->end();
    m_hidden = true;
    m_superview->removeEventFilter(this);
    m_superview->disconnect(this);
    if (m_window)
        m_window->removeEventFilter(this);
    QWidget *view = m_view;
    view->removeEventFilter(this);
    view->disconnect(this);
    m_view = nullptr;
    m_superview = nullptr;
    m_siblings.reset();
    m_focus.reset();
    Animator::setHiddenNow(view, true);
    view->setParent(nullptr);
    view->deleteLater();
    m_container.reset();
}

QRect Overlay::frame() const {
    if (!m_superview)
        return {};
    const QSize size = m_setFrame.size() + m_superview->size() - m_setSize;
    return {m_setFrame.topLeft(), size.expandedTo({0, 0})};
}

void Overlay::setFrame(const QRect &frame) {
    if (!m_superview)
        return;
    m_setFrame = frame;
    m_setSize = m_superview->size();
    applyFrame();
}

void Overlay::applyFrame() {
    m_focus->setFrame(frame());
    if (m_container)
        m_container->setFrame(frame());
    else
        m_view->setGeometry(frame());
}

void Overlay::setHidden(bool hidden) {
    change(hidden, &Animator::setHidden);
}

void Overlay::setHiddenNow(bool hidden) {
    change(hidden, &Animator::setHiddenNow);
}

void Overlay::change(bool hidden, void (*set)(QWidget *, bool)) {
    if (!m_view || !m_superview)
        return;
    const QPointer<Overlay> self(this);
    const bool changes = std::exchange(m_hidden, hidden) != hidden;
    if (changes && hidden)
        m_focus->end();
    // Whoever gets the focus is the host's, and may do as it likes.
    if (!self || !m_view || !m_superview)
        return;
    if (changes && !hidden)
        prepareToShow();
    if (m_container) {
        m_view->setVisible(!hidden);
        m_container->setVisible(!hidden);
    } else {
        set(m_view, hidden);
    }
    if (changes && !hidden && m_focus)
        m_focus->begin(focusHolder());
}

void Overlay::prepareToShow() {
    followWindow();
    m_siblings->follow();
    const bool native = m_kind == Kind::Native || nativeWindowsWouldHideIt();
    if (m_container && !(native && m_container->isWhole()))
        leaveContainer();
    if (native && !m_container)
        enterContainer();
    applyFrame();
    raise();
    if (m_view->accessibleName().isEmpty())
        m_view->setAccessibleName(QStringLiteral("Advertisement"));
}

void Overlay::superviewGone() {
    m_superview = nullptr;
    m_siblings.reset();
    m_focus.reset();
    m_hidden = true;
    if (m_view && m_superviewLost) {
        Animator::setHiddenNow(m_view, true);
        m_view->setParent(nullptr);
    } else if (m_container) {
        // A plain child goes with its parent.
        delete m_view;
    }
    m_container.reset();
    if (m_view && m_superviewLost)
        m_superviewLost();
}

void Overlay::viewGone() {
    m_view = nullptr;
    m_hidden = true;
    m_siblings.reset();
    if (m_focus)
        m_focus->end();
    m_focus.reset();
    m_container.reset();
    if (m_superview)
        m_superview->removeEventFilter(this);
    m_superview = nullptr;
}

} // namespace velmora
