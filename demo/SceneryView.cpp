// SPDX-License-Identifier: Apache-2.0
#include "demo/SceneryView.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace demo {

namespace {
constexpr double CornerRadius = 10;
}

SceneryView::SceneryView(QWidget *parent) : QWidget(parent) {
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void SceneryView::setScenery(const Scenery &scenery) {
    m_scenery = scenery;
    m_drawn = QPixmap();
    update();
}

void SceneryView::resizeEvent(QResizeEvent *event) {
    m_drawn = QPixmap();
    QWidget::resizeEvent(event);
}

void SceneryView::paintEvent(QPaintEvent *) {
    if (m_drawn.isNull()) {
        const double ratio = devicePixelRatioF();
        m_drawn = QPixmap((QSizeF(size()) * ratio).toSize());
        m_drawn.setDevicePixelRatio(ratio);
        m_drawn.fill(Qt::transparent);
        QPainter painter(&m_drawn);
        m_scenery.paint(painter, rect());
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QBrush picture(m_drawn);
    painter.setBrush(picture);
    painter.drawRoundedRect(rect(), CornerRadius, CornerRadius);
}

} // namespace demo
