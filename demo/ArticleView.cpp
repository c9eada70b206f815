// SPDX-License-Identifier: Apache-2.0
#include "demo/ArticleView.h"

#include "demo/JournalEntry.h"
#include "demo/SceneryView.h"
#include "demo/ScrollFade.h"
#include "demo/Theme.h"

#include <QtGui/QResizeEvent>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace demo {

namespace {

constexpr int WidestColumn = 660;
constexpr int NarrowWidth = 560;

QLabel *newLabel(const QFont &font, const QColor &color) {
    auto *label = new QLabel;
    label->setFont(font);
    label->setWordWrap(true);
    label->setTextFormat(Qt::RichText);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, color);
    label->setPalette(palette);
    return label;
}

QString withLineHeight(const QStringList &paragraphs, int percent) {
    QString html;
    for (const QString &paragraph : paragraphs)
        html += QStringLiteral("<p style='margin:0 0 12px 0; line-height:%1%'>%2</p>")
                    .arg(percent)
                    .arg(paragraph.toHtmlEscaped());
    return html;
}

} // namespace

ArticleView::ArticleView(QWidget *parent)
    : QScrollArea(parent),
      m_column(new QWidget),
      m_layout(new QVBoxLayout(m_column)),
      m_place(newLabel(theme::label(12), theme::Accent)),
      m_title(newLabel(theme::heading(32), theme::Ink)),
      m_facts(newLabel(theme::text(13, QFont::Medium), theme::InkSoft)),
      m_lead(newLabel(theme::text(18, QFont::Medium), theme::Ink)),
      m_text(newLabel(theme::text(15), theme::Ink)),
      m_picture(new SceneryView),
      m_fade(new ScrollFade(this)) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_layout->setSpacing(0);
    m_layout->addWidget(m_place);
    m_layout->addSpacing(6);
    m_layout->addWidget(m_title);
    m_layout->addSpacing(16);
    m_layout->addWidget(m_picture);
    m_layout->addSpacing(12);
    m_layout->addWidget(m_facts);
    m_layout->addSpacing(18);
    m_layout->addWidget(m_lead);
    m_layout->addSpacing(12);
    m_layout->addWidget(m_text);
    m_layout->addStretch();
    setWidget(m_column);
}

void ArticleView::show(const JournalEntry &entry) {
    m_place->setText(entry.place.toHtmlEscaped());
    m_title->setText(withLineHeight({entry.title}, 108));
    m_picture->setScenery(entry.scenery);
    m_facts->setText(QStringList{entry.date, entry.weather, entry.distance}.join(
        QStringLiteral("&nbsp;&nbsp;·&nbsp;&nbsp;")));
    m_lead->setText(withLineHeight({entry.lead}, 130));
    m_text->setText(withLineHeight(entry.paragraphs, 150));
    verticalScrollBar()->setValue(0);
}

void ArticleView::setTextSizes(int width) {
    const bool narrow = width < NarrowWidth;
    m_title->setFont(theme::heading(narrow ? 25 : 32));
    m_lead->setFont(theme::text(narrow ? 16 : 18, QFont::Medium));
    m_text->setFont(theme::text(narrow ? 14 : 15));
}

void ArticleView::resizeEvent(QResizeEvent *event) {
    const int width = event->size().width();
    const int side = std::max(width < NarrowWidth ? 20 : 48, (width - WidestColumn) / 2);
    m_layout->setContentsMargins(side, 14, side, 24);
    if ((event->oldSize().width() < NarrowWidth) != (width < NarrowWidth) ||
        event->oldSize().width() <= 0)
        setTextSizes(width);
    m_fade->setGeometry(0, height() - ScrollFade::Height, width, ScrollFade::Height);
    m_fade->raise();
    QScrollArea::resizeEvent(event);
}

} // namespace demo
