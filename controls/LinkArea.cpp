// SPDX-License-Identifier: Apache-2.0
#include "LinkArea.h"

#include "FocusRing.h"

#include <QtGui/QPainter>

namespace velmora {

namespace {
constexpr double CornerRadius = 4;
}

LinkArea::LinkArea(QWidget *parent) : QAbstractButton(parent) {
    setLinkEnabled(false);
}

void LinkArea::setLinkEnabled(bool enabled) {
    setFocusPolicy(enabled ? Qt::TabFocus : Qt::NoFocus);
    if (!enabled)
        clearFocus();
    setCursor(enabled ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void LinkArea::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    FocusRing::draw(*this, painter, CornerRadius);
}

} // namespace velmora
