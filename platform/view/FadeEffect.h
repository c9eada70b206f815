// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "FadeImages.h"

#include <QtGui/QImage>
#include <QtWidgets/QGraphicsEffect>
#include <QtWidgets/QWidget>

namespace velmora {

/// Draws a view at an opacity. Unlike QGraphicsOpacityEffect it renders a view that covers its
/// window only once, when it first draws it, and once more when the view's size changes: what such
/// a view changes meanwhile is seen when the effect is removed. Main thread only.
class FadeEffect : public QGraphicsEffect {
    Q_OBJECT

public:
    /// The view destroys the effect that it draws with.
    /// @param images where the effect's images come from; must outlive its last drawing
    FadeEffect(QWidget *view, FadeImages &images);

    /// Has the effect draw nothing of the fade until there are images, instead of waiting for them.
    /// @param showsView whether the view is seen until then
    void waitForImages(bool showsView);

    double opacity() const { return m_opacity; }
    /// Repaints the view. 0 is invisible, 1 opaque.
    void setOpacity(double opacity);
    /// Renders the view again.
    void redraw();

    /// Whether the view takes most of its window.
    bool coversWindow() const;

    /// The view, once it was drawn.
    const QImage &picture() const { return m_picture; }
    /// What was behind the view when all of it was first drawn. Null before, and where Qt does not
    /// draw all of a window into one image.
    const QImage &backdrop() const { return m_backdrop; }

protected:
    void draw(QPainter *painter) override;

private:
    bool isToWait(const QPaintDevice &device, QSize pixels);
    void render(QSize pixels, double density);
    void takeBackdrop(const QPainter &painter);

    QWidget *m_view;
    FadeImages &m_images;
    QSize m_size; ///< of the view when it was drawn
    QImage m_picture;
    QImage m_backdrop;
    double m_opacity = 1;
    bool m_waitsForImages = false;
    bool m_showsView = false;
};

} // namespace velmora
