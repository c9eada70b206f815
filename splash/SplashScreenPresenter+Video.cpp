// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenPresenter.h"

#include "AdKeys.h"
#include "AdsDownloader.h"
#include "BackgroundThread.h"
#include "MainQueue.h"
#include "Workspace.h"

#include <Velmora/Notifications.h>
#include <Velmora/Support.h>

namespace velmora {

namespace {

QVariant orNone(const QString &name) {
    return name.isNull() ? QVariant() : QVariant(name);
}

} // namespace

void SplashScreenPresenter::starDownLoad() {
    m_downloader->downloadVideo();
}

void SplashScreenPresenter::setDefaultVideoWithURL(const QUrl &video, const QUrl &link) {
    m_defaultVideoUrl = video;
    m_defaultLinkFromVideoUrl = link;
    lookUpDefaultVideoName();
}

void SplashScreenPresenter::lookUpDefaultVideoName() {
    if (m_defaultLinkFromVideoUrl.isEmpty())
        return;
    const auto work = [weak = weak_from_this(), link = m_defaultLinkFromVideoUrl] {
        const QString name = AdsDownloader::appNameFromMarketLink(link.path(), false);
        MainQueue::post([weak, link, name] {
            const auto self = weak.lock();
            // A slow answer never takes the place of a later link's.
            if (self && self->m_defaultLinkFromVideoUrl == link)
                self->m_defaultVideoName = name;
        });
    };
    QString error;
    if (!startBackgroundThread("velmora-name", work, &error))
        LOG(QStringLiteral("the default video's name cannot be looked up: %1").arg(error));
}

// A host that never has a video loads nothing that plays one.
void SplashScreenPresenter::warmUpVideo() {
    const bool isReady = !m_downloader->interstitialVideoURL().isEmpty();
    if (isReady || !m_defaultVideoUrl.isEmpty())
        VideoPlayer::warmUp();
}

void SplashScreenPresenter::chooseVideo() {
    m_videoDuration = 0;
    // Read once: every read prepares the next video.
    VideoAd video = m_downloader->readyVideo();
    if (video.file.path().contains(MissingNameMark))
        video = {m_defaultVideoUrl, {}, {}, {}}; // nothing of an ad goes with the default video
    m_videoUrl = video.file;
    m_linkFromVideoUrl = video.link;
    m_interstitialVideoUrl = video.still;
    m_videoInfo = video.info;
}

void SplashScreenPresenter::startShowVideo() {
    stopWaitVideoTimer();
    m_showVideo = true;
    m_stateSplashScreen = SplashScreenStateVideo;
    // A timer that outlived its sequence covers no window any more.
    if (m_show)
        startVideo();
    else
        startVideoTimerWithTime(SplashClock::VideoSeconds);
    NotificationCenter::defaultCenter().post(VLMadsVideoDidStart);
}

void SplashScreenPresenter::startVideo() {
    chooseVideo();
    const Controller controller = m_windows.playing;
    const qint64 total = m_loadTime + SplashClock::VideoSeconds;
    if (m_videoUrl.isEmpty() && (m_defaultVideoUrl.isEmpty() || !controller)) {
        LOG(QStringLiteral("there is no video to play"));
        if (controller)
            controller->startTimerViewFromSec(m_loadTime, total);
        startVideoTimerWithTime(SplashClock::VideoSeconds);
    } else {
        if (controller) {
            const bool isOwn = !m_videoUrl.isEmpty() && m_videoUrl != m_defaultVideoUrl;
            controller->setVideoUrl(isOwn ? m_videoUrl : m_defaultVideoUrl);
            controller->showVideo();
            controller->startVideoTimerViewFromSec(m_loadTime, total);
        }
        startVideoTimerWithTime(SplashClock::VideoSeconds);
        updateTimerText();
        updateVideoTimerText();
    }
}

void SplashScreenPresenter::showCloseButton() {
    m_stateSplashScreen = SplashScreenStateVideoCloseButton;
    m_closeButtonIsDue = false;
    stopVideo();
}

void SplashScreenPresenter::stopVideo() {
    noteVideoDuration();
    stopVideoTimer();
    if (const Controller playing = m_windows.playing)
        playing->continueShowVideo();
    showEndScreens();
}

void SplashScreenPresenter::showEndScreens() {
    if (!m_show)
        return;
    for (const Controller &controller : m_windows.copy()) {
        controller->setInterstitialUrl(m_interstitialVideoUrl);
        controller->showEndScreen();
    }
}

void SplashScreenPresenter::didVideoEnded() {
    if (!m_show)
        return;
    noteVideoDuration();
    m_showEnd = true;
    m_showVideo = false;
    m_stateSplashScreen = SplashScreenStateEnd;
    // Before the close button is due, the end screens wait for its timer.
    if (!m_clock.isPhaseTimerPending())
        showEndScreens();
    NotificationCenter::defaultCenter().post(VLMadsVideoDidStop);
}

void SplashScreenPresenter::didClickOnVideo() {
    if (m_linkFromVideoUrl.isEmpty() && m_defaultLinkFromVideoUrl.isEmpty())
        return;
    // Compared with the default video's address, not with its link.
    const bool isOwn = !m_linkFromVideoUrl.isEmpty() && m_linkFromVideoUrl != m_defaultVideoUrl;
    Workspace::openURL(isOwn ? m_linkFromVideoUrl : m_defaultLinkFromVideoUrl);
    QVariant name = orNone(m_defaultVideoName);
    if (!m_videoInfo.isEmpty())
        name = orNone(m_videoInfo.value(kMainNameKey).toString());
    NotificationCenter::defaultCenter().post(VLMclickForVideo, name);
}

void SplashScreenPresenter::setMuted(bool muted) {
    m_muted = muted;
    for (const Controller &controller : m_windows.copy())
        controller->setMuted(muted);
}

void SplashScreenPresenter::didChangeMuted(bool muted) {
    setMuted(muted);
}

void SplashScreenPresenter::didClickRemoveAds() {
    NotificationCenter::defaultCenter().post(VLMtryRemoveAds);
}

void SplashScreenPresenter::noteVideoDuration() {
    const double seconds = m_windows.playing ? m_windows.playing->videoSeconds() : 0;
    if (seconds > 0)
        m_videoDuration = qint64(seconds);
}

qint64 SplashScreenPresenter::videoDuration() {
    noteVideoDuration();
    return m_videoDuration;
}

} // namespace velmora
