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
/// title, a border, and a shine that sweeps across the face, below the title, every five seconds
/// while it can be seen. There is no shine where motion is reduced, nor below a title that would
/// not be readable on it. Main thread only.
///
/// In a button of an interface resource, properties that the resource does not set are false, 0
/// or an invalid colour; make() sets the usual values. An invalid colour draws nothing. Lengths
/// are points.
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

    /// Sets the font of the title; in a circle only its typeface counts. Default: the application's
    /// font when the button was made. QWidget::setFont() has no effect, because style sheets call
    /// it, too.
    void setTitleFont(const QFont &font);

    /// Resizes the button. With isAutoWidth the size is ignored: the button becomes as wide as
    /// its title and margins, and keeps its height.
    void setFrameSize(QSize size);

    /// The stripe of the shine with its left edge at x; its bottom edge is shifted left by
    /// wbreak against the top edge.
    QPainterPath getPath(double x, double width, double wbreak) const;

    /// The one-shot timer of the next sweep; null or invalid while the button cannot be seen.
    TimerPtr animationTimer() const { return m_animationTimer; }
    /// True from the redraw that starts the shine until the button can no longer be seen.
    bool isAllDraw() const { return m_isAllDraw; }

    QSize sizeHint() const override;

    /// Constraints of the interface resource that places the button. The button never changes
    /// them.
    std::weak_ptr<LayoutConstraint> ltcLeft, ltcTop, ltcWidth, ltcHeight;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    /// Everything that decides how the button is drawn, but for the shine.
    struct Look {
        double density;
        int resolution; // of a title's size in points
        QSize size;
        bool isDown, isEnabled, isGradient, isImage, isCircle, isAnimation;
        double border, cornerRadius, titleLeading;
        QColor borderColor, topColor, bottomColor, titleColor;
        QFont titleFont;
        QString title;
        qint64 iconKey;
        bool operator==(const Look &) const = default;
    };

    struct Picture {
        std::optional<Look> look;
        QPixmap face; // without the title
        QPixmap title;
    };
    class LastPicture;

    Look look() const;
    void updatePicture();
    Picture draw();
    void drawRect(QPainter &painter);
    void drawFace(QPainter &painter, const QPainterPath &face) const;
    void drawImage(QPainter &painter, const QRectF &frame) const;
    void drawTitle(QPainter &painter) const;
    /// Starts a sweep of the shine, and the timer of the next one.
    void drawPath();
    void restShine();
    bool mayShine() const;
    QPainterPath facePath() const;
    QPainterPath outlinePath() const;
    QFont drawnFont() const;
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
    QFont m_titleFont;
    QColor m_borderColor;
    QColor m_topColor;
    QColor m_bottomColor;
    QFont m_stringFont;
    QColor m_stringColor;

    // The button as it was drawn last, used again until its look changes: during a sweep, and over
    // a video, it is redrawn many times a second.
    Picture m_picture;

    ShineAnimation m_shine;
    TimerPtr m_animationTimer;
    bool m_isAllDraw = false;
};

} // namespace velmora
