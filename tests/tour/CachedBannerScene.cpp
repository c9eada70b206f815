// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/CachedBannerScene.h"

#include "demo/DemoApplication.h"

namespace demo::tour {

void CachedBannerScene::play() {
    m_demo.server().setRunning(false);
    if (openWindow() && awaitBanner(QStringLiteral("a stored banner"),
                                    [this](const QString &name) { return isCampaignBanner(name); }))
        picture(QStringLiteral("cached-banner"));
}

} // namespace demo::tour
