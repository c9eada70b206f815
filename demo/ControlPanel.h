// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QWidget>

class QButtonGroup;
class QStackedWidget;

namespace demo {

class Advertising;
class JournalWindow;

/// The developer's panel: everything that the framework offers, to try out, in pages, and the
/// log of what the framework said.
class ControlPanel : public QWidget {
    Q_OBJECT

public:
    static constexpr int Width = 320;

    ControlPanel(Advertising &advertising, JournalWindow *window);

Q_SIGNALS:
    void secondWindowWanted();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *newTabs();
    void addPage(QWidget *page, const QString &title, const QString &name);
    QWidget *newLog(Advertising &advertising);

    QButtonGroup *m_tabs;
    QStackedWidget *m_pages;
};

} // namespace demo
