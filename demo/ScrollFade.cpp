// SPDX-License-Identifier: Apache-2.0
#include "demo/ScrollFade.h"

#include "demo/Theme.h"

#include <QtGui/QPainter>

namespace demo {

ScrollFade::ScrollFade(QWidget *parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ScrollFade::paintEvent(QPaintEvent *) {
    QColor clear = theme::Paper;
    clear.setAlpha(0);
    QLinearGradient fade(0, 0, 0, height());
    fade.setColorAt(0, clear);
    fade.setColorAt(1, theme::Paper);
    QPainter painter(this);
    painter.fillRect(rect(), fade);
}

} // namespace demo
