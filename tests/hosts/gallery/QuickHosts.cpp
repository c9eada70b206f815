// SPDX-License-Identifier: Apache-2.0
#include "Elements.h"
#include "Hosts.h"

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

} // namespace

Hosts quickHosts() {
    return {{"QuickWidget", openQuickWidget}, {"QuickViewContainer", openQuickViewContainer}};
}

} // namespace gallery
