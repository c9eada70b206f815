// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QMainWindow>

class QDockWidget;
class QLabel;
class QStackedWidget;
class QToolButton;

namespace demo {

class Advertising;
class ArticleView;
class ControlPanel;
class NoteEditor;
class Page;
class Sidebar;

/// A window of the journal: the list of entries at the left, the open entry in the middle, or
/// the note that the reader writes, and, when it is switched on, the advertising panel at the
/// right.
class JournalWindow : public QMainWindow {
    Q_OBJECT

public:
    static constexpr QSize DefaultSize{1180, 760};
    static constexpr QSize SmallestSize{480, 360};

    explicit JournalWindow(Advertising &advertising);

    Page *page() const { return m_page; }

    /// Shows or hides the advertising panel. The window grows and shrinks with it, so that the page
    /// keeps its width, unless the screen is too narrow for that.
    void setPanelShown(bool shown);

    /// Shows a message in the status bar for some seconds.
    void showMessage(const QString &message);

Q_SIGNALS:
    void secondWindowWanted();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QWidget *newHeader();
    QToolButton *newHeaderButton(const QString &text, const QString &name);
    QDockWidget *newSide(QWidget *content, Qt::DockWidgetArea area);
    /// Opens another entry on the reader's behalf. Numbers wrap around.
    void turnTo(int entry);
    void openEntry(int entry);
    void makeRoom();
    /// Changes between the open entry and the note that the reader writes.
    void setNoteShown(bool shown);
    void showWords();

    Advertising &m_advertising;
    Page *m_page;
    Sidebar *m_sidebar;
    ControlPanel *m_panel;
    ArticleView *m_article;
    NoteEditor *m_note;
    QStackedWidget *m_content;
    QLabel *m_position = nullptr;
    QLabel *m_words = nullptr;
    QToolButton *m_noteButton = nullptr;
    QToolButton *m_panelButton = nullptr;
    QDockWidget *m_sidebarDock;
    QDockWidget *m_panelDock;
    int m_entry = -1;
};

} // namespace demo
