// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AdArea.h"
#include "CrossFade.h"

#include <QtGui/QPixmap>

#include <memory>

namespace velmora {

class PicturePlayer;

/// Shows a banner picture with rounded corners; a click anywhere on it is a click on the ad. A new
/// picture fades in over the one before it. Until a moment after it has appeared, clicks are
/// ignored, since the user may have meant the picture before it. Main thread only.
///
/// The frames are decoded on another thread (PicturePlayer), and an animation only while it can be
/// seen: each frame asks for a redraw, and when the view is not redrawn (it is hidden, covered or
/// scrolled away, or its window is minimised), the animation pauses until it is. A picture of one
/// frame is decoded again whenever it is drawn at another size. What has been hidden for a minute
/// keeps no frames; they are decoded again when it is shown.
class BannerImageView : public AdArea {
    Q_OBJECT

public:
    /// How long clicks are ignored after a new picture has appeared, seconds.
    static constexpr double SettlingSeconds = 0.3;
    /// How long the decoded frames of a hidden view are kept.
    static constexpr double HiddenSeconds = 60;

    explicit BannerImageView(QWidget *parent = nullptr);
    ~BannerImageView() override;

    /// Shows a picture file: its size is read now, its frames are decoded when the view is drawn.
    /// Until the first is, the picture before it stays. Ignored for the path that is shown already,
    /// so that its animation plays on. With an empty path, or a file that PictureFile refuses
    /// (logged), the view has no image.
    void setImage(const QString &path);

    /// The picture's size in pixels; empty when there is none.
    QSize imageSize() const { return m_imageSize; }
    bool hasImage() const { return !m_imageSize.isEmpty(); }
    /// Whether the picture has more than one frame.
    bool isAnimation() const { return m_isAnimation; }

    /// Sets whether an animation plays, also that of later pictures. While it does not, it stands
    /// on the frame that it has reached, a new one on its first. Default: true.
    void setPlaying(bool playing);
    bool isPlaying() const { return m_isPlaying; }
    /// Returns to the first frame of an animation.
    void rewind();

    /// The height, in points, that the view has when there is room for it. An animation's frames
    /// are decoded at least for that height, so that they are sharp at once when a small window
    /// grows.
    void setNominalHeight(double height);

    /// Frames decoded since the picture was set.
    int decodedFrames() const;

    /// Corner radius at a height, points: 4, or 2 where 4 is more than a tenth of the height.
    static double cornerRadius(double height);

Q_SIGNALS:
    /// setImage() has set another picture, or an animation begins again.
    void imageChanged();
    /// The picture can't be decoded; the view has no image any more.
    void failed();
    /// The button was pressed: by the mouse, the keyboard or assistive technology. Not emitted
    /// again when the pointer leaves the view and comes back with the mouse button held.
    void wentDown();

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    void reload();
    void pictureChanged();
    void dropFrames();
    QSize wantedFrameSize() const;
    void drawFrame(QPainter &painter, const QPixmap &frame, const QRectF &place) const;
    void drawCrossFade(QPainter &painter) const;

    QString m_path;
    QSize m_imageSize;
    bool m_isAnimation = false;
    std::unique_ptr<PicturePlayer> m_player;
    bool m_isPlaying = true;
    QPixmap m_frame; // drawn until the player has the next one
    CrossFade m_crossFade{this};
    TimerPtr m_hiddenTimer;
    /// The picture that was set last has not been drawn yet.
    bool m_isAwaited = false;
    double m_nominalHeight = 0;
    /// QAbstractButton is handling a mouse move.
    bool m_isDragged = false;
};

} // namespace velmora
