// SPDX-License-Identifier: Apache-2.0
#include "tests/gallery/X11Desktop.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace velmora::test {

namespace {

constexpr QSize ScreenSize(1600, 1100);

} // namespace

X11Desktop::X11Desktop(const QString &windowManager) : m_display(windowManager, ScreenSize) {}

QProcessEnvironment X11Desktop::environment() const {
    return QProcessEnvironment::systemEnvironment();
}

QImage X11Desktop::picture() {
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage();
}

void X11Desktop::click(QPoint point) {
    runOnDisplay(QStringLiteral("xdotool"),
                 {QStringLiteral("mousemove"), QString::number(point.x()),
                  QString::number(point.y()), QStringLiteral("click"), QStringLiteral("1")});
}

} // namespace velmora::test
