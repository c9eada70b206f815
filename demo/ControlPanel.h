// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/Text.h"

#include <QtWidgets/QWidget>

class QButtonGroup;
class QStackedWidget;

namespace demo {

class Advertising;
class JournalWindow;

/// The panel for developers: pages with controls for everything that the framework offers, and
/// below them the list of events.
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
    void addPage(QWidget *page, Text::Key title, const QString &name);
    QWidget *newLog(Advertising &advertising);

    QButtonGroup *m_tabs;
    QStackedWidget *m_pages;
};

} // namespace demo
