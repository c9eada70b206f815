// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/ScreenRobot.h"

#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtGui/QMouseEvent>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <cmath>

namespace demo::tour {

namespace {

QImage grab(const QScreen *screen, const QRect &frame) {
    const QRect place = frame.translated(-screen->geometry().topLeft());
    return const_cast<QScreen *>(screen)
        ->grabWindow(0, place.x(), place.y(), place.width(), place.height())
        .toImage();
}

// Mean difference of two pictures' colour values, 0 to 255. The pictures are scaled down first, so
// that smoothed edges or a shift by one pixel make no difference.
double difference(const QImage &first, const QImage &second) {
    const QSize small(64, 16);
    const auto reduced = [&](const QImage &image) {
        return image.convertToFormat(QImage::Format_RGB32)
            .scaled(small, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const QImage a = reduced(first);
    const QImage b = reduced(second);
    double sum = 0;
    for (int y = 0; y < small.height(); ++y) {
        for (int x = 0; x < small.width(); ++x) {
            const QColor p = a.pixelColor(x, y);
            const QColor q = b.pixelColor(x, y);
            sum += std::abs(p.red() - q.red()) + std::abs(p.green() - q.green()) +
                   std::abs(p.blue() - q.blue());
        }
    }
    return sum / (3.0 * small.width() * small.height());
}

bool xdotool(const QStringList &arguments) {
    const QString program = QStandardPaths::findExecutable(QStringLiteral("xdotool"));
    return !program.isEmpty() && QGuiApplication::platformName() == QLatin1String("xcb") &&
           QProcess::execute(program, arguments) == 0;
}

QStringList moveTo(const QPoint &global, double ratio) {
    return {QStringLiteral("mousemove"), QString::number(std::lround(global.x() * ratio)),
            QString::number(std::lround(global.y() * ratio))};
}

} // namespace

QImage ScreenRobot::pictureOf(const QWidget *window) {
    return grab(window->screen(), window->frameGeometry());
}

QImage ScreenRobot::pictureAt(const QWidget *widget) {
    return grab(widget->screen(), {widget->mapToGlobal(QPoint()), widget->size()});
}

bool ScreenRobot::hasPictureAt(const QWidget *widget) {
    const QImage whole = pictureAt(widget);
    const QImage middle =
        whole.copy(whole.width() / 4, whole.height() / 4, whole.width() / 2, whole.height() / 2);
    QImage plain(middle.size(), QImage::Format_RGB32);
    plain.fill(middle.pixelColor(0, 0));
    constexpr double Trace = 1;
    return !middle.isNull() && difference(middle, plain) > Trace;
}

bool ScreenRobot::shows(QWidget *widget) {
    constexpr double Tolerance = 12; // an animated widget has moved on between the two pictures
    return widget->isVisible() && !widget->size().isEmpty() &&
           difference(widget->grab().toImage(), pictureAt(widget)) < Tolerance;
}

void ScreenRobot::click(QWidget *widget, const QPoint &point) {
    QWidget *window = widget->window();
    if (!pressOnScreen(widget->mapToGlobal(point), widget->devicePixelRatioF()))
        pressInWindow(window, widget->mapTo(window, point));
}

bool ScreenRobot::pressOnScreen(const QPoint &global, double ratio) {
    return xdotool(moveTo(global, ratio) +
                   QStringList{QStringLiteral("click"), QStringLiteral("1")});
}

// A mouse event that is sent to the QWindow is delivered to the widget at that point, as an event
// of the window system is.
void ScreenRobot::pressInWindow(QWidget *window, const QPoint &point) {
    QWindow *handle = window->windowHandle();
    if (!handle)
        return;
    const QPointF global = window->mapToGlobal(point);
    for (const bool down : {true, false}) {
        QMouseEvent event(down ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease, point,
                          global, Qt::LeftButton, down ? Qt::LeftButton : Qt::NoButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(handle, &event);
    }
}

bool ScreenRobot::movePointerAway(const QWidget *window) {
    const QRect whole = window->screen()->geometry();
    return xdotool(moveTo(whole.bottomRight(), window->devicePixelRatioF()));
}

} // namespace demo::tour
