// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QColor>
#include <QtWidgets/QWidget>

namespace velmora {

/// A view filled with one colour, its two bottom corners rounded. Without a colour it draws
/// nothing. Main thread only.
class ColoredView : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor color READ color WRITE setColor)

public:
    explicit ColoredView(QWidget *parent = nullptr);

    QColor color() const { return m_color; }
    /// Stores the colour and redraws. An invalid colour is none.
    void setColor(const QColor &color);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QColor m_color;
};

} // namespace velmora
