// SPDX-License-Identifier: Apache-2.0
#include "TextSizes.h"

#include "ProcessRoot.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace velmora {

namespace {

// A splash screen measures about ten texts, some of them in several sizes.
constexpr size_t MostSizes = 100;

struct Text {
    QString text;
    int resolution; // dots per inch
    int flags = 0;
    std::optional<double> width = {};
    QFont font;

    bool operator==(const Text &) const = default;
};

class MeasuredTexts : public QObject {
public:
    MeasuredTexts() {
        // A font that was asked for in vain may be there now.
        connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, this, [this] { m_sizes.clear(); });
    }

    template<class Measure>
    QSizeF sizeOf(const Text &text, const Measure &measure) {
        const auto known =
            std::ranges::find_if(m_sizes, [&](const auto &entry) { return entry.first == text; });
        if (known != m_sizes.end())
            return known->second;
        if (m_sizes.size() == MostSizes)
            m_sizes.clear();
        return m_sizes.emplace_back(text, measure()).second;
    }

private:
    std::vector<std::pair<Text, QSizeF>> m_sizes;
};

} // namespace

QSizeF TextSizes::onOneLine(const QFont &font, const QString &text, const QPaintDevice &device) {
    return ProcessRoot::get<MeasuredTexts>().sizeOf(
        {.text = text, .resolution = device.logicalDpiY(), .font = font},
        [&] { return QFontMetricsF(font, &device).size(0, text); });
}

QSizeF TextSizes::inWidth(double width, int flags, const QFont &font, const QString &text,
                          const QPaintDevice &device) {
    return ProcessRoot::get<MeasuredTexts>().sizeOf(
        {.text = text,
         .resolution = device.logicalDpiY(),
         .flags = flags,
         .width = width,
         .font = font},
        [&] {
            const QFontMetricsF metrics(font, &device);
            return metrics.boundingRect(QRectF(0, 0, width, 0), flags, text).size();
        });
}

} // namespace velmora
