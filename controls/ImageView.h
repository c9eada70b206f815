// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QColor>
#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

#include <memory>

namespace velmora {

class FrameDecoder;
class PicturePlayer;

/// Shows one image in the middle of its rectangle, and around it nothing or a colour
/// (letterboxColor; invalid by default). Takes no clicks. Main thread only.
class ImageView : public QWidget {
    Q_OBJECT
    Q_PROPERTY(unsigned imageScaling READ imageScaling WRITE setImageScaling)
    Q_PROPERTY(QColor letterboxColor MEMBER m_letterboxColor)

public:
    /// How the image is fitted to the view. Any other number counts as the first.
    enum Scaling : unsigned {
        ScaleProportionallyDown = 0,     ///< smaller when it has to be, its shape kept
        ScaleAxesIndependently = 1,      ///< to the view's size, its shape not kept
        ScaleNone = 2,                   ///< its own size; what is outside is cut off
        ScaleProportionallyUpOrDown = 3, ///< as large as it fits, its shape kept
    };

    explicit ImageView(QWidget *parent = nullptr);
    ~ImageView() override;

    /// The image; null for a picture file.
    const QImage &image() const { return m_image; }
    bool hasImage() const { return !m_imageSize.isEmpty(); }
    /// Shows an image; nothing when it is null. A large one is scaled to the view on another
    /// thread.
    void setImage(const QImage &image);

    /// Shows a picture file, which is decoded on another thread when the view is drawn; nothing,
    /// and a log line, when PictureFile refuses it or it can't be decoded.
    void setImageFile(const QString &path);

    unsigned imageScaling() const { return m_scaling; }
    void setImageScaling(unsigned scaling);

    /// Where the image is, in the view's coordinates; empty without an image.
    QRectF imageRect() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void play(std::shared_ptr<FrameDecoder> decoder);
    QPixmap scaledTo(const QSize &pixels);

    QImage m_image;     // null for a file
    QSizeF m_imageSize; // in device-independent pixels
    unsigned m_scaling = ScaleProportionallyDown;
    QColor m_letterboxColor;
    QPixmap m_scaled; // of m_image
    std::unique_ptr<PicturePlayer> m_player;
};

} // namespace velmora
