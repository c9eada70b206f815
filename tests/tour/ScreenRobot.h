// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtGui/QImage>

class QWidget;

namespace demo::tour {

/// Looks at the screen and clicks like a person: pictures are taken of the screen, not of the
/// widgets, and clicks are made with xdotool or, where that is impossible, sent to the window.
class ScreenRobot {
public:
    /// A window with its frame.
    static QImage pictureOf(const QWidget *window);

    /// Whether the screen shows more than a single colour in the middle of a widget.
    static bool hasPictureAt(const QWidget *widget);

    /// Whether the screen shows the widget as it draws itself, not covered by anything.
    static bool shows(QWidget *widget);

    /// Clicks at a point of a widget. What lies over it there gets the click.
    static void click(QWidget *widget, const QPoint &point);

    /// Moves the pointer into the corner of the window's screen. @return false where that is
    /// impossible
    static bool movePointerAway(const QWidget *window);
};

} // namespace demo::tour
