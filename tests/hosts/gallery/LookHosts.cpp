// SPDX-License-Identifier: Apache-2.0
#include "Elements.h"
#include "Hosts.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleFactory>

namespace gallery {

namespace {

void openForm(Gallery &gallery) {
    auto *window = new QWidget;
    window->resize(720, 540);
    fill(window, makeForm());
    gallery.add(window);
    window->show();
}

void openStyleSheet(Gallery &gallery) {
    qApp->setStyleSheet(QStringLiteral(
        "* { font: italic 17pt 'DejaVu Sans'; }"
        "QWidget { background-color: #202830; color: #d0ffd0; }"
        "QLabel { padding: 8px; border: 3px solid #00ff00; background-color: #604000; }"
        "QPushButton { border: 4px dashed #ffff00; min-width: 160px; padding: 12px; }"
        "QAbstractButton { background-color: #004060; }"
        "QFrame { border: 2px solid red; margin: 4px; }"));
    openForm(gallery);
}

// The colours of a dark or light look in the style Fusion.
void useColors(const QColor &background, const QColor &base, const QColor &text,
               const QColor &highlight) {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QPalette palette;
    for (QPalette::ColorRole role :
         {QPalette::Window, QPalette::Button, QPalette::AlternateBase, QPalette::ToolTipBase})
        palette.setColor(role, background);
    palette.setColor(QPalette::Base, base);
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                                     QPalette::BrightText, QPalette::ToolTipText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, background);
    palette.setColor(QPalette::Link, highlight);
    QApplication::setPalette(palette);
}

void openFusionDark(Gallery &gallery) {
    useColors(QColor(45, 45, 48), QColor(30, 30, 30), Qt::white, QColor(42, 130, 218));
    openForm(gallery);
}

void openHighContrast(Gallery &gallery) {
    useColors(Qt::black, Qt::black, Qt::yellow, Qt::cyan);
    openForm(gallery);
}

void openLargeFont(Gallery &gallery) {
    QFont font = QApplication::font();
    font.setPointSize(18);
    QApplication::setFont(font);
    openForm(gallery);
}

void openRightToLeft(Gallery &gallery) {
    QApplication::setLayoutDirection(Qt::RightToLeft);
    openForm(gallery);
}

} // namespace

Hosts lookHosts() {
    return {{"StyleSheet", openStyleSheet},
            {"FusionDark", openFusionDark},
            {"HighContrast", openHighContrast},
            {"LargeFont", openLargeFont},
            {"RightToLeft", openRightToLeft}};
}

} // namespace gallery
