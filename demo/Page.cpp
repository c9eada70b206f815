// SPDX-License-Identifier: Apache-2.0
#include "demo/Page.h"

#include "demo/Theme.h"

#include <QtCore/QChildEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QVBoxLayout>

namespace demo {

namespace {
constexpr int GapAboveBanner = 8;
const QString BannerName = QStringLiteral("bannerView");
} // namespace

Page::Page(QWidget *parent) : QWidget(parent), m_column(new QVBoxLayout(this)) {
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(0);
}

void Page::childEvent(QChildEvent *event) {
    // The framework names the view before it adds it.
    if (event->added() && event->child()->objectName() == BannerName) {
        m_banner = qobject_cast<QWidget *>(event->child());
        event->child()->installEventFilter(this);
    } else if (event->removed() && (!m_banner || event->child() == m_banner)) {
        m_banner = nullptr;
        makeRoom();
    }
    QWidget::childEvent(event);
}

bool Page::eventFilter(QObject *watched, QEvent *event) {
    if (watched == m_banner) {
        switch (event->type()) {
        case QEvent::Show:
        case QEvent::Hide:
        case QEvent::Move:
        case QEvent::Resize:
            makeRoom();
            break;
        default:
            break;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void Page::makeRoom() {
    const bool there = m_banner && !m_banner->isHidden();
    const int room = there ? qMax(0, height() - m_banner->y() + GapAboveBanner) : 0;
    // A short window keeps a third for its text, even if the banner then covers some of it.
    m_column->setContentsMargins(0, 0, 0, qMin(room, height() * 2 / 3));
    update();
}

void Page::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::Paper);
    const int room = m_column->contentsMargins().bottom();
    if (room <= 0)
        return;
    const QRect shelf(0, height() - room, width(), room);
    painter.fillRect(shelf, theme::PaperShade);
    painter.fillRect(QRect(shelf.left(), shelf.top(), shelf.width(), 1), theme::Line);
}

} // namespace demo
