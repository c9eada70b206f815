// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QColor>
#include <QtGui/QPalette>
#include <QtWidgets/QLabel>
#include <QtWidgets/QWidget>

namespace velmora::bench {

/// A host's window: of one colour, without a frame and at a known place, so that the display can
/// be searched for what comes over it. A line of text at its top lets every host, with advertising
/// or without, pay for the first text of a process, as any host does.
class PlainWindow : public QWidget {
public:
    explicit PlainWindow(const QRect &place = {0, 0, 1000, 600}) {
        QPalette colors = palette();
        colors.setColor(QPalette::Window, Color);
        setPalette(colors);
        setWindowFlag(Qt::FramelessWindowHint);
        setGeometry(place);
        auto *text = new QLabel(QStringLiteral("Untitled document"), this);
        text->setGeometry(8, 8, 160, 24);
    }

    static constexpr QColor Color{20, 110, 60};
};

/// The place of one of several windows of the same size that do not overlap on the display.
inline QRect placeInGrid(int index, QSize size, int columns) {
    return {QPoint(index % columns * size.width(), index / columns * size.height()), size};
}

/// The place of a window with a banner, or with what a banner is compared with. The display has
/// room for 21 of them.
inline QRect bannerWindowPlace(int index) {
    return placeInGrid(index, {820, 228}, 3);
}

} // namespace velmora::bench
