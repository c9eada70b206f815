// SPDX-License-Identifier: Apache-2.0
#include "demo/NoteEditor.h"

#include "demo/Text.h"
#include "demo/Theme.h"

#include <QtCore/QRegularExpression>
#include <QtGui/QResizeEvent>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace demo {

namespace {

constexpr int WidestColumn = 660;
constexpr int NarrowWidth = 560;

QString look() {
    return QStringLiteral("QLineEdit, QPlainTextEdit { background: transparent; border: none;"
                          " color: %1; selection-background-color: %2; selection-color: %3; }")
        .arg(theme::Ink.name(), theme::Accent.name(), theme::OnAccent.name());
}

} // namespace

NoteEditor::NoteEditor(QWidget *parent)
    : QWidget(parent),
      m_layout(new QVBoxLayout(this)),
      m_title(new QLineEdit),
      m_text(new QPlainTextEdit) {
    setStyleSheet(look());
    auto *hint = new QLabel(Text::of(Text::NoteHint));
    hint->setWordWrap(true);
    hint->setFont(theme::text(13));
    QPalette palette = hint->palette();
    palette.setColor(QPalette::WindowText, theme::InkSoft);
    hint->setPalette(palette);
    m_title->setFont(theme::heading(25));
    m_title->setPlaceholderText(Text::of(Text::NoteTitle));
    m_title->setAccessibleName(Text::of(Text::NoteTitle));
    m_text->setObjectName(QStringLiteral("noteText"));
    m_text->setFont(theme::text(15));
    m_text->setPlaceholderText(Text::of(Text::NoteText));
    m_text->setAccessibleName(Text::of(Text::NoteText));
    m_text->document()->setDocumentMargin(0);
    m_text->setTabChangesFocus(true);
    m_layout->setSpacing(12);
    m_layout->addWidget(m_title);
    m_layout->addWidget(m_text, 1);
    m_layout->addWidget(hint);
    setFocusProxy(m_text);
    connect(m_text, &QPlainTextEdit::textChanged, this, &NoteEditor::wordsChanged);
}

int NoteEditor::words() const {
    static const QRegularExpression space(QStringLiteral("\\s+"));
    return int(m_text->toPlainText().split(space, Qt::SkipEmptyParts).size());
}

void NoteEditor::resizeEvent(QResizeEvent *event) {
    const int width = event->size().width();
    const int side = std::max(width < NarrowWidth ? 20 : 48, (width - WidestColumn) / 2);
    m_layout->setContentsMargins(side, 14, side, 16);
    QWidget::resizeEvent(event);
}

} // namespace demo
