// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/FirstSplashScene.h"

#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "tests/tour/ScreenRobot.h"
#include "tests/tour/Waiting.h"

#include <Velmora/Velmora.h>

#include <QtWidgets/QAbstractButton>

namespace demo::tour {

namespace {
constexpr int WatchMs = 700;
constexpr int VideoCountdown = 5; // where the countdown of the video begins
} // namespace

void FirstSplashScene::play() {
    SplashTimes times;
    times.delay = 4;
    times.load = 3;
    if (openWindow(times) && tooEarly() && startScreen() && video())
        endScreen();
}

// The journal asks for a splash screen whenever the reader turns a page.
void FirstSplashScene::turnPage() {
    click(control("nextButton"));
    movePointerAway();
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
           QStringLiteral("no splash screen later for a refused request"));
    return ready && awaitStoredVideo();
}

bool FirstSplashScene::startScreen() {
    turnPage();
    if (!awaitStartScreen())
        return false;
    picture(QStringLiteral("start-screen"));
    expectAllFits(QStringLiteral("the start screen"));
    expect(countdown() == QStringLiteral("8") || countdown() == QStringLiteral("7"),
           QStringLiteral("a countdown of the start screen and the video together"));
    QWidget *root = splash();
    click(root, {root->width() / 8, root->height() / 8});
    movePointerAway();
    expect(count(LinkOpener::Opened) == 0,
           QStringLiteral("no link opened by a click on the start screen"));
    return awaitNotification(VLMadsVideoDidStart);
}

bool FirstSplashScene::video() {
    const auto hasCounted = [this] {
        return !countdown().isEmpty() && countdown().toInt() < VideoCountdown;
    };
    if (!awaitVideo() || !await(QStringLiteral("a second of the video counted down"), hasCounted))
        return false;
    picture(QStringLiteral("video"));
    expectAllFits(QStringLiteral("the video"));
    clickVideo(m_server.campaignValues(QStringLiteral("video"), QStringLiteral("VLMAppName")));
    const auto *sound = qobject_cast<QAbstractButton *>(element("soundButton"));
    clickElement("soundButton");
    await(QStringLiteral("the sound off"), [&] { return sound && sound->isChecked(); });
    movePointerAway();
    picture(QStringLiteral("video-muted"));
    if (!awaitCloseButton())
        return false;
    QWidget *view = element("splashScreenPlayerView");
    const QImage before = ScreenRobot::pictureAt(view);
    await(QStringLiteral("a video that plays on while the close button is shown"),
          [&] { return ScreenRobot::pictureAt(view) != before && count(VLMadsVideoDidStop) == 0; });
    picture(QStringLiteral("video-with-close-button"));
    return awaitNotification(VLMadsVideoDidStop);
}

void FirstSplashScene::endScreen() {
    if (!awaitEndScreen(true))
        return;
    picture(QStringLiteral("end-screen"));
    expectAllFits(QStringLiteral("the end screen"));
    close();
    expect(!Velmora::isADSReady(), QStringLiteral("no ads ready right after a splash screen"));
    picture(QStringLiteral("splash-closed"));
}

} // namespace demo::tour
