// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QPixmap>
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
    explicit FadeEffect(const QWidget *view);

    double opacity() const { return m_opacity; }
    /// Repaints the view. 0 is invisible, 1 opaque.
    void setOpacity(double opacity);
    /// Renders the view again.
    void redraw();

    /// Whether the view takes most of its window.
    bool coversWindow() const;

    /// The view, once it was drawn.
    const QPixmap &picture() const { return m_picture; }
    /// What was behind the view when all of it was first drawn. Null before, and where Qt does not
    /// draw all of a window into one image.
    const QPixmap &backdrop() const { return m_backdrop; }

protected:
    void draw(QPainter *painter) override;

private:
    void takeBackdrop(const QPainter &painter);

    const QWidget *m_view;
    QSize m_size; ///< of the view when it was drawn
    QPixmap m_picture;
    QPixmap m_backdrop;
    QPoint m_offset;
    double m_opacity = 1;
};

} // namespace velmora
