// SPDX-License-Identifier: Apache-2.0
#include "demo/Page.h"

#include "demo/Theme.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QVBoxLayout>

namespace demo {

namespace {
constexpr int GapAboveBanner = 8;
}

Page::Page(QWidget *parent) : QWidget(parent), m_column(new QVBoxLayout(this)) {
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(0);
}

QWidget *Page::banner() const {
    return findChild<QWidget *>(QStringLiteral("bannerView"), Qt::FindDirectChildrenOnly);
}

bool Page::event(QEvent *event) {
    if (event->type() == QEvent::ContentsRectChange)
        m_column->setContentsMargins(0, 0, 0, contentsMargins().bottom() > 0 ? GapAboveBanner : 0);
    return QWidget::event(event);
}

void Page::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::Paper);
    const int room = contentsMargins().bottom();
    if (room <= 0)
        return;
    const QRect shelf = rect().adjusted(0, height() - room - GapAboveBanner, 0, 0);
    painter.fillRect(shelf, theme::PaperShade);
    painter.fillRect(QRect(shelf.left(), shelf.top(), shelf.width(), 1), theme::Line);
}

} // namespace demo
