// SPDX-License-Identifier: Apache-2.0
#include "tests/support/SplashHost.h"

#include "AdKeys.h"
#include "AdsDownloader.h"
#include "Animator.h"
#include "Workspace.h"
#include "tests/support/Waiting.h"

#include <QtCore/QJsonArray>

namespace velmora::test {

SplashHost::SplashHost() {
    Workspace::setOpener([this](const QUrl &link) {
        opened.append(link);
        return true;
    });
    for (const QString &name :
         {VLMtryRemoveAds, VLMclickForVideo, VLMadsVideoDidStart, VLMadsVideoDidStop,
          VLMsplashScreenShowMoreOne, VLMsplashScreenWillShow, VLMsplashScreenDidShow,
          VLMsplashScreenDidClose}) {
        m_observations.push_back(
            NotificationCenter::defaultCenter().addObserver(name, [this](const Notification &told) {
                QString line = told.name.section(QLatin1Char('.'), -1);
                if (told.object.isValid())
                    line += QLatin1Char(':') + told.object.toString();
                m_heard.append(line);
            }));
    }
}

SplashHost::~SplashHost() {
    Workspace::setOpener(nullptr);
    for (const auto &window : m_windows)
        delete window;
    restartProcess();
}

QWidget *SplashHost::openWindow(QAnyStringView name) {
    auto *window = new QWidget;
    window->setObjectName(name.toString());
    window->resize(640, 480);
    window->show();
    m_windows.emplace_back(window);
    activate(window);
    return window;
}

QWidget *SplashHost::openRegistered(QAnyStringView name) {
    QWidget *window = openWindow(name);
    Velmora::addSplashScreenToWindow(window);
    handleEvents();
    return window;
}

void SplashHost::activate(QWidget *window) {
    window->activateWindow();
    handleEvents();
}

bool SplashHost::isShown(const QWidget *element) {
    return element && !Animator::isHidden(element);
}

QString SplashHost::countdown(QWidget *window) {
    return controller(window).outlets().lablesView->timeLabel()->text();
}

QString SplashHost::videoCountdown(QWidget *window) {
    return controller(window).outlets().timeVideoLabel->text();
}

void SplashHost::useUnplayableVideo() {
    putInCaches("broken.mp4", "no video");
    Velmora::setDefaultVideoWithURL(
        QUrl::fromLocalFile(cachesFolder() + QStringLiteral("/broken.mp4")), {});
}

void SplashHost::drawVideo(const QString &name) {
    AdsDownloader &downloader = *AdsDownloader::sharedInstance();
    downloader.startUpdateAllAds();
    ASSERT_TRUE(eventually([&] { return downloader.isUpdateAdsCurrentSession(); }));
    const QJsonObject ad{{kMainNameKey, name},
                         {kVideoCapture, QStringLiteral("/%1.mp4").arg(name)},
                         {kVideoImage, QStringLiteral("/%1.png").arg(name)},
                         {kVideoPriority, 1},
                         {kVideoURL, QStringLiteral("https://store.example/app/%1").arg(name)}};
    downloader.setReplyJSON(QJsonObject{{kMainVideoKey, QJsonArray{ad}}});
    downloader.downloadVideo();
}

QStringList SplashHost::heard() {
    return std::exchange(m_heard, {});
}

} // namespace velmora::test
