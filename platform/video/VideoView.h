// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QImage>
#include <QtWidgets/QWidget>

namespace velmora {

/// Shows the pictures of a video, scaled to fit with their aspect ratio kept, on black. A picture
/// whose size is that of its place in physical pixels is not scaled. Main thread only.
class VideoView : public QWidget {
    Q_OBJECT

public:
    explicit VideoView(QWidget *parent = nullptr);

    /// Shows a picture until the next call; a null image shows black. The pixels are not copied.
    void showFrame(const QImage &frame);
    const QImage &frame() const { return m_frame; }

    /// The view's size in physical pixels.
    QSize pixelSize() const;

    /// The picture's place, in the view's coordinates. Its edges are on physical pixels.
    QRectF frameRect() const;

Q_SIGNALS:
    /// The first picture of a video is shown: there was none before.
    void started();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QRect framePixels() const;

    QImage m_frame;
};

} // namespace velmora
