// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/RestyledSplashScene.h"

#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "demo/Page.h"
#include "demo/SplashLook.h"
#include "tests/tour/ScreenRobot.h"

#include <Velmora/Velmora.h>

namespace demo::tour {

void RestyledSplashScene::play() {
    SplashTimes times;
    times.load = 2;
    if (!openWindow(times) || !awaitStoredVideo())
        return;
    const SplashLook look = SplashLook::night();
    look.apply();
    Velmora::forceShow();
    if (!awaitStartScreen())
        return;
    expect(splash() && splash()->y() == int(look.topInset),
           QStringLiteral("the top inset of the journal left free"));
    picture(QStringLiteral("start-screen-restyled"));
    if (!awaitVideo())
        return;
    picture(QStringLiteral("video-restyled"));
    pay();
}

void RestyledSplashScene::pay() {
    const int asked = count(VLMtryRemoveAds);
    clickElement("removeAdsImageButton");
    awaitNotification(VLMtryRemoveAds, asked + 1);
    QWidget *buy =
        awaitPurchaseSheet(QStringLiteral("the offer to remove ads over the splash screen"));
    if (!buy)
        return;
    expect(splash() != nullptr, QStringLiteral("the splash screen still there behind the offer"));
    movePointerAway();
    picture(QStringLiteral("offer-over-splash"));
    click(buy);
    await(QStringLiteral("the splash screen and the banner gone"), [this] {
        return !splash() && !m_window->page()->banner() && ScreenRobot::shows(m_window->page());
    });
    expect(!Velmora::isShowSplashScreen() && Velmora::isADSRemoved(),
           QStringLiteral("ads removed in the middle of a splash screen"));
    Velmora::forceShow();
    expect(!splash(), QStringLiteral("no splash screen after the purchase"));
    picture(QStringLiteral("paid-during-splash"));
}

} // namespace demo::tour
