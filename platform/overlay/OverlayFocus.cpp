// SPDX-License-Identifier: Apache-2.0
#include "OverlayFocus.h"

#include "MainQueue.h"
#include "WindowProxy.h"

#include <QtWidgets/QApplication>

#include <utility>

namespace velmora {

OverlayFocus::OverlayFocus(QWidget *view, QWidget *superview)
    : m_view(view), m_superview(superview) {
    connect(qApp, &QApplication::focusChanged, this, &OverlayFocus::changed);
}

void OverlayFocus::begin(QWidget *holder) {
    m_holder = holder;
    if (!std::exchange(m_active, true)) {
        m_inner = nullptr;
        m_previous = nullptr;
    }
    if (holder && shouldTakeFocus()) {
        if (QWidget *covered = m_superview->window()->focusWidget())
            m_previous = covered;
        holder->setFocus(Qt::OtherFocusReason);
    }
}

void OverlayFocus::setHolder(QWidget *holder) {
    const bool has = isInView();
    m_holder = holder;
    if (has && holder)
        holder->setFocus(Qt::OtherFocusReason);
}

void OverlayFocus::end() {
    m_active = false;
    QWidget *window = m_superview ? m_superview->window() : nullptr;
    QWidget *now = window ? window->focusWidget() : nullptr;
    const QPointer<QWidget> previous = std::exchange(m_previous, nullptr);
    if (!belongsToView(now))
        return;
    if (previous && window->isAncestorOf(previous) && previous->isVisibleTo(window))
        previous->setFocus(Qt::OtherFocusReason);
    else
        now->clearFocus();
}

void OverlayFocus::changed(QWidget *old, QWidget *now) {
    if (!m_active || !m_superview)
        return;
    if (belongsToView(now)) {
        if (now != m_holder)
            m_inner = now;
        if (old && !belongsToView(old) && old->window() == m_superview->window())
            m_previous = old;
    } else if (!now || isCovered(now)) {
        if (now)
            m_previous = now;
        checkLater();
    }
}

void OverlayFocus::checkLater() {
    if (std::exchange(m_checking, true))
        return;
    MainQueue::post(this, [this] { check(); });
}

void OverlayFocus::check() {
    m_checking = false;
    if (!m_active || !m_superview || !m_holder || !shouldTakeFocus() || !m_limit.allows())
        return;
    // An advertisement that can't be opened any more does not accept the focus.
    const bool inner = m_inner && m_inner->isVisible() && m_inner->focusPolicy() != Qt::NoFocus &&
                       m_inner->window() == m_holder->window();
    (inner ? m_inner : m_holder)->setFocus(Qt::OtherFocusReason);
}

bool OverlayFocus::isInView() const {
    return m_superview && belongsToView(m_superview->window()->focusWidget());
}

bool OverlayFocus::shouldTakeFocus() const {
    const QWidget *window = m_superview->window();
    const QWidget *now = window->focusWidget();
    return now ? isCovered(now) : WindowProxy::isActive(window);
}

bool OverlayFocus::belongsToView(const QWidget *widget) const {
    return widget && (widget == m_holder || (m_view && m_view->isAncestorOf(widget)));
}

bool OverlayFocus::isCovered(const QWidget *widget) const {
    return !belongsToView(widget) && m_superview->isAncestorOf(widget) &&
           m_frame.intersects({widget->mapTo(m_superview.data(), QPoint()), widget->size()});
}

} // namespace velmora
