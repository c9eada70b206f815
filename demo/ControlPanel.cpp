// SPDX-License-Identifier: Apache-2.0
#include "demo/ControlPanel.h"

#include "demo/Advertising.h"
#include "demo/EventDelegate.h"
#include "demo/EventLog.h"
#include "demo/JournalWindow.h"
#include "demo/Text.h"
#include "demo/Theme.h"
#include "demo/panel/BannerPage.h"
#include "demo/panel/HostPage.h"
#include "demo/panel/LookPage.h"
#include "demo/panel/ReaderPage.h"
#include "demo/panel/ShowPage.h"
#include "demo/panel/StatePage.h"

#include <QtGui/QPainter>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListView>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

namespace demo {

namespace {

constexpr int Margin = 16;
constexpr int LogHeight = 132;

QString tabLook() {
    return QStringLiteral("#tabs { background: %1; border-radius: 8px; }"
                          "#tabs QToolButton { border: 1px solid transparent; border-radius: 6px;"
                          " padding: 4px 0px; color: %2; }"
                          "#tabs QToolButton:hover { color: %3; }"
                          "#tabs QToolButton:checked { background: %5; color: %3; }"
                          "#tabs QToolButton:focus { border-color: %4; }")
        .arg(theme::Line.name(), theme::InkSoft.name(), theme::Ink.name(), theme::Accent.name(),
             theme::Surface.name());
}

} // namespace

ControlPanel::ControlPanel(Advertising &advertising, JournalWindow *window)
    : m_tabs(new QButtonGroup(this)), m_pages(new QStackedWidget) {
    setFixedWidth(Width);
    setStyleSheet(PanelPage::look() + tabLook());
    auto *title = new QLabel(Text::of(Text::PanelTitle));
    title->setFont(theme::heading(18));
    title->setContentsMargins(Margin, 0, Margin, 0);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 14, 0, 14);
    layout->setSpacing(12);
    layout->addWidget(title);
    layout->addWidget(newTabs());
    layout->addWidget(m_pages, 3);
    layout->addWidget(newLog(advertising), 1);

    auto *host = new HostPage(advertising, window);
    connect(host, &HostPage::secondWindowWanted, this, &ControlPanel::secondWindowWanted);
    addPage(new ShowPage(advertising), Text::PanelShowTab, QStringLiteral("showTab"));
    addPage(new LookPage(window), Text::PanelLookTab, QStringLiteral("lookTab"));
    addPage(new BannerPage(window), Text::PanelBannerTab, QStringLiteral("bannerTab"));
    addPage(host, Text::PanelHostTab, QStringLiteral("hostTab"));
    addPage(new ReaderPage(advertising.reader()), Text::PanelReaderTab,
            QStringLiteral("readerTab"));
    addPage(new StatePage, Text::PanelStateTab, QStringLiteral("stateTab"));
    m_tabs->button(0)->setChecked(true);
    connect(m_tabs, &QButtonGroup::idClicked, m_pages, &QStackedWidget::setCurrentIndex);
}

QWidget *ControlPanel::newTabs() {
    auto *tabs = new QWidget;
    tabs->setObjectName(QStringLiteral("tabs"));
    tabs->setAttribute(Qt::WA_StyledBackground);
    auto *row = new QHBoxLayout(tabs);
    row->setContentsMargins(3, 3, 3, 3);
    row->setSpacing(2);
    auto *inset = new QWidget;
    auto *around = new QHBoxLayout(inset);
    around->setContentsMargins(Margin, 0, Margin, 0);
    around->addWidget(tabs);
    return inset;
}

void ControlPanel::addPage(QWidget *page, Text::Key title, const QString &name) {
    auto *tab = new QToolButton;
    tab->setObjectName(name);
    tab->setText(Text::of(title));
    tab->setCheckable(true);
    tab->setFont(theme::text(12, QFont::Medium));
    tab->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_tabs->addButton(tab, m_pages->addWidget(page));
    findChild<QWidget *>(QStringLiteral("tabs"))->layout()->addWidget(tab);
}

QWidget *ControlPanel::newLog(Advertising &advertising) {
    auto *box = new QWidget;
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(Margin, 0, Margin, 0);
    layout->setSpacing(6);
    layout->addWidget(PanelPage::newCaption(Text::PanelEvents));
    auto *view = new QListView;
    view->setModel(&advertising.log());
    view->setItemDelegate(new EventDelegate(view));
    view->setSelectionMode(QAbstractItemView::NoSelection);
    view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setMinimumHeight(LogHeight);
    view->setAccessibleName(Text::of(Text::PanelEvents));
    connect(&advertising.log(), &EventLog::recorded, view, &QListView::scrollToBottom,
            Qt::QueuedConnection);
    layout->addWidget(view);
    return box;
}

void ControlPanel::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::PaperShade);
    painter.fillRect(QRect(0, 0, 1, height()), theme::Line);
}

} // namespace demo
