// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QPushButton>

namespace demo {

/// Shows a colour, and a dialog to choose another one.
class ColorButton : public QPushButton {
    Q_OBJECT

public:
    ColorButton(const QString &what, const QColor &color);

    const QColor &color() const { return m_color; }
    /// Shows another colour. Emits no signal.
    void setColor(const QColor &color);

Q_SIGNALS:
    void colorChosen(const QColor &color);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void choose();

    QString m_what;
    QColor m_color;
};

} // namespace demo
