// SPDX-License-Identifier: Apache-2.0
#include "Elements.h"
#include "Hosts.h"

#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QTabWidget>

namespace gallery {

namespace {

QScrollArea *makeScrollArea() {
    auto *area = new QScrollArea;
    auto *page = new Filled<QWidget>;
    page->setMinimumSize(2000, 2000);
    area->setWidget(page);
    return area;
}

void openTabs(Gallery &gallery) {
    auto *window = marked(new QWidget);
    auto *tabs = new QTabWidget;
    tabs->addTab(makeScrollArea(), QStringLiteral("Scrolled"));
    tabs->addTab(makeForm(), QStringLiteral("Form"));
    fill(window, tabs);
    gallery.add(window);
    window->show();
}

// The window itself is what scrolls.
void openScrollAreaWindow(Gallery &gallery) {
    QScrollArea *area = marked(makeScrollArea());
    gallery.add(area);
    area->show();
}

void openSplitterWindow(Gallery &gallery) {
    auto *panes = marked(new QSplitter);
    panes->addWidget(makeForm());
    panes->addWidget(makeScrollArea());
    gallery.add(panes);
    panes->show();
}

// Splitters and scroll areas are also what a main window has in its middle.
void openInMainWindow(Gallery &gallery, QWidget *central) {
    auto *window = marked(new QMainWindow);
    window->menuBar()->setNativeMenuBar(false);
    window->menuBar()->addMenu(QStringLiteral("File"));
    window->setCentralWidget(central);
    gallery.add(window);
    window->show();
}

void openCentralSplitter(Gallery &gallery) {
    auto *panes = new QSplitter;
    panes->addWidget(makeForm());
    panes->addWidget(makeScrollArea());
    openInMainWindow(gallery, panes);
}

void openCentralScrollArea(Gallery &gallery) {
    openInMainWindow(gallery, makeScrollArea());
}

void openCentralTabs(Gallery &gallery) {
    auto *tabs = new QTabWidget;
    tabs->setTabPosition(QTabWidget::South);
    tabs->addTab(makeForm(), QStringLiteral("Form"));
    openInMainWindow(gallery, tabs);
}

} // namespace

Hosts pageHosts() {
    return {{"Tabs", openTabs},
            {"ScrollAreaWindow", openScrollAreaWindow},
            {"SplitterWindow", openSplitterWindow},
            {"CentralSplitter", openCentralSplitter},
            {"CentralScrollArea", openCentralScrollArea},
            {"CentralTabs", openCentralTabs}};
}

} // namespace gallery
