// SPDX-License-Identifier: Apache-2.0
#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "demo/Theme.h"
#include "tests/tour/Scene.h"
#include "tests/tour/Scenes.h"
#include "tests/tour/ScreenRobot.h"
#include "tests/tour/Splash.h"

#include <Velmora/Notifications.h>

#include <QtWidgets/QLabel>

namespace demo::tour {

namespace {

constexpr int PauseMs = 2200;
constexpr QSize WithPanel(1280, 800);

void videoOnly(Scene &scene, Splash &splash) {
    scene.await("the window in the corner of the screen",
                [&] { return ScreenRobot::shows(scene.control("panelButton")); });
    scene.reveal("panelButton", "showTab");
    scene.resizeWindow(WithPanel);
    scene.picture("panel-show");
    scene.click(scene.reveal("showTab", "videoOnlyButton"));
    splash.awaitVideo();
    scene.await("a video that has begun",
                [&] { return splash.isSettled() && splash.countdown() != "5"; });
    scene.picture("video-only");
    splash.awaitCloseButton();
    splash.close();
}

/// @return a second window, which has joined the start screen
JournalWindow *secondWindow(Scene &scene, Splash &splash) {
    scene.click(scene.reveal("showTab", "forceButton"));
    scene.awaitEvent(VLMsplashScreenShowMoreOne);
    splash.awaitStartScreen();
    JournalWindow *second = scene.demo().openWindow();
    const Splash joined(scene, second);
    scene.await("the start screen in a window that joins",
                [&] { return second->isActiveWindow() && joined.isShown("lablesView"); });
    second->move(scene.window()->frameGeometry().topRight() + QPoint(1, 0));
    return second;
}

void pause(Scene &scene, Splash &splash, JournalWindow *second) {
    JournalWindow *window = scene.window();
    QLabel other("A window without a splash screen");
    other.setWindowTitle("Packing list");
    other.setFont(theme::text(15));
    other.setAlignment(Qt::AlignCenter);
    other.setFixedSize(360, 130);
    other.move(window->pos() + QPoint(60, 90));
    other.show();
    other.activateWindow();
    scene.awaitActive(&other);
    scene.note("away");
    const QString counted = splash.countdown();
    scene.watch(
        "a countdown that stays at " + counted,
        [&] { return !counted.isEmpty() && splash.countdown() == counted; }, PauseMs);
    scene.picture("paused");
    scene.picture("paused-second-window", second);
    other.hide();
    window->raise();
    window->activateWindow();
    scene.awaitActive(window);
    scene.note("back");
    scene.await("a countdown that continues", [&] { return splash.countdown() != counted; });
}

} // namespace

void severalWindows(Scene &scene) {
    Splash splash(scene);
    splash.openWindow({.load = 4});
    scene.window()->move(0, 0);
    splash.awaitStoredVideo();
    videoOnly(scene, splash);
    JournalWindow *second = secondWindow(scene, splash);
    pause(scene, splash, second);
    scene.awaitEvent(VLMadsVideoDidStart, 2);
    splash.awaitCloseButton();
    scene.picture("second-window-waits", second);
    splash.close();
    scene.await("the second window without its splash screen",
                [&] { return !Splash(scene, second).root(); });
    second->close();
    scene.reveal("lookTab", "nightButton");
    scene.picture("panel-look");
    scene.reveal("hostTab", "registerButton");
    scene.picture("panel-host");
}

} // namespace demo::tour
