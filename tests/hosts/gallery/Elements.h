// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Gallery.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>

namespace gallery {

/// A widget or window of a host that prints its clicks. The test clicks on those whose name begins
/// with "target".
template<class Base>
class Clicked : public Base {
public:
    Clicked() { this->setObjectName(QStringLiteral("target")); }

protected:
    bool event(QEvent *event) override {
        if (event->type() == QEvent::MouseButtonPress)
            print(QStringLiteral("click ") + this->objectName());
        return Base::event(event);
    }
};

/// An element that is filled with the marker colour.
template<class Base>
class Filled : public Clicked<Base> {
protected:
    void paintEvent(QPaintEvent *) override {
        QPainter(this).fillRect(QRect(QPoint(), this->size()), Marker);
    }
};

/// Gives a new widget the marker colour as its background, and a size.
/// @return the widget
template<class Widget>
Widget *marked(Widget *widget, QSize size = {720, 540}) {
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, Marker);
    widget->setPalette(palette);
    widget->resize(size);
    return widget;
}

/// A button that prints its clicks.
QWidget *makeButton();

/// What many applications show: labels, fields and buttons, beside a filled widget.
QWidget *makeForm();

/// Puts a widget into a window that has none, so that it fills the window.
void fill(QWidget *window, QWidget *child);

} // namespace gallery
