// SPDX-License-Identifier: Apache-2.0
#include "demo/tour/DefaultVideoScene.h"

#include "demo/DemoApplication.h"
#include "demo/SplashLook.h"
#include "demo/panel/StateReader.h"

#include <Velmora/Velmora.h>

namespace demo {

namespace {
const QString AppId = QStringLiteral("1652749318");
const QString AppName = QStringLiteral("Halcorra");
} // namespace

void DefaultVideoScene::play() {
    m_demo.server().withholdVideos();
    SplashTimes times;
    times.load = 1;
    if (!openWindow(times))
        return;
    const QStringList clips = m_demo.server().clips();
    if (!expect(!clips.isEmpty(), QStringLiteral("a clip to play")))
        return;
    Velmora::setDefaultVideoURL(QUrl::fromLocalFile(clips.first()), AppId);
    // The name of what it advertises comes from the store.
    await(QStringLiteral("the name of the advertised application"),
          [] { return StateReader::defaultVideoName() == AppName; });
    Velmora::forceShow();
    if (!awaitEnd(VLMadsVideoDidStart) || !awaitVideo())
        return;
    picture(QStringLiteral("default-video"));
    clickVideo({AppName});
    if (!awaitCloseButton() || !awaitEnd(VLMadsVideoDidStop) || !awaitEndScreen(false))
        return;
    picture(QStringLiteral("end-screen-without-still"));
    expectTidy(QStringLiteral("the end screen without a still"));
    SplashLook::night().apply();
    await(QStringLiteral("the new look on the screen"), [this] { return isSettled(); });
    picture(QStringLiteral("end-screen-restyled"));
    close();
}

} // namespace demo
