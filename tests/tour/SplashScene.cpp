// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/SplashScene.h"

#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "demo/Page.h"
#include "tests/tour/ScreenRobot.h"

#include "AdsDownloader.h"

#include <Velmora/Velmora.h>

#include <QtWidgets/QLabel>

#include <algorithm>

namespace demo::tour {

namespace {

bool hasStoredVideo() {
    const auto &downloader = velmora::AdsDownloader::sharedInstance();
    return !downloader->linkVideoURL().isEmpty() && !downloader->interstitialVideoURL().isEmpty();
}

} // namespace

bool SplashScene::openWindow(const SplashTimes &times) {
    m_demo.setTimes(times);
    m_timeline.add(Timeline::Delay, QString::number(times.delay));
    m_timeline.add(Timeline::LoadTime, QString::number(times.load));
    return Scene::openWindow();
}

bool SplashScene::awaitStoredVideo() {
    return await(QStringLiteral("a stored video with its still"), &hasStoredVideo);
}

bool SplashScene::awaitStartScreen(JournalWindow *window) {
    return await(QStringLiteral("the start screen"),
                 [&] { return isShown("lablesView", window) && isSettled(window); });
}

bool SplashScene::awaitVideo() {
    return await(QStringLiteral("the video's controls"),
                 [this] {
                     return isShown("splashScreenPlayerView") && isShown("soundButton") &&
                            isShown("removeAdsImageButton") && !isShown("lablesView") &&
                            isSettled();
                 }) &&
           await(QStringLiteral("pictures of the video"),
                 [this] { return ScreenRobot::hasPictureAt(element("splashScreenPlayerView")); });
}

bool SplashScene::awaitCloseButton() {
    const bool there =
        await(QStringLiteral("the close button"), [this] { return isShown("closeButton"); });
    m_timeline.add(Timeline::CloseButton);
    return there &&
           await(QStringLiteral("the close button on the screen"), [this] { return isSettled(); });
}

bool SplashScene::awaitEndScreen(bool hasStill) {
    return await(hasStill ? QStringLiteral("the end screen with the still")
                          : QStringLiteral("the end screen with the icon"),
                 [this, hasStill] {
                     return isShown("closeButton") && !isShown("splashScreenPlayerView") &&
                            isShown(hasStill ? "interstitialImage" : "iconImageView") &&
                            isSettled();
                 });
}

bool SplashScene::awaitNotification(const QString &notification, int times) {
    return await(notification, [&] { return count(notification) >= times; });
}

bool SplashScene::close() {
    const int before = count(VLMsplashScreenDidClose);
    clickElement("closeButton");
    return awaitNotification(VLMsplashScreenDidClose, before + 1) &&
           await(QStringLiteral("the page without a splash screen"),
                 [this] { return !splash() && ScreenRobot::shows(m_window->page()); });
}

void SplashScene::clickVideo(const QStringList &names) {
    const int links = count(LinkOpener::Opened);
    const int clicks = count(VLMclickForVideo);
    QWidget *area = element("urlButton");
    if (!expect(area != nullptr, QStringLiteral("something to click on the video")))
        return;
    click(area, {area->width() * 2 / 5, area->height() / 3});
    awaitNotification(VLMclickForVideo, clicks + 1);
    expect(count(LinkOpener::Opened) == links + 1, QStringLiteral("the video's link opened"));
    expectStoreLink();
    expect(names.contains(lastObject(VLMclickForVideo)),
           QStringLiteral("the name of the advertised application in the notification"));
    movePointerAway();
}

void SplashScene::clickElement(const char *name) {
    QWidget *widget = element(name);
    if (expect(widget && widget->isVisible(),
               QStringLiteral("%1 to click").arg(QLatin1String(name))))
        click(widget);
}

QWidget *SplashScene::splash(const JournalWindow *window) const {
    auto *root =
        (window ? window : m_window)->findChild<QWidget *>(QStringLiteral("splashScreenView"));
    return root && root->isVisible() ? root : nullptr;
}

QWidget *SplashScene::element(const char *name, const JournalWindow *window) const {
    const QWidget *root = splash(window);
    return root ? root->findChild<QWidget *>(QLatin1String(name)) : nullptr;
}

bool SplashScene::isShown(const char *name, const JournalWindow *window) const {
    const QWidget *found = element(name, window);
    return found && found->isVisible();
}

bool SplashScene::isSettled(const JournalWindow *window) const {
    QWidget *root = splash(window);
    if (!root || root->graphicsEffect())
        return false;
    const auto parts = root->findChildren<QWidget *>();
    return std::none_of(parts.begin(), parts.end(),
                        [](const QWidget *part) { return part->graphicsEffect(); }) &&
           ScreenRobot::shows(root);
}

QString SplashScene::countdown() const {
    for (const char *name : {"timeLabel", "timeVideoLabel"}) {
        if (const auto *label = qobject_cast<QLabel *>(element(name)); label && label->isVisible())
            return label->text();
    }
    return {};
}

void SplashScene::expectAllFits(const QString &phase) {
    const QWidget *root = splash();
    if (!root)
        return;
    for (const QWidget *part : root->findChildren<QWidget *>()) {
        if (!part->isVisible())
            continue;
        const QRect frame(part->mapTo(root, QPoint()), part->size());
        expect(root->rect().contains(frame),
               QStringLiteral("%1 inside %2").arg(part->objectName(), phase));
        if (const auto *label = qobject_cast<const QLabel *>(part); label && label->wordWrap())
            expect(label->heightForWidth(label->width()) <= label->height(),
                   QStringLiteral("%1 not cut off on %2").arg(part->objectName(), phase));
    }
}

} // namespace demo::tour
