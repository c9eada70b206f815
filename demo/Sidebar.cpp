// SPDX-License-Identifier: Apache-2.0
#include "demo/Sidebar.h"

#include "demo/EntryDelegate.h"
#include "demo/JournalEntry.h"
#include "demo/Text.h"
#include "demo/Theme.h"

#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QVBoxLayout>

namespace demo {

namespace {

constexpr int HeaderHeight = 84;
constexpr int FooterHeight = 44;
constexpr QRect Mark(20, 22, 36, 36);

} // namespace

Sidebar::Sidebar(QWidget *parent) : QWidget(parent), m_list(new QListWidget(this)) {
    setFixedWidth(Width);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->viewport()->setAutoFillBackground(false);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->setMouseTracking(true);
    m_list->setAccessibleName(Text::of(Text::EntryList));
    m_list->setItemDelegate(new EntryDelegate(m_list));
    for (const JournalEntry &entry : JournalEntry::all())
        new QListWidgetItem(entry.title, m_list);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, HeaderHeight, 0, FooterHeight);
    layout->addWidget(m_list);
    connect(m_list, &QListWidget::currentRowChanged, this, &Sidebar::entryChosen);
}

void Sidebar::setCurrent(int entry) {
    m_list->setCurrentRow(entry);
}

void Sidebar::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setLayoutDirection(Qt::LeftToRight); // as the texts are
    painter.fillRect(rect(), theme::Deep);
    QApplication::windowIcon().paint(&painter, Mark);
    painter.setPen(theme::OnDeep);
    painter.setFont(theme::heading(20));
    painter.drawText(QRectF(68, 20, width() - 80, 24), Qt::AlignLeft | Qt::AlignVCenter,
                     Text::of(Text::ApplicationName));
    painter.setPen(theme::OnDeepSoft);
    painter.setFont(theme::text(12));
    painter.drawText(QRectF(68, 43, width() - 80, 18), Qt::AlignLeft | Qt::AlignVCenter,
                     Text::of(Text::ApplicationSubtitle));
    painter.drawText(QRectF(20, height() - FooterHeight, width() - 40, FooterHeight),
                     Qt::AlignLeft | Qt::AlignVCenter,
                     Text::of(Text::EntryCount).arg(JournalEntry::all().size()));
}

} // namespace demo
