// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/ScreenRobot.h"

#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QWidget>

#include <cmath>

namespace demo::tour {

namespace {

QImage grab(QScreen *screen, const QRect &frame) {
    const QRect place = frame.translated(-screen->geometry().topLeft());
    return screen->grabWindow(0, place.x(), place.y(), place.width(), place.height()).toImage();
}

// Mean difference of two pictures' colour values, 0 to 255. The pictures are scaled down first, so
// that smoothed edges or a shift by one pixel make no difference.
double difference(const QImage &first, const QImage &second) {
    if (first.isNull() || second.isNull())
        return 255;
    const QSize small(64, 16);
    const auto reduced = [&](const QImage &image) {
        return image.convertToFormat(QImage::Format_RGB32)
            .scaled(small, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const QImage a = reduced(first);
    const QImage b = reduced(second);
    qint64 sum = 0;
    for (qsizetype i = 0; i < a.sizeInBytes(); ++i) // the unused fourth byte is equal
        sum += std::abs(a.constBits()[i] - b.constBits()[i]);
    return double(sum) / (3.0 * small.width() * small.height());
}

// Moves the pointer to a point of the screen with xdotool, followed by a further command of it.
// @return false where that is impossible
bool movePointer(const QPoint &global, double ratio, const QStringList &then = {}) {
    const QString program = QStandardPaths::findExecutable("xdotool");
    const QStringList move{"mousemove", QString::number(std::lround(global.x() * ratio)),
                           QString::number(std::lround(global.y() * ratio))};
    return !program.isEmpty() && QGuiApplication::platformName() == "xcb" &&
           QProcess::execute(program, move + then) == 0;
}

} // namespace

QImage ScreenRobot::pictureOf(const QWidget *window) {
    return grab(window->screen(), window->frameGeometry());
}

bool ScreenRobot::hasPictureAt(const QWidget *widget) {
    constexpr double Trace = 1;
    const QSize half = widget->size() / 2;
    const QPoint corner(half.width() / 2, half.height() / 2);
    const QImage middle = grab(widget->screen(), {widget->mapToGlobal(corner), half});
    return difference(middle, middle.scaled(1, 1)) > Trace;
}

bool ScreenRobot::shows(QWidget *widget) {
    constexpr double Tolerance = 12; // an animated widget has moved on between the two pictures
    if (!widget || !widget->isVisible() || widget->size().isEmpty())
        return false;
    const QRect place(widget->mapToGlobal(QPoint()), widget->size());
    return difference(widget->grab().toImage(), grab(widget->screen(), place)) < Tolerance;
}

void ScreenRobot::click(QWidget *widget, const QPoint &point) {
    const QWidget *window = widget->window();
    if (!movePointer(widget->mapToGlobal(point), widget->devicePixelRatioF(), {"click", "1"}))
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, widget->mapTo(window, point));
}

bool ScreenRobot::movePointerAway(const QWidget *window) {
    return movePointer(window->screen()->geometry().bottomRight(), window->devicePixelRatioF());
}

} // namespace demo::tour
