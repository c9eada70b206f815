// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/Splash.h"

#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "demo/Page.h"
#include "tests/tour/Scene.h"
#include "tests/tour/ScreenRobot.h"

#include "AdsDownloader.h"
#include "Fade.h"

#include <Velmora/Notifications.h>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace demo::tour {

void Splash::openWindow(const SplashTimes &times) {
    m_scene.demo().setTimes(times);
    m_scene.openWindow();
}

void Splash::awaitStoredVideo() {
    const auto &downloader = velmora::AdsDownloader::sharedInstance();
    m_scene.await("a stored video with its still", [&] {
        return !downloader->linkVideoURL().isEmpty() &&
               !downloader->interstitialVideoURL().isEmpty();
    });
}

void Splash::awaitStartScreen() {
    m_scene.await("the start screen", [this] { return isShown("lablesView") && isSettled(); });
}

void Splash::awaitVideo() {
    m_scene.await("the video and its controls", [this] {
        return isShown("splashScreenPlayerView") && isShown("soundButton") &&
               isShown("removeAdsImageButton") && !isShown("lablesView") && isSettled() &&
               ScreenRobot::hasPictureAt(element("splashScreenPlayerView"));
    });
}

void Splash::awaitCloseButton() {
    m_scene.await("the close button", [this] { return isShown("closeButton"); });
    m_scene.note("close-button");
    m_scene.await("the close button on the screen", [this] { return isSettled(); });
}

void Splash::awaitEndScreen(const char *ad) {
    m_scene.await(QStringLiteral("the end screen with %1").arg(ad), [&] {
        return isShown("closeButton") && !isShown("splashScreenPlayerView") && isShown(ad) &&
               isSettled();
    });
}

void Splash::click(const char *name) {
    m_scene.require(isShown(name), QStringLiteral("%1 to click").arg(name));
    m_scene.click(element(name));
}

void Splash::clickVideo(const QStringList &names) {
    m_scene.require(isShown("urlButton"), "something to click on the video");
    m_scene.clickAd(element("urlButton"), VLMclickForVideo, names);
}

void Splash::close() {
    const int before = m_scene.count(VLMsplashScreenDidClose);
    click("closeButton");
    m_scene.awaitEvent(VLMsplashScreenDidClose, before + 1);
    m_scene.await("the page without a splash screen",
                  [this] { return !root() && ScreenRobot::shows(m_scene.window()->page()); });
    // Until then a click counts as the second of a double click, and the host does not get it.
    QTest::qWait(QApplication::doubleClickInterval());
}

QWidget *Splash::root() const {
    const QWidget *window = m_window ? m_window : m_scene.window();
    auto *root = window->findChild<QWidget *>("splashScreenView");
    return root && root->isVisible() ? root : nullptr;
}

QWidget *Splash::element(const char *name) const {
    return root() ? root()->findChild<QWidget *>(name) : nullptr;
}

bool Splash::isShown(const char *name) const {
    return element(name) && element(name)->isVisible();
}

bool Splash::isSettled() const {
    if (!root())
        return false;
    return root()->findChildren<velmora::Fade *>().isEmpty() && ScreenRobot::shows(root());
}

QString Splash::countdown() const {
    for (const char *name : {"timeLabel", "timeVideoLabel"}) {
        if (isShown(name))
            return element(name)->property("text").toString();
    }
    return {};
}

} // namespace demo::tour
