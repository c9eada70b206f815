// SPDX-License-Identifier: Apache-2.0
#include "Elements.h"
#include "Hosts.h"

#include <QtWidgets/QDockWidget>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMdiArea>
#include <QtWidgets/QMdiSubWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolBar>

namespace gallery {

namespace {

QMainWindow *makeWindow(Gallery &gallery) {
    auto *window = marked(new QMainWindow, {900, 640});
    window->menuBar()->setNativeMenuBar(false);
    window->menuBar()->addMenu(QStringLiteral("File"))->addAction(QStringLiteral("Open"));
    window->menuBar()->addMenu(QStringLiteral("View"));
    gallery.add(window);
    return window;
}

void addDock(QMainWindow *window, Qt::DockWidgetArea area) {
    auto *dock = new QDockWidget(QStringLiteral("A dock"));
    dock->setWidget(makeForm());
    window->addDockWidget(area, dock);
}

void openDocksAndMdi(Gallery &gallery) {
    QMainWindow *window = makeWindow(gallery);
    QToolBar *tools = window->addToolBar(QStringLiteral("Tools"));
    tools->addAction(QStringLiteral("Back"));
    tools->addAction(QStringLiteral("Forward"));
    tools->addWidget(makeButton());
    addDock(window, Qt::LeftDockWidgetArea);
    auto *documents = new QMdiArea;
    documents->setBackground(Marker);
    window->setCentralWidget(documents);
    documents->addSubWindow(makeForm())->resize(300, 320);
    documents->addSubWindow(new Filled<QWidget>)->resize(300, 320);
    window->statusBar()->showMessage(QStringLiteral("A message of the host"));
    window->show();
    documents->tileSubWindows();
}

void openWithoutCentralWidget(Gallery &gallery) {
    QMainWindow *window = makeWindow(gallery);
    addDock(window, Qt::TopDockWidgetArea);
    window->statusBar()->showMessage(QStringLiteral("A message of the host"));
    window->show();
}

void openSmallCentralWidget(Gallery &gallery) {
    QMainWindow *window = makeWindow(gallery);
    addDock(window, Qt::LeftDockWidgetArea);
    addDock(window, Qt::RightDockWidgetArea);
    auto *small = new Filled<QWidget>;
    small->setFixedSize(260, 120);
    window->setCentralWidget(small);
    window->show();
}

} // namespace

Hosts mainWindowHosts() {
    return {{"DocksAndMdi", openDocksAndMdi},
            {"WithoutCentralWidget", openWithoutCentralWidget},
            {"SmallCentralWidget", openSmallCentralWidget}};
}

} // namespace gallery
