// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtGui/QImage>

class QWidget;

namespace demo {

/// Sees what a person sees and does what a person does: pictures come from the screen, not from
/// the widgets, and clicks go through the window system or at least through the window.
class ScreenRobot {
public:
    /// The window with its frame.
    static QImage pictureOf(const QWidget *window);

    /// What the screen shows at a widget's place.
    static QImage pictureAt(const QWidget *widget);

    /// Whether the screen shows anything but one colour in the middle of a widget's place.
    static bool hasPictureAt(const QWidget *widget);

    /// Whether the screen shows the widget, and nothing else, at its place.
    static bool shows(QWidget *widget);

    /// Clicks at a point of a widget's window, wherever the click may land.
    static void click(QWidget *widget, const QPoint &point);

    /// Moves the pointer into the corner of the screen. @return false when it cannot
    static bool parkPointer(const QWidget *window);

private:
    static bool pressOnScreen(const QPoint &global, double ratio);
    static void pressInWindow(QWidget *window, const QPoint &point);
};

} // namespace demo
