// SPDX-License-Identifier: Apache-2.0
#include "Overlay.h"

#include "Animator.h"
#include "ClickGuard.h"
#include "KeyGuard.h"
#include "MainQueue.h"

#include <algorithm>

#include <utility>

namespace velmora {

Overlay::Overlay(QWidget *view, QWidget *superview, Kind kind)
    : m_view(view),
      m_superview(superview),
      m_kind(kind),
      m_setFrame(superview->rect()),
      m_setSize(superview->size()),
      m_exposure([this] { giveWindowBack(); }) {
    m_accessibility = std::make_unique<OverlayAccessibility>(view, superview);
    m_focus = std::make_unique<OverlayFocus>(view, superview);
    m_input = std::make_unique<OverlayInput>(view, superview, *m_focus);
    m_shortcuts = std::make_unique<CoveredShortcuts>(superview);
    m_mount = std::make_unique<OverlayMount>(view, superview, *m_focus, [this] { windowLost(); });
    applyFrame();
    // Events that the view ignores must not reach the widgets below it: clicks and wheel, and the
    // focus that a click gives.
    view->setAttribute(Qt::WA_NoMousePropagation);
    view->setFocusPolicy(Qt::ClickFocus);
    // Otherwise the cursors that a main window sets over its dividers would be seen on the view.
    if (!view->testAttribute(Qt::WA_SetCursor))
        view->setCursor(Qt::ArrowCursor);
    connect(view, &QObject::destroyed, this, &Overlay::viewGone);
    connect(superview, &QObject::destroyed, this, &Overlay::superviewGone);
    m_siblings = std::make_unique<NativeSiblings>(superview, [this] { nativeWindowsChanged(); });
    watchSurroundings();
    if (kind == Kind::Native)
        enterWindow();
}

Overlay::~Overlay() {
    if (m_superview)
        remove();
    else
        delete takeView();
}

void Overlay::watchSurroundings() {
    m_surroundings = std::make_unique<OverlaySurroundings>(m_superview);
    const OverlaySurroundings *watch = m_surroundings.get();
    const auto checkNativeWindowsLater = [this] {
        MainQueue::post(this, [this] { nativeWindowsChanged(); });
    };
    connect(watch, &OverlaySurroundings::superviewResized, this, &Overlay::applyFrame);
    connect(watch, &OverlaySurroundings::childAdded, this,
            [this] { MainQueue::post(this, [this] { keepOnTop(); }); });
    connect(watch, &OverlaySurroundings::windowAboutToPaint, this, &Overlay::keepOnTop);
    connect(watch, &OverlaySurroundings::superviewShown, this, checkNativeWindowsLater);
    connect(watch, &OverlaySurroundings::nativeWindowChanged, this,
            [this, checkNativeWindowsLater] {
                // When Qt recreates the host's native window, the native windows in it are
                // destroyed, too, without an event for their owners.
                if (m_siblings->follow())
                    MainQueue::post(this, [this] { windowLost(); });
                checkNativeWindowsLater();
            });
    connect(watch, &OverlaySurroundings::windowActivated, m_focus.get(), &OverlayFocus::checkLater);
}

QWidget *Overlay::takeView() {
    if (!m_view || m_superview)
        return nullptr;
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
    m_accessibility.reset();
    m_focus->end();
    if (!m_hidden && m_input)
        endInput();
    m_exposure.end();
    m_hidden = true;
    m_superview->disconnect(this);
    QWidget *view = m_view;
    view->disconnect(this);
    m_view = nullptr;
    m_superview = nullptr;
    m_surroundings.reset();
    m_siblings.reset();
    Animator::setHiddenNow(view, true);
    view->setParent(nullptr);
    view->deleteLater();
    m_mount.reset();
    m_input.reset();
    m_shortcuts.reset();
    m_focus.reset();
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
    if (!m_view || !m_superview)
        return;
    m_accessibility->setFrame(frame());
    m_focus->setFrame(frame());
    m_mount->setFrame(frame());
}

void Overlay::keepOnTop() {
    if (m_view && m_superview && m_view->isVisible() && !m_mount->isOnTop() && m_raises.allows())
        m_mount->raise();
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
    if (changes && hidden) {
        m_exposure.end();
        // First, so that assistive technology hears where the focus returns to.
        m_accessibility->end();
        m_focus->end();
        if (self && m_input)
            endInput();
    }
    // The focus went to a widget of the host's, whose code may have destroyed anything.
    if (!self || !m_view || !m_superview)
        return;
    if (changes && !hidden)
        prepareToShow();
    m_mount->setHidden(hidden, set);
    if (changes && !hidden && self && m_focus) {
        m_focus->begin(m_mount->focusHolder());
        // The widget that loses the focus is the host's, too.
        if (!self || !m_input)
            return;
        m_input->begin();
        m_shortcuts->begin();
        watchExposure();
    }
}

void Overlay::watchExposure() {
    if (m_view && m_superview)
        m_exposure.begin(m_view, m_superview, isNative() ? m_mount->nativeWindow() : nullptr);
}

void Overlay::giveWindowBack() {
    setHiddenNow(true);
    if (m_missing)
        m_missing();
}

void Overlay::prepareToShow() {
    m_surroundings->followWindow();
    m_siblings->follow();
    const bool native = m_kind == Kind::Native || isHiddenByNativeWindows();
    if (!native || !m_mount->isWindowWhole())
        m_mount->leaveWindow();
    if (native && !m_mount->isInWindow())
        enterWindow();
    applyFrame();
    m_accessibility->begin();
    m_mount->raise();
    if (m_view->accessibleName().isEmpty())
        m_view->setAccessibleName(QStringLiteral("Advertisement"));
}

void Overlay::endInput() {
    m_input->end();
    m_shortcuts->end();
    if (const double left = m_input->doubleClickTimeLeft(); left > 0)
        ClickGuard::begin(m_superview, frame(), std::max(left, Animator::Duration));
    if (const int key = m_input->heldKey())
        KeyGuard::begin(m_superview, key);
}

bool Overlay::isHiddenByNativeWindows() const {
    // A plain child gets a native window of its own when Qt gives one to its siblings.
    NativeSiblings::setLayer(m_view->windowHandle(), NativeSiblings::Layer::Overlay);
    return m_siblings->areVisible(NativeSiblings::Layer::Overlay, m_superview->rect());
}

void Overlay::enterWindow() {
    applyFrame();
    m_mount->enterWindow(m_hidden);
}

// The host's native window was recreated, or the host has destroyed a part of the overlay's.
void Overlay::windowLost() {
    if (!m_view || !m_superview || !m_mount->isInWindow())
        return;
    m_view->hide();
    m_mount->leaveWindow();
    if (std::exchange(m_hidden, true)) {
        if (m_kind == Kind::Native)
            enterWindow();
    } else {
        setHiddenNow(false);
    }
}

void Overlay::nativeWindowsChanged() {
    if (m_hidden || !m_view || !m_superview)
        return;
    if (m_mount->isInWindow()) {
        m_mount->raise();
    } else if (isHiddenByNativeWindows()) {
        enterWindow();
        watchExposure();
    }
}

void Overlay::superviewGone() {
    m_exposure.end();
    const bool wasNative = isNative();
    m_superview = nullptr;
    m_accessibility.reset();
    m_surroundings.reset();
    m_siblings.reset();
    m_hidden = true;
    if (m_view && m_superviewLost) {
        Animator::setHiddenNow(m_view, true);
        m_view->setParent(nullptr);
    } else if (wasNative) {
        // A plain child is destroyed by its parent, the superview.
        delete m_view;
    }
    m_mount.reset();
    m_input.reset();
    m_shortcuts.reset();
    m_focus.reset();
    if (m_view && m_superviewLost)
        m_superviewLost();
}

void Overlay::viewGone() {
    m_exposure.end();
    m_view = nullptr;
    m_hidden = true;
    m_accessibility.reset();
    m_surroundings.reset();
    m_siblings.reset();
    if (m_focus)
        m_focus->end();
    m_mount.reset();
    m_input.reset();
    m_shortcuts.reset();
    m_focus.reset();
    m_superview = nullptr;
}

} // namespace velmora
