// SPDX-License-Identifier: Apache-2.0
#include "LinkArea.h"

#include "FocusRing.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

#include <utility>

namespace velmora {

namespace {
constexpr double CornerRadius = 4;
}

LinkArea::LinkArea(QWidget *parent) : AdArea(parent) {
    setMouseTracking(true);
    setLinkEnabled(false);
}

void LinkArea::setLinkEnabled(bool enabled) {
    m_isLinkEnabled = enabled;
    setFocusPolicy(enabled ? Qt::TabFocus : Qt::NoFocus);
    if (!enabled)
        clearFocus();
    updateCursor();
}

void LinkArea::setAdRect(std::function<QRect()> rect) {
    m_adRect = std::move(rect);
}

QRect LinkArea::adRect() const {
    return m_adRect ? m_adRect() : rect();
}

void LinkArea::updateCursor() {
    // QCursor::pos() asks the X server, which answers only after it has drawn what came before.
    if (m_isLinkEnabled && isVisible())
        updateCursor(mapFromGlobal(QCursor::pos()));
    else
        setCursor(Qt::ArrowCursor);
}

void LinkArea::updateCursor(const QPoint &pointer) {
    const bool isLink = m_isLinkEnabled && adRect().contains(pointer);
    setCursor(isLink ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void LinkArea::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const QRect ad = adRect();
    FocusRing::draw(*this, ad.isEmpty() ? rect() : ad, painter, CornerRadius);
}

void LinkArea::enterEvent(QEnterEvent *event) {
    updateCursor(event->position().toPoint());
    AdArea::enterEvent(event);
}

void LinkArea::mouseMoveEvent(QMouseEvent *event) {
    updateCursor(event->position().toPoint());
    AdArea::mouseMoveEvent(event);
}

} // namespace velmora
