// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/HighDensityScene.h"

#include "demo/JournalWindow.h"

namespace demo::tour {

void HighDensityScene::play() {
    if (!openWindow() || !awaitCampaignBanner())
        return;
    const QString ratio = QString::number(m_window->devicePixelRatioF());
    m_timeline.add(QStringLiteral("pixel-ratio"), ratio);
    expect(ratio == qEnvironmentVariable("QT_SCALE_FACTOR"),
           QStringLiteral("the pixel ratio that was asked for"));
    picture(QStringLiteral("banner-at-%1x").arg(ratio));
}

} // namespace demo::tour
