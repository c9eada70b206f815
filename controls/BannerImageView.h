// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QPointer>
#include <QtGui/QMovie>
#include <QtWidgets/QAbstractButton>

#include <memory>

namespace velmora {

/// Shows a banner picture with rounded corners; a click anywhere on it is a click on the ad. An
/// animation's frames are decoded only while somebody can see them: each is followed by a redraw,
/// and when that redraw does not come (the view is hidden, covered, scrolled away, its window
/// minimised), decoding rests until the view is drawn again. A picture of one frame is decoded
/// when it is drawn at another size than before. Main thread only.
class BannerImageView : public QAbstractButton {
    Q_OBJECT

public:
    explicit BannerImageView(QWidget *parent = nullptr);
    ~BannerImageView() override;

    /// Shows a picture file, looked at now and decoded when first drawn; the file that is shown
    /// already plays on. An empty path, an unreadable file and one with absurd dimensions leave
    /// the view without an image.
    void setImage(const QString &path);

    /// The picture's size in pixels; empty when there is none.
    QSize imageSize() const { return m_imageSize; }
    bool hasImage() const { return !m_imageSize.isEmpty(); }

    /// The height, in points, that the view has where there is room for it. An animation's frames
    /// are decoded for that height, so that a view squeezed by a narrow window is sharp at once
    /// when the window grows.
    void setNominalHeight(double height);

    /// Frames decoded since the picture was set.
    int decodedFrames() const { return m_decodedFrames; }

    /// Corner radius at a height, points: 4, or 2 where 4 is more than a tenth of the height.
    static double cornerRadius(double height);

Q_SIGNALS:
    /// The button went down: by the mouse, the keyboard or assistive technology. Not emitted again
    /// when the pointer leaves the view and comes back with the mouse button held.
    void wentDown();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    void frameDecoded();
    QSize wantedFrameSize() const;
    void fitFrames();
    QPixmap movieFrame();
    QPixmap stillFrame();
    void drawFrame(QPainter &painter, const QPixmap &frame) const;

    QString m_path;
    /// Null for a picture of one frame.
    std::unique_ptr<QMovie> m_movie;
    QPixmap m_still;
    /// The size that was last decoded for, in pixels, whether or not it gave a picture.
    QSize m_stillSize;
    QSize m_imageSize;
    double m_nominalHeight = 0;
    int m_decodedFrames = 0;
    bool m_drawnSinceFrame = false;
    bool m_isDragged = false;
};

} // namespace velmora
