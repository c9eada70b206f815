// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QImage>
#include <QtWidgets/QWidget>

namespace velmora {

/// Shows the pictures of a video, each as large as it fits with its shape kept, on black. A
/// picture that has the size of its place in the screen's own pixels is copied as it is.
/// Main thread only.
class VideoView : public QWidget {
    Q_OBJECT

public:
    explicit VideoView(QWidget *parent = nullptr);

    /// Shows a picture until the next one; a null image shows black. Pixels are not copied.
    void showFrame(const QImage &frame);
    const QImage &frame() const { return m_frame; }

    /// Where the picture is, in the view's coordinates; on whole pixels of the screen.
    QRectF frameRect() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QRect framePixels() const;

    QImage m_frame;
};

} // namespace velmora
