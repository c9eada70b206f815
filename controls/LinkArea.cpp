// SPDX-License-Identifier: Apache-2.0
#include "LinkArea.h"

#include "FocusRing.h"

#include <QtGui/QPainter>

namespace velmora {

namespace {
constexpr double CornerRadius = 4;
}

LinkArea::LinkArea(QWidget *parent) : QAbstractButton(parent) {
    setLeadsSomewhere(false);
}

void LinkArea::setLeadsSomewhere(bool leads) {
    setFocusPolicy(leads ? Qt::TabFocus : Qt::NoFocus);
    if (!leads)
        clearFocus();
    setCursor(leads ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void LinkArea::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    FocusRing::draw(*this, painter, CornerRadius);
}

} // namespace velmora
