// SPDX-License-Identifier: Apache-2.0
#include "demo/JournalWindow.h"

#include "demo/Advertising.h"
#include "demo/ArticleView.h"
#include "demo/ControlPanel.h"
#include "demo/JournalEntry.h"
#include "demo/NoteEditor.h"
#include "demo/Page.h"
#include "demo/Sidebar.h"
#include "demo/Text.h"
#include "demo/Theme.h"

#include <QtGui/QScreen>
#include <QtGui/QShortcut>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolButton>

namespace demo {

namespace {

constexpr int LeastWidthWithSidebar = 720;
constexpr int PanelHeight = 620;
constexpr int MessageMs = 6000;

QLabel *newStatusLabel() {
    auto *note = new QLabel;
    note->setFont(theme::text(13));
    QPalette palette = note->palette();
    palette.setColor(QPalette::WindowText, theme::InkSoft);
    note->setPalette(palette);
    return note;
}

QString look() {
    return QStringLiteral(
               "QMainWindow::separator { width: 0px; height: 0px; }"
               "QStatusBar { background: %1; color: %2; border-top: 1px solid %3; }"
               "QStatusBar::item { border: none; }"
               "#header { background: %4; }"
               "#header QToolButton { border: 1px solid transparent; border-radius: 6px;"
               " padding: 4px 10px; color: %2; }"
               "#header QToolButton:hover { background: %1; }"
               "#header QToolButton:disabled { color: %3; }"
               "#header QToolButton:checked { background: %5; color: %7; }"
               "#header QToolButton:focus { border-color: %5; }"
               "QScrollBar:vertical { background: transparent; width: 10px; margin: 2px; }"
               "QScrollBar::handle:vertical { background: %6; border-radius: 3px;"
               " min-height: 30px; }"
               "QScrollBar::add-line, QScrollBar::sub-line { height: 0px; }"
               "QScrollBar::add-page, QScrollBar::sub-page { background: none; }")
        .arg(theme::PaperShade.name(), theme::InkSoft.name(), theme::Line.name(),
             theme::Paper.name(), theme::Accent.name(), theme::LineStrong.name(),
             theme::OnAccent.name());
}

} // namespace

JournalWindow::JournalWindow(Advertising &advertising)
    : m_advertising(advertising),
      m_page(new Page),
      m_sidebar(new Sidebar),
      m_panel(new ControlPanel(advertising, this)),
      m_article(new ArticleView),
      m_note(new NoteEditor),
      m_content(new QStackedWidget) {
    setWindowTitle(Text::of(Text::ApplicationName));
    setStyleSheet(look());
    m_page->column()->addWidget(newHeader());
    m_content->addWidget(m_article);
    m_content->addWidget(m_note);
    m_page->column()->addWidget(m_content, 1);
    setCentralWidget(m_page);
    m_sidebarDock = newSide(m_sidebar, Qt::LeftDockWidgetArea);
    m_panelDock = newSide(m_panel, Qt::RightDockWidgetArea);
    m_panelDock->hide();

    m_words = newStatusLabel();
    m_words->setContentsMargins(8, 0, 12, 0);
    statusBar()->setSizeGripEnabled(false);
    statusBar()->addPermanentWidget(m_words);

    connect(m_sidebar, &Sidebar::entryChosen, this, &JournalWindow::turnTo);
    connect(m_note, &NoteEditor::wordsChanged, this, &JournalWindow::showWords);
    connect(m_panel, &ControlPanel::secondWindowWanted, this, &JournalWindow::secondWindowWanted);
    connect(new QShortcut(QKeySequence::New, this), &QShortcut::activated, this,
            &JournalWindow::secondWindowWanted);
    setMinimumSize(SmallestSize);
    resize(DefaultSize);
    openEntry(0);
    m_article->setFocus();
}

QToolButton *JournalWindow::newHeaderButton(const QString &text, const QString &name) {
    auto *button = new QToolButton;
    button->setText(text);
    button->setAccessibleName(name);
    button->setToolTip(name);
    button->setFont(theme::text(13, QFont::Medium));
    return button;
}

QWidget *JournalWindow::newHeader() {
    auto *header = new QWidget;
    header->setObjectName(QStringLiteral("header"));
    header->setAttribute(Qt::WA_StyledBackground);
    QToolButton *back = newHeaderButton(QStringLiteral("‹"), Text::of(Text::PreviousEntry));
    QToolButton *forward = newHeaderButton(QStringLiteral("›"), Text::of(Text::NextEntry));
    forward->setObjectName(QStringLiteral("nextButton"));
    m_panelButton = newHeaderButton(Text::of(Text::PanelButton), Text::of(Text::PanelButtonHint));
    m_panelButton->setObjectName(QStringLiteral("panelButton"));
    m_panelButton->setCheckable(true);
    m_panelButton->setShortcut(QKeySequence(Qt::Key_F9));
    m_noteButton = newHeaderButton(Text::of(Text::NoteButton), Text::of(Text::NoteButtonHint));
    m_noteButton->setObjectName(QStringLiteral("noteButton"));
    m_noteButton->setCheckable(true);
    m_position = newStatusLabel();

    auto *layout = new QHBoxLayout(header);
    layout->setContentsMargins(14, 10, 14, 6);
    layout->setSpacing(2);
    layout->addWidget(back);
    layout->addWidget(forward);
    layout->addSpacing(8);
    layout->addWidget(m_position);
    layout->addStretch();
    layout->addWidget(m_noteButton);
    layout->addWidget(m_panelButton);

    connect(back, &QToolButton::clicked, this, [this] { turnTo(m_entry - 1); });
    connect(forward, &QToolButton::clicked, this, [this] { turnTo(m_entry + 1); });
    connect(m_noteButton, &QToolButton::toggled, this, &JournalWindow::setNoteShown);
    connect(m_panelButton, &QToolButton::toggled, this, &JournalWindow::setPanelShown);
    return header;
}

QDockWidget *JournalWindow::newSide(QWidget *content, Qt::DockWidgetArea area) {
    auto *dock = new QDockWidget;
    dock->setObjectName(area == Qt::LeftDockWidgetArea ? QStringLiteral("sidebarDock")
                                                       : QStringLiteral("panelDock"));
    dock->setFeatures(QDockWidget::NoDockWidgetFeatures);
    dock->setTitleBarWidget(new QWidget);
    dock->setWidget(content);
    addDockWidget(area, dock);
    return dock;
}

void JournalWindow::turnTo(int entry) {
    const int count = int(JournalEntry::all().size());
    const int wanted = (entry + count) % count;
    if (wanted == m_entry && !m_noteButton->isChecked())
        return;
    openEntry(wanted);
    m_advertising.pageTurned();
}

void JournalWindow::openEntry(int entry) {
    const int count = int(JournalEntry::all().size());
    m_entry = entry;
    const JournalEntry &shown = JournalEntry::all().at(m_entry);
    m_article->show(shown);
    m_sidebar->setCurrent(m_entry);
    m_position->setText(Text::of(Text::EntryPosition).arg(m_entry + 1).arg(count));
    m_noteButton->setChecked(false);
    showWords();
}

void JournalWindow::setNoteShown(bool shown) {
    QWidget *content = shown ? static_cast<QWidget *>(m_note) : m_article;
    m_content->setCurrentWidget(content);
    content->setFocus();
    showWords();
}

void JournalWindow::showWords() {
    const int words =
        m_noteButton->isChecked() ? m_note->words() : JournalEntry::all().at(m_entry).words();
    m_words->setText(Text::of(Text::WordCount).arg(words));
}

void JournalWindow::setPanelShown(bool shown) {
    m_panelButton->setChecked(shown);
    if (m_panelDock->isHidden() == !shown)
        return;
    const int wanted = width() + (shown ? ControlPanel::Width : -ControlPanel::Width);
    m_panelDock->setVisible(shown);
    setMinimumSize(shown ? QSize(SmallestSize.width() + ControlPanel::Width, PanelHeight)
                         : SmallestSize);
    if (!isMaximized() && !isFullScreen() && wanted <= screen()->availableGeometry().width())
        resize(wanted, height());
    makeRoom();
}

void JournalWindow::makeRoom() {
    const int panel = m_panelDock->isHidden() ? 0 : ControlPanel::Width;
    m_sidebarDock->setVisible(width() - panel >= LeastWidthWithSidebar);
}

void JournalWindow::showMessage(const QString &message) {
    statusBar()->showMessage(QStringLiteral("  ") + message, MessageMs);
}

void JournalWindow::resizeEvent(QResizeEvent *event) {
    QMainWindow::resizeEvent(event);
    makeRoom();
}

} // namespace demo
