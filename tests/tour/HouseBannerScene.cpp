// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/HouseBannerScene.h"

#include "demo/DemoApplication.h"

#include <QtCore/QRegularExpression>

namespace demo::tour {

void HouseBannerScene::play() {
    m_demo.server().setRunning(false);
    static const QRegularExpression houseName(QStringLiteral("^mac\\.\\d{6}\\.mac-store$"));
    if (!openWindow() || !awaitBanner(QStringLiteral("a house banner"), [](const QString &name) {
            return houseName.match(name).hasMatch();
        }))
        return;
    picture(QStringLiteral("house-banner"));
    clickBanner();
}

} // namespace demo::tour
