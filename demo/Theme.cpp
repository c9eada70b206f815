// SPDX-License-Identifier: Apache-2.0
#include "demo/Theme.h"

#include <QtGui/QPalette>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleFactory>

namespace demo::theme {

namespace {

QFont face(const QStringList &families, int size, QFont::Weight weight) {
    QFont font;
    font.setFamilies(families);
    font.setPixelSize(size);
    font.setWeight(weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace

QFont text(int size, QFont::Weight weight) {
    return face({QStringLiteral("Inter"), QStringLiteral("DejaVu Sans")}, size, weight);
}

QFont heading(int size, QFont::Weight weight) {
    QFont font = face(
        {QStringLiteral("Inter Display"), QStringLiteral("Inter"), QStringLiteral("DejaVu Sans")},
        size, weight);
    font.setLetterSpacing(QFont::PercentageSpacing, 98.5);
    return font;
}

QFont label(int size) {
    QFont font = text(size, QFont::DemiBold);
    font.setCapitalization(QFont::AllUppercase);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0.8);
    return font;
}

void applyTo(QApplication &application) {
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QPalette palette(PaperShade, Paper);
    palette.setColor(QPalette::Window, Paper);
    palette.setColor(QPalette::WindowText, Ink);
    palette.setColor(QPalette::Button, QColor(Qt::white));
    palette.setColor(QPalette::Base, QColor(Qt::white));
    palette.setColor(QPalette::AlternateBase, PaperShade);
    palette.setColor(QPalette::Text, Ink);
    palette.setColor(QPalette::ButtonText, Ink);
    palette.setColor(QPalette::PlaceholderText, InkSoft);
    palette.setColor(QPalette::Highlight, Accent);
    palette.setColor(QPalette::HighlightedText, QColor(Qt::white));
    palette.setColor(QPalette::Link, Accent);
    palette.setColor(QPalette::ToolTipBase, Deep);
    palette.setColor(QPalette::ToolTipText, OnDeep);
    application.setPalette(palette);
    application.setFont(text(13));
}

} // namespace demo::theme
