// SPDX-License-Identifier: Apache-2.0
#include "demo/tour/FirstSplashScene.h"

#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "demo/tour/ScreenRobot.h"
#include "demo/tour/Waiting.h"

#include <Velmora/Velmora.h>

#include <QtWidgets/QAbstractButton>

namespace demo {

namespace {
constexpr int WatchMs = 700;
constexpr int VideoCountdown = 5;
} // namespace

void FirstSplashScene::play() {
    SplashTimes times;
    times.delay = 4;
    times.load = 3;
    if (openWindow(times) && tooEarly() && startScreen() && video())
        endScreen();
}

// The journal takes that as a moment for a splash screen.
void FirstSplashScene::turnPage() {
    click(m_window->findChild<QWidget *>(QStringLiteral("nextButton")));
    parkPointer();
}

bool FirstSplashScene::tooEarly() {
    turnPage();
    const bool refused = Waiting::whileHolds(
        [this] {
            return !splash() && !Velmora::isShowSplashScreen() &&
                   count(VLMsplashScreenWillShow) == 0;
        },
        WatchMs);
    expect(refused && !Velmora::isADSReady(), QStringLiteral("no splash screen before its time"));
    picture(QStringLiteral("splash-too-early"));
    const bool ready = await(QStringLiteral("ads ready"), [] { return Velmora::isADSReady(); });
    m_timeline.add(Timeline::Ready);
    expect(count(VLMsplashScreenWillShow) == 0,
           QStringLiteral("a refused splash screen that stays away"));
    return ready && awaitStoredVideo();
}

bool FirstSplashScene::startScreen() {
    turnPage();
    if (!awaitStartScreen())
        return false;
    picture(QStringLiteral("start-screen"));
    expectTidy(QStringLiteral("the start screen"));
    expect(countdown() == QStringLiteral("8") || countdown() == QStringLiteral("7"),
           QStringLiteral("a countdown of the start screen and the video together"));
    const QString links = LinkOpener::Opened;
    QWidget *root = splash();
    click(root, {root->width() / 8, root->height() / 8});
    parkPointer();
    expect(count(links) == 0, QStringLiteral("a start screen that leads nowhere"));
    return awaitEnd(VLMadsVideoDidStart);
}

bool FirstSplashScene::video() {
    const auto hasCounted = [this] {
        return !countdown().isEmpty() && countdown().toInt() < VideoCountdown;
    };
    if (!awaitVideo() || !await(QStringLiteral("a second of the video counted down"), hasCounted))
        return false;
    picture(QStringLiteral("video"));
    expectTidy(QStringLiteral("the video"));
    clickVideo(
        m_demo.server().campaignValues(QStringLiteral("video"), QStringLiteral("VLMAppName")));
    const auto *sound = qobject_cast<QAbstractButton *>(element("soundButton"));
    clickElement("soundButton");
    await(QStringLiteral("the sound off"), [&] { return sound && sound->isChecked(); });
    parkPointer();
    picture(QStringLiteral("video-muted"));
    if (!awaitCloseButton())
        return false;
    QWidget *view = element("splashScreenPlayerView");
    const QImage before = ScreenRobot::pictureAt(view);
    await(QStringLiteral("a video that plays on under its close button"),
          [&] { return ScreenRobot::pictureAt(view) != before && count(VLMadsVideoDidStop) == 0; });
    picture(QStringLiteral("video-with-close-button"));
    return awaitEnd(VLMadsVideoDidStop);
}

void FirstSplashScene::endScreen() {
    if (!awaitEndScreen(true))
        return;
    picture(QStringLiteral("end-screen"));
    expectTidy(QStringLiteral("the end screen"));
    close();
    expect(!Velmora::isADSReady(), QStringLiteral("a wait after the splash screen"));
    picture(QStringLiteral("splash-closed"));
}

} // namespace demo
