// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtWidgets/QWidget>

namespace velmora {

/// A centred text in the application's typeface, wrapped at words when wordWrap is set. Not a
/// QLabel, because a host's style sheet often has rules for those. Assistive technology finds a
/// static text with the same words. Main thread only.
class TextField : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(bool wordWrap READ wordWrap WRITE setWordWrap)
    Q_PROPERTY(QColor textColor READ textColor WRITE setTextColor)
    Q_PROPERTY(int textWeight MEMBER m_weight)

public:
    explicit TextField(QWidget *parent = nullptr);

    QString text() const { return m_text; }
    void setText(const QString &text);

    bool wordWrap() const { return m_wordWrap; }
    void setWordWrap(bool wraps);

    QColor textColor() const { return m_color; }
    /// An invalid colour draws nothing.
    void setTextColor(const QColor &color);

    /// The font's size, points; at least 1. Default: 13.
    double textSize() const { return m_points; }
    void setTextSize(double points);
    /// The font's weight, a QFont::Weight. Default: QFont::Normal.
    void setTextWeight(int weight);

    /// The size of the text when it is wrapped to a width, points. It is wider when one word is.
    QSize sizeForWidth(int width) const;
    int heightForWidth(int width) const override { return sizeForWidth(width).height(); }
    QSize sizeHint() const override;

protected:
    /// The size of another text in this field's font, on one line, points.
    QSize sizeOf(const QString &text) const;
    /// Not the widget's font, which a style sheet may have changed.
    QFont textFont() const;
    /// @return the text's frame
    QRectF drawText(QPainter &painter) const;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void changed();
    int layoutFlags() const;

    QString m_text;
    bool m_wordWrap = false;
    QColor m_color;
    int m_weight = QFont::Normal;
    double m_points = 13;
    /// Where the text was drawn last; invalid when it has to be drawn again.
    QRect m_drawnFrame;
};

} // namespace velmora
