// SPDX-License-Identifier: Apache-2.0
#include "AdMark.h"

#include <Velmora/Support.h>

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

#include <cmath>

namespace velmora {

namespace {

// As parts of the text's size.
constexpr double SidePadding = 0.55;
constexpr double CornerRadius = 0.4;

// White text on it has a contrast of 9:1 over a white picture.
constexpr QColor Background(0x10, 0x13, 0x18, 200);
constexpr QColor Rim(255, 255, 255, 90);

QString label() {
    return VLMStringFromKey(QStringLiteral("AdMarkText"));
}

} // namespace

AdMark::AdMark(QWidget *parent) : TextField(parent) {
    setText(label());
    setTextColor(Qt::white);
    setTextWeight(QFont::DemiBold);
    // It lies on an ad that has the cursor of a link.
    setCursor(Qt::ArrowCursor);
}

void AdMark::setSeconds(const QString &seconds) {
    setText(seconds.isEmpty() ? label() : QStringLiteral("%1 \u00b7 %2").arg(label(), seconds));
}

QSize AdMark::sizeHint() const {
    QString widest = text();
    for (QChar &letter : widest) {
        if (letter.isDigit())
            letter = QLatin1Char('0');
    }
    const QSize room = sizeOf(widest);
    return {room.width() + 2 * int(std::ceil(textSize() * SidePadding)), room.height() + 2};
}

void AdMark::paintEvent(QPaintEvent *) {
    const double density = devicePixelRatioF();
    const QSize pixels = (QSizeF(size()) * density).toSize();
    if (m_face.size() != pixels || m_faceText != text() || m_faceFont != textFont()) {
        m_faceText = text();
        m_faceFont = textFont();
        m_face = QPixmap(pixels);
        m_face.setDevicePixelRatio(density);
        m_face.fill(Qt::transparent);
        QPainter painter(&m_face);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(Background);
        painter.setPen(Rim);
        const double radius = textSize() * CornerRadius;
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
        drawText(painter);
    }
    QPainter(this).drawPixmap(0, 0, m_face);
}

void AdMark::mousePressEvent(QMouseEvent *event) {
    event->accept();
}

void AdMark::mouseReleaseEvent(QMouseEvent *event) {
    event->accept();
}

void AdMark::mouseDoubleClickEvent(QMouseEvent *event) {
    event->accept();
}

} // namespace velmora
