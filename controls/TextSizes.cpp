// SPDX-License-Identifier: Apache-2.0
#include "TextSizes.h"

#include <QtCore/QCache>
#include <QtGui/QFontMetricsF>
#include <QtGui/QGuiApplication>

namespace velmora {

namespace {

// A splash screen measures about ten texts, some of them in several sizes.
constexpr int MostSizes = 200;
constexpr double OneLine = -1;

struct Measured {
    QFont font;
    QString text;
    int resolution = 0; // dots per inch
    int flags = 0;
    double width = OneLine;

    bool operator==(const Measured &) const = default;
};

size_t qHash(const Measured &measured, size_t seed = 0) {
    return qHashMulti(seed, measured.font, measured.text, measured.resolution, measured.flags,
                      measured.width);
}

using Sizes = QCache<Measured, QSizeF>;

// Never destroyed, because another thread may be in exit().
Sizes &sizes() {
    static Sizes &sizes = []() -> Sizes & {
        auto *made = new Sizes(MostSizes);
        // Another font may match now.
        QObject::connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, qGuiApp,
                         [made] { made->clear(); });
        return *made;
    }();
    return sizes;
}

template<typename Measure>
QSizeF remembered(const Measured &measured, const Measure &measure) {
    if (const QSizeF *size = sizes().object(measured))
        return *size;
    const QSizeF size = measure();
    sizes().insert(measured, new QSizeF(size));
    return size;
}

} // namespace

QSizeF TextSizes::onOneLine(const QFont &font, const QString &text, const QPaintDevice &device) {
    return remembered({.font = font, .text = text, .resolution = device.logicalDpiY()},
                      [&] { return QFontMetricsF(font, &device).size(0, text); });
}

QSizeF TextSizes::inWidth(double width, int flags, const QFont &font, const QString &text,
                          const QPaintDevice &device) {
    return remembered({.font = font,
                       .text = text,
                       .resolution = device.logicalDpiY(),
                       .flags = flags,
                       .width = width},
                      [&] {
                          return QFontMetricsF(font, &device)
                              .boundingRect(QRectF(0, 0, width, 0), flags, text)
                              .size();
                      });
}

} // namespace velmora
