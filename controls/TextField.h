// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QColor>
#include <QtWidgets/QLabel>

namespace velmora {

/// A text whose font and colour no style sheet of the host changes. Centred; wrapped at words when
/// wordWrap is set. Main thread only.
class TextField : public QLabel {
    Q_OBJECT
    Q_PROPERTY(QColor textColor READ textColor WRITE setTextColor)
    Q_PROPERTY(int textWeight MEMBER m_weight)

public:
    explicit TextField(QWidget *parent = nullptr);

    QColor textColor() const { return m_color; }
    /// An invalid colour draws nothing.
    void setTextColor(const QColor &color);

    /// Sets the font's size, points; at least 1. Default: 13.
    void setTextSize(double points);

    /// The height that the text needs in a width, points.
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QFont textFont() const;
    int layoutFlags() const;

    QColor m_color;
    int m_weight = QFont::Normal;
    double m_points = 13;
};

} // namespace velmora
