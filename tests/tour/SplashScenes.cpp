// SPDX-License-Identifier: Apache-2.0
#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "demo/SplashLook.h"
#include "tests/tour/Scene.h"
#include "tests/tour/Scenes.h"
#include "tests/tour/Splash.h"

#include "SplashScreenPresenter.h"

#include <Velmora/Velmora.h>

#include <QtCore/QJsonDocument>
#include <QtWidgets/QAbstractButton>

namespace demo::tour {

namespace {

const QString AppName = "Halcorra";
constexpr int WatchMs = 700;
constexpr QSize UsualSize(880, 600);
constexpr QSize SmallSize(320, 240);

void askTooEarly(Scene &scene, const Splash &splash) {
    // The journal asks for a splash screen whenever the reader turns a page.
    scene.click(scene.control("nextButton"));
    scene.watch(
        "no splash screen before its time",
        [&] { return !splash.root() && !Velmora::isADSReady(); }, WatchMs);
    scene.picture("splash-too-early");
    scene.await("ads ready", [] { return Velmora::isADSReady(); });
    scene.note("ads-ready");
}

void firstStartScreen(Scene &scene, Splash &splash) {
    scene.click(scene.control("nextButton"));
    splash.awaitStartScreen();
    scene.picture("start-screen");
    scene.awaitEvent(VLMadsVideoDidStart);
}

void firstVideo(Scene &scene, Splash &splash) {
    splash.awaitVideo();
    scene.await("a second of the video counted down", [&] {
        return QStringList{"4", "3", "2", "1"}.contains(splash.countdown());
    });
    scene.picture("video");
    splash.clickVideo(scene.adValues("video", "VLMAppName"));
    const auto *sound = qobject_cast<QAbstractButton *>(splash.element("soundButton"));
    splash.click("soundButton");
    scene.await("the sound off", [sound] { return sound->isChecked(); });
    scene.picture("video-muted");
    splash.awaitCloseButton();
    scene.picture("video-with-close-button");
    scene.awaitEvent(VLMadsVideoDidStop);
}

// Takes pictures of a phase in both sizes, the present size first.
void picturesInBothSizes(Scene &scene, Splash &splash, const QString &phase) {
    const bool startsSmall = scene.window()->size() == SmallSize;
    for (const bool small : {startsSmall, !startsSmall}) {
        scene.resizeWindow(small ? SmallSize : UsualSize);
        scene.await("the splash screen in the window's size", [&] {
            return splash.isSettled() && splash.root()->size() == scene.window()->size();
        });
        const QString size = small ? "small" : "usual";
        scene.picture(QStringLiteral("%1-%2-%3-%4x")
                          .arg(phase, qEnvironmentVariable("LANGUAGE"), size)
                          .arg(scene.window()->devicePixelRatioF()));
    }
}

} // namespace

void firstSplash(Scene &scene) {
    Splash splash(scene);
    splash.openWindow({.delay = 4, .load = 3});
    askTooEarly(scene, splash);
    splash.awaitStoredVideo();
    firstStartScreen(scene, splash);
    firstVideo(scene, splash);
    splash.awaitEndScreen();
    scene.picture("end-screen");
    splash.close();
    scene.picture("splash-closed");
}

void defaultVideo(Scene &scene) {
    Splash splash(scene);
    QJsonObject table = scene.adTable();
    table.remove("video");
    scene.server().campaign().setReply(QJsonDocument(table).toJson());
    splash.openWindow({.load = 1});
    const QStringList clips = scene.demo().server().clips();
    scene.require(!clips.isEmpty(), "a clip to play");
    Velmora::setDefaultVideoURL(QUrl::fromLocalFile(clips.first()), "1652749318");
    // The store's look-up service, which the ad server stands in for, knows the name.
    scene.await("the name of the advertised application",
                [] { return Velmora::SSPresenter().defaultVideoName() == AppName; });
    Velmora::forceShow();
    scene.awaitEvent(VLMadsVideoDidStart);
    splash.awaitVideo();
    scene.picture("default-video");
    splash.clickVideo({AppName});
    splash.awaitCloseButton();
    scene.awaitEvent(VLMadsVideoDidStop);
    splash.awaitEndScreen("iconImageView");
    scene.picture("end-screen-without-still");
    SplashLook::night().apply();
    scene.await("the new look on the screen", [&] { return splash.isSettled(); });
    scene.picture("end-screen-restyled");
    splash.close();
}

void splashFormat(Scene &scene) {
    Splash splash(scene);
    splash.openWindow({.load = 3});
    splash.awaitStoredVideo();
    scene.window()->setMinimumSize(1, 1);
    scene.resizeWindow(UsualSize);
    Velmora::forceShow();
    splash.awaitStartScreen();
    const auto *remove = qobject_cast<QAbstractButton *>(splash.element("removeAdsButton"));
    const bool japanese = qEnvironmentVariable("LANGUAGE") == "ja";
    scene.expect(remove && remove->text().contains(japanese ? "広告" : "Werbung"),
                 "the language that was asked for");
    picturesInBothSizes(scene, splash, "start");
    splash.awaitVideo();
    picturesInBothSizes(scene, splash, "video");
    splash.awaitCloseButton();
    scene.awaitEvent(VLMadsVideoDidStop);
    splash.awaitEndScreen();
    picturesInBothSizes(scene, splash, "end");
    splash.close();
}

void restyledSplash(Scene &scene) {
    Splash splash(scene);
    splash.openWindow({.load = 2});
    splash.awaitStoredVideo();
    SplashLook::night().apply();
    Velmora::forceShow();
    splash.awaitStartScreen();
    scene.picture("start-screen-restyled");
    splash.awaitVideo();
    scene.picture("video-restyled");
    scene.pay(splash.element("removeAdsImageButton"), "offer-over-splash",
              [&] { return splash.root() != nullptr; });
    scene.picture("paid-during-splash");
}

} // namespace demo::tour
