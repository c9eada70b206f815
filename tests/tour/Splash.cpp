// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/Splash.h"

#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "demo/Page.h"
#include "tests/tour/Scene.h"
#include "tests/tour/ScreenRobot.h"

#include "AdsDownloader.h"

#include <Velmora/Notifications.h>

#include <QtWidgets/QWidget>

#include <algorithm>

namespace demo::tour {

void Splash::openWindow(const SplashTimes &times) {
    m_scene.demo().setTimes(times);
    m_scene.note(Timeline::Delay, QString::number(times.delay));
    m_scene.note(Timeline::LoadTime, QString::number(times.load));
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
    m_scene.note(Timeline::CloseButton);
    m_scene.await("the close button on the screen", [this] { return isSettled(); });
}

void Splash::awaitEndScreen(const char *ad) {
    m_scene.await(QStringLiteral("the end screen with %1").arg(ad), [&] {
        return isShown("closeButton") && !isShown("splashScreenPlayerView") && isShown(ad) &&
               isSettled();
    });
}

void Splash::picture(const QString &name) {
    m_scene.picture(name);
    const QWidget *whole = root();
    m_scene.require(whole != nullptr, "the splash screen in the picture " + name);
    for (const QWidget *part : whole->findChildren<QWidget *>()) {
        const QRect frame(part->mapTo(whole, QPoint()), part->size());
        m_scene.expect(!part->isVisible() || whole->rect().contains(frame),
                       part->objectName() + " inside the picture " + name);
    }
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
    const QList<QWidget *> parts = root()->findChildren<QWidget *>() << root();
    return std::none_of(parts.begin(), parts.end(),
                        [](const QWidget *part) { return part->graphicsEffect(); }) &&
           ScreenRobot::shows(root());
}

QString Splash::countdown() const {
    for (const char *name : {"timeLabel", "timeVideoLabel"}) {
        if (isShown(name))
            return element(name)->property("text").toString();
    }
    return {};
}

} // namespace demo::tour
