// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "LayoutConstraint.h"
#include "ShineAnimation.h"
#include <Velmora/Timer.h>

#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtGui/QPixmap>
#include <QtWidgets/QAbstractButton>

#include <memory>
#include <optional>

namespace velmora {

/// The button that offers to remove the ads: a green face, a gradient, an ellipse or an image, a
/// title, a border, and a shine that sweeps across it every five seconds while somebody sees it.
/// Main thread only.
///
/// A button that an interface resource makes has zero values (no, 0, no colour) in whatever the
/// resource does not set; make() gives one with the usual values. A colour that is not set draws
/// nothing. Lengths are points.
class RemoveAdsButton : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(bool isGradient MEMBER m_isGradient)
    Q_PROPERTY(bool isImage MEMBER m_isImage)
    Q_PROPERTY(double border MEMBER m_border)
    Q_PROPERTY(double cornerRadius MEMBER m_cornerRadius)
    Q_PROPERTY(double titleLeading MEMBER m_titleLeading)
    Q_PROPERTY(bool isCircle MEMBER m_isCircle)
    Q_PROPERTY(bool isAnimation MEMBER m_isAnimation)
    Q_PROPERTY(bool isAutoWidth MEMBER m_isAutoWidth)
    Q_PROPERTY(QColor borderColor MEMBER m_borderColor)
    Q_PROPERTY(QColor topColor MEMBER m_topColor)
    Q_PROPERTY(QColor bottomColor MEMBER m_bottomColor)
    Q_PROPERTY(QFont stringFont MEMBER m_stringFont)
    Q_PROPERTY(QColor stringColor MEMBER m_stringColor)

public:
    explicit RemoveAdsButton(QWidget *parent = nullptr);
    ~RemoveAdsButton() override;

    /// A button with the usual values: flat green without border, black title, shining.
    static RemoveAdsButton *make(QWidget *parent = nullptr);

    /// Asks for a size. With isAutoWidth the button takes the title's width and its margins,
    /// and keeps its height, whatever size was asked for.
    void setFrameSize(QSize size);

    /// The stripe of the shine with its left edge at x; its bottom edge is shifted left by
    /// wbreak against the top edge.
    QPainterPath getPath(double x, double width, double wbreak) const;

    /// The one-shot timer of the next sweep; null or invalid while nobody sees the button.
    TimerPtr animationTimer() const { return m_animationTimer; }
    /// True from the redraw that started the shine until the button is out of sight.
    bool isAllDraw() const { return m_isAllDraw; }

    QSize sizeHint() const override;

    /// Constraints of the interface resource that places the button; it never changes them.
    std::weak_ptr<LayoutConstraint> ltcLeft, ltcTop, ltcWidth, ltcHeight;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    /// All that the button's face depends on.
    struct Look {
        double density;
        QSize size;
        bool down, enabled, gradient, image, circle, animation;
        double border, cornerRadius, titleLeading;
        QColor borderColor, topColor, bottomColor, title;
        QFont font;
        QString text;
        qint64 icon;
        bool operator==(const Look &) const = default;
    };

    Look look() const;
    void drawRect(QPainter &painter);
    void drawFace(QPainter &painter, const QPainterPath &face) const;
    void drawImage(QPainter &painter, const QRectF &frame) const;
    void drawTitle(QPainter &painter) const;
    void drawPath();
    void restShine();
    QPainterPath facePath() const;
    QPainterPath outlinePath() const;
    QFont titleFont() const;
    QSizeF titleSize() const;
    QColor titleColor() const;

    bool m_isGradient = false;
    bool m_isImage = false;
    double m_border = 0;
    double m_cornerRadius = 0;
    double m_titleLeading = 0;
    bool m_isCircle = false;
    bool m_isAnimation = false;
    bool m_isAutoWidth = false;
    QColor m_borderColor;
    QColor m_topColor;
    QColor m_bottomColor;
    QFont m_stringFont;
    QColor m_stringColor;

    // What was drawn last, kept for as long as it looks the same: under a sweep and over a video
    // the button is redrawn many times a second.
    std::optional<Look> m_look;
    QPixmap m_drawn;

    ShineAnimation m_shine;
    TimerPtr m_animationTimer;
    bool m_isAllDraw = false;
};

} // namespace velmora
