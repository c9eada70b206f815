// SPDX-License-Identifier: Apache-2.0
#include "demo/tour/RestyledSplashScene.h"

#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "demo/Page.h"
#include "demo/SplashLook.h"
#include "demo/tour/ScreenRobot.h"

#include <Velmora/Velmora.h>

#include <QtWidgets/QApplication>

namespace demo {

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
           QStringLiteral("a strip of the journal above the splash screen"));
    picture(QStringLiteral("start-screen-restyled"));
    if (!awaitVideo())
        return;
    picture(QStringLiteral("video-restyled"));
    pay();
}

void RestyledSplashScene::pay() {
    const int asked = count(VLMtryRemoveAds);
    clickElement("removeAdsImageButton");
    awaitEnd(VLMtryRemoveAds, asked + 1);
    QWidget *buy = nullptr;
    if (!await(QStringLiteral("the offer to remove ads over the splash screen"), [&buy] {
            const QWidget *sheet = QApplication::activeModalWidget();
            buy = sheet ? sheet->findChild<QWidget *>(QStringLiteral("buyButton")) : nullptr;
            return buy && ScreenRobot::shows(buy);
        }))
        return;
    expect(splash() != nullptr, QStringLiteral("a splash screen that waits for the answer"));
    parkPointer();
    picture(QStringLiteral("offer-over-splash"));
    click(buy);
    await(QStringLiteral("the splash screen and the banner gone"), [this] {
        return !splash() && !m_window->page()->banner() && ScreenRobot::shows(m_window->page());
    });
    expect(!Velmora::isShowSplashScreen() && Velmora::isADSRemoved(),
           QStringLiteral("ads switched off in the middle of a splash screen"));
    Velmora::forceShow();
    expect(!splash(), QStringLiteral("no splash screen for those who paid"));
    picture(QStringLiteral("paid-during-splash"));
}

} // namespace demo
