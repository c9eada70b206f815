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

void useDarkColors() {
    Paper = QColor(0x1d, 0x22, 0x24);
    PaperShade = QColor(0x16, 0x1a, 0x1c);
    Surface = QColor(0x29, 0x2f, 0x32);
    Line = QColor(0x3a, 0x42, 0x45);
    LineStrong = QColor(0x73, 0x7d, 0x80);
    Ink = QColor(0xec, 0xe8, 0xdf);
    InkSoft = QColor(0xa9, 0xad, 0xab);
    Deep = QColor(0x10, 0x20, 0x25);
    DeepRaised = QColor(0x1d, 0x38, 0x3f);
    Accent = QColor(0xe0, 0x84, 0x66);
    OnAccent = QColor(0x1d, 0x12, 0x0e);
    AccentDark = QColor(0xee, 0x9d, 0x82);
}

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
    palette.setColor(QPalette::Button, Surface);
    palette.setColor(QPalette::Base, Surface);
    palette.setColor(QPalette::AlternateBase, PaperShade);
    palette.setColor(QPalette::Text, Ink);
    palette.setColor(QPalette::ButtonText, Ink);
    palette.setColor(QPalette::PlaceholderText, InkSoft);
    palette.setColor(QPalette::Highlight, Accent);
    palette.setColor(QPalette::HighlightedText, OnAccent);
    palette.setColor(QPalette::Link, Accent);
    palette.setColor(QPalette::ToolTipBase, Deep);
    palette.setColor(QPalette::ToolTipText, OnDeep);
    application.setPalette(palette);
    application.setFont(text(13));
}

} // namespace demo::theme
