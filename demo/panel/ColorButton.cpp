// SPDX-License-Identifier: Apache-2.0
#include "demo/panel/ColorButton.h"

#include "demo/Theme.h"

#include <QtGui/QPainter>
#include <QtWidgets/QColorDialog>

namespace demo {

namespace {
constexpr int SwatchSide = 16;
constexpr int Margin = 9;
} // namespace

ColorButton::ColorButton(const QString &what, const QColor &color)
    : QPushButton(what), m_what(what), m_color(color) {
    setFocusPolicy(Qt::TabFocus);
    setStyleSheet(QStringLiteral("text-align: left; padding-left: %1px;")
                      .arg(Margin + SwatchSide + Margin - 1));
    setColor(color);
    connect(this, &QPushButton::clicked, this, &ColorButton::choose);
}

void ColorButton::setColor(const QColor &color) {
    m_color = color;
    setToolTip(color.name());
    update();
}

void ColorButton::choose() {
    auto *dialog = new QColorDialog(m_color, window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(m_what);
    connect(dialog, &QColorDialog::colorSelected, this, [this](const QColor &color) {
        setColor(color);
        Q_EMIT colorChosen(color);
    });
    dialog->open();
}

void ColorButton::paintEvent(QPaintEvent *event) {
    QPushButton::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme::Ink.lighter(220), 1));
    painter.setBrush(m_color);
    painter.drawRoundedRect(
        QRectF(Margin + 0.5, (height() - SwatchSide) / 2.0, SwatchSide - 1, SwatchSide - 1), 4, 4);
}

} // namespace demo
