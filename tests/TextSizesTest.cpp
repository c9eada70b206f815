// SPDX-License-Identifier: Apache-2.0
#include "TextSizes.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QImage>

#include <gtest/gtest.h>

namespace velmora::test {

TEST(TextSizesTest, ARememberedSizeIsThatOfTheSameTextFontWidthAndResolution) {
    QImage coarse(1, 1, QImage::Format_RGB32);
    QImage fine = coarse;
    fine.setDotsPerMeterX(2 * coarse.dotsPerMeterX());
    fine.setDotsPerMeterY(2 * coarse.dotsPerMeterY());
    QFont large;
    large.setPointSize(30);
    const QString sentence = QStringLiteral("Back in a moment");
    for (int time = 0; time < 2; ++time) {
        for (const QImage &device : {coarse, fine}) {
            for (const QFont &font : {QFont(), large}) {
                const QFontMetricsF metrics(font, &device);
                for (const QString &text : {sentence, QStringLiteral("Ad")}) {
                    EXPECT_EQ(TextSizes::onOneLine(font, text, device), metrics.size(0, text));
                    for (const double width : {60, 200}) {
                        for (const int flags : {0, int(Qt::TextWordWrap)})
                            EXPECT_EQ(TextSizes::inWidth(width, flags, font, text, device),
                                      metrics.boundingRect({0, 0, width, 0}, flags, text).size());
                    }
                }
            }
        }
    }
}

} // namespace velmora::test
