// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

namespace velmora {

/// Shows one image in the middle of its rectangle. Takes no clicks. Main thread only.
class ImageView : public QWidget {
    Q_OBJECT
    Q_PROPERTY(unsigned imageScaling READ imageScaling WRITE setImageScaling)

public:
    /// How the image is fitted to the view. Any other number counts as the first.
    enum Scaling : unsigned {
        ScaleProportionallyDown = 0,     ///< smaller when it has to be, its shape kept
        ScaleAxesIndependently = 1,      ///< to the view's size, its shape not kept
        ScaleNone = 2,                   ///< its own size; what is outside is cut off
        ScaleProportionallyUpOrDown = 3, ///< as large as it fits, its shape kept
    };

    explicit ImageView(QWidget *parent = nullptr);

    const QImage &image() const { return m_image; }
    /// A null image shows nothing.
    void setImage(const QImage &image);

    /// Shows a picture file, which is read now; nothing, and a log line, when it cannot be read or
    /// declares more than 100 million pixels. A picture larger than a screen is read at a screen's
    /// size.
    void setImageFile(const QString &path);

    unsigned imageScaling() const { return m_scaling; }
    void setImageScaling(unsigned scaling);

    /// Where the image is, in the view's coordinates; empty without an image.
    QRectF imageRect() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QImage m_image;
    unsigned m_scaling = ScaleProportionallyDown;
    QPixmap m_scaled;
};

} // namespace velmora
