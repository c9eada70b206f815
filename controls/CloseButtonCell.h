// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QPixmap>
#include <QtWidgets/QAbstractButton>

namespace velmora {

/// A button that draws its icon in a circle; its whole rectangle takes clicks. Main thread only.
class CloseButtonCell : public QAbstractButton {
    Q_OBJECT

public:
    explicit CloseButtonCell(QWidget *parent = nullptr);

    QSize sizeHint() const override { return {24, 24}; }

    /// Diameter of the circle, in points; the button's own size does not change. Default: as
    /// large as fits into the button.
    void setImageDiameter(double diameter);

    /// Where the image goes in a frame: one point lower on systems whose minor version number
    /// is below 11.
    static QRectF imageFrame(QRectF frame);

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void drawImage(const QRectF &frame, QPainter &painter) const;

    /// The button as it was drawn last, and the QIcon::cacheKey() of the icon in it.
    QPixmap m_face;
    qint64 m_faceKey = 0;
    double m_imageDiameter = 0;
};

} // namespace velmora
