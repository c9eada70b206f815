// SPDX-License-Identifier: Apache-2.0
#include "Elements.h"
#include "Hosts.h"

#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickView>
#include <QtQuickWidgets/QQuickWidget>

namespace gallery {

namespace {

QUrl page() {
    return QUrl(QStringLiteral("qrc:/Page.qml"));
}

void open(Gallery &gallery, QWidget *content) {
    auto *window = marked(new QWidget);
    content->setObjectName(QStringLiteral("target"));
    fill(window, content);
    gallery.add(window);
    window->show();
}

void openQuickWidget(Gallery &gallery) {
    auto *view = new Clicked<QQuickWidget>;
    view->setResizeMode(QQuickWidget::SizeRootObjectToView);
    view->setSource(page());
    open(gallery, view);
}

void openQuickViewContainer(Gallery &gallery) {
    auto *view = new Clicked<QQuickView>;
    view->setResizeMode(QQuickView::SizeRootObjectToView);
    view->setSource(page());
    open(gallery, QWidget::createWindowContainer(view));
}

void openQuickView(Gallery &gallery) {
    auto *view = new QQuickView;
    view->setResizeMode(QQuickView::SizeRootObjectToView);
    view->setSource(page());
    view->resize(720, 540);
    gallery.add(view);
    view->show();
}

// A window that the host's QML code makes.
void openQuickWindow(Gallery &gallery) {
    static QQmlEngine engine;
    QQmlComponent component(&engine, QUrl(QStringLiteral("qrc:/Window.qml")));
    auto *window = qobject_cast<QQuickWindow *>(component.create());
    gallery.add(window);
    window->show();
}

} // namespace

Hosts quickHosts() {
    return {{"QuickWidget", openQuickWidget},
            {"QuickViewContainer", openQuickViewContainer},
            {"QuickView", openQuickView},
            {"QuickWindow", openQuickWindow}};
}

} // namespace gallery
