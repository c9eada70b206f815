// SPDX-License-Identifier: Apache-2.0
#include "Elements.h"
#include "Hosts.h"

namespace gallery {

namespace {

QWidget *makeWindow(Gallery &gallery) {
    auto *window = marked(new QWidget);
    fill(window, makeForm());
    gallery.add(window);
    return window;
}

void openPlain(Gallery &gallery) {
    makeWindow(gallery)->show();
}

void openFrameless(Gallery &gallery) {
    QWidget *window = makeWindow(gallery);
    window->setWindowFlag(Qt::FramelessWindowHint);
    window->show();
}

void openTranslucent(Gallery &gallery) {
    QWidget *window = makeWindow(gallery);
    window->setWindowFlag(Qt::FramelessWindowHint);
    window->setAttribute(Qt::WA_TranslucentBackground);
    window->show();
}

void openOnTop(Gallery &gallery) {
    QWidget *window = makeWindow(gallery);
    window->setWindowFlag(Qt::WindowStaysOnTopHint);
    window->show();
}

void openFullScreen(Gallery &gallery) {
    makeWindow(gallery)->showFullScreen();
}

void openMaximised(Gallery &gallery) {
    makeWindow(gallery)->showMaximized();
}

void openMinimised(Gallery &gallery) {
    QWidget *window = makeWindow(gallery);
    window->showMinimized();
    QTimer::singleShot(500, window, [window] {
        window->showNormal();
        window->activateWindow();
    });
}

} // namespace

Hosts windowStateHosts() {
    return {{"Plain", openPlain},
            {"Frameless", openFrameless},
            {"Translucent", openTranslucent},
            {"OnTop", openOnTop},
            {"FullScreen", openFullScreen},
            {"Maximised", openMaximised},
            {"Minimised", openMinimised}};
}

} // namespace gallery
