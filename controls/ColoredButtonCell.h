// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QColor>
#include <QtWidgets/QAbstractButton>

namespace velmora {

/// A button with a flat face and title in the colours of its state: enabled and pressed,
/// enabled, or disabled. The title is in the application's font. A colour that is not set draws
/// nothing. Main thread only.
class ColoredButtonCell : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(double cornerRadius MEMBER m_cornerRadius)
    Q_PROPERTY(bool circle MEMBER m_circle)
    Q_PROPERTY(QColor defaultColor MEMBER m_defaultColor)
    Q_PROPERTY(QColor highlightedColor MEMBER m_highlightedColor)
    Q_PROPERTY(QColor disabledColor MEMBER m_disabledColor)
    Q_PROPERTY(QColor titleDefaultColor MEMBER m_titleDefaultColor)
    Q_PROPERTY(QColor titleHighlightedColor MEMBER m_titleHighlightedColor)
    Q_PROPERTY(QColor titleDisabledColor MEMBER m_titleDisabledColor)

public:
    explicit ColoredButtonCell(QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void drawBezelWithFrame(const QRectF &frame, QPainter &painter) const;
    QRectF drawTitle(const QString &title, const QRectF &frame, QPainter &painter) const;
    QColor colorOfState(const QColor &highlighted, const QColor &normal,
                        const QColor &disabled) const;

    double m_cornerRadius = 0;
    bool m_circle = false;
    QColor m_defaultColor;
    QColor m_highlightedColor;
    QColor m_disabledColor;
    QColor m_titleDefaultColor;
    QColor m_titleHighlightedColor;
    QColor m_titleDisabledColor;
};

} // namespace velmora
