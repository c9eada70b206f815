// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QMainWindow>

class QDockWidget;
class QLabel;
class QToolButton;

namespace demo {

class Advertising;
class ArticleView;
class ControlPanel;
class Page;
class Sidebar;

/// One window of the journal: entries at the left, the open one in the middle and, on demand,
/// the advertising panel at the right.
class JournalWindow : public QMainWindow {
    Q_OBJECT

public:
    static constexpr QSize DefaultSize{1180, 760};
    static constexpr QSize SmallestSize{480, 360};

    explicit JournalWindow(Advertising &advertising);

    Page *page() const { return m_page; }
    ControlPanel *panel() const { return m_panel; }

    /// Opens or closes the advertising panel. Where the screen has room the window grows, so
    /// that the page keeps its width.
    void setPanelShown(bool shown);

    /// A line at the bottom of the window, for some seconds.
    void say(const QString &message);

Q_SIGNALS:
    void secondWindowWanted();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QWidget *newHeader();
    QToolButton *newHeaderButton(const QString &text, const QString &name);
    QDockWidget *newSide(QWidget *content, Qt::DockWidgetArea area);
    /// The reader goes to another entry; entries wrap around.
    void turnTo(int entry);
    void openEntry(int entry);
    void makeRoom();

    Advertising &m_advertising;
    Page *m_page;
    Sidebar *m_sidebar;
    ControlPanel *m_panel;
    ArticleView *m_article;
    QLabel *m_position = nullptr;
    QLabel *m_words = nullptr;
    QToolButton *m_panelButton = nullptr;
    QDockWidget *m_sidebarDock;
    QDockWidget *m_panelDock;
    int m_entry = -1;
};

} // namespace demo
