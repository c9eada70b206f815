// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/DefaultVideoScene.h"

#include "demo/DemoApplication.h"
#include "demo/SplashLook.h"

#include "SplashScreenPresenter.h"

#include <Velmora/Velmora.h>

namespace demo::tour {

namespace {
const QString AppId = QStringLiteral("1652749318");
const QString AppName = QStringLiteral("Halcorra");
} // namespace

void DefaultVideoScene::play() {
    m_server.withholdVideos();
    SplashTimes times;
    times.load = 1;
    if (!openWindow(times))
        return;
    const QStringList clips = m_demo.server().clips();
    if (!expect(!clips.isEmpty(), QStringLiteral("a clip to play")))
        return;
    Velmora::setDefaultVideoURL(QUrl::fromLocalFile(clips.first()), AppId);
    // The store's look-up service, which the ad server stands in for, knows the name.
    await(QStringLiteral("the name of the advertised application"),
          [] { return Velmora::SSPresenter().defaultVideoName() == AppName; });
    Velmora::forceShow();
    if (!awaitNotification(VLMadsVideoDidStart) || !awaitVideo())
        return;
    picture(QStringLiteral("default-video"));
    clickVideo({AppName});
    if (!awaitCloseButton() || !awaitNotification(VLMadsVideoDidStop) || !awaitEndScreen(false))
        return;
    picture(QStringLiteral("end-screen-without-still"));
    expectAllFits(QStringLiteral("the end screen without a still"));
    SplashLook::night().apply();
    await(QStringLiteral("the new look on the screen"), [this] { return isSettled(); });
    picture(QStringLiteral("end-screen-restyled"));
    close();
}

} // namespace demo::tour
