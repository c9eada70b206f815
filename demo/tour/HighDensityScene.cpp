// SPDX-License-Identifier: Apache-2.0
#include "demo/tour/HighDensityScene.h"

#include "demo/JournalWindow.h"

namespace demo {

void HighDensityScene::play() {
    if (!openWindow() ||
        !awaitBanner(QStringLiteral("a banner of the campaign"),
                     [this](const QString &name) { return isCampaignBanner(name); }))
        return;
    const QString ratio = QString::number(m_window->devicePixelRatioF());
    m_timeline.add(QStringLiteral("pixel-ratio"), ratio);
    expect(ratio == qEnvironmentVariable("QT_SCALE_FACTOR"),
           QStringLiteral("the pixel ratio that was asked for"));
    picture(QStringLiteral("banner-at-%1x").arg(ratio));
}

} // namespace demo
