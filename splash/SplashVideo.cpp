// SPDX-License-Identifier: Apache-2.0
#include "SplashVideo.h"

#include "AdKeys.h"
#include "AdsDownloader.h"
#include "BackgroundThread.h"
#include "MainQueue.h"
#include "ProcessRoot.h"
#include "VideoPlayer.h"

#include <Velmora/Support.h>

#include <QtCore/QFileInfo>

namespace velmora {

namespace {

constexpr std::chrono::seconds RetryInterval{15};

QVariant validUnlessNull(const QString &name) {
    return name.isNull() ? QVariant() : QVariant(name);
}

} // namespace

SplashVideo::SplashVideo() : m_downloader(AdsDownloader::sharedInstance()) {}

void SplashVideo::download() {
    m_downloader->downloadVideo();
}

void SplashVideo::retryDownload() {
    const auto now = TimeSource::current().now();
    if (m_lastRetry && now - *m_lastRetry < RetryInterval)
        return;
    m_lastRetry = now;
    download();
}

bool SplashVideo::isAvailable() const {
    return m_downloader->hasReadyVideo() || QFileInfo::exists(m_defaultUrl.toLocalFile());
}

void SplashVideo::setDefault(const QUrl &video, const QUrl &link) {
    m_defaultUrl = video;
    m_defaultLink = link;
    lookUpDefaultName();
}

void SplashVideo::lookUpDefaultName() {
    if (m_defaultLink.isEmpty())
        return;
    // Otherwise the answer could not be delivered, and the thread might run while the process ends.
    if (!ProcessRoot::isUsable()) {
        LOG(QStringLiteral("the default video's name is not looked up: no application object"));
        return;
    }
    const auto work = [this, alive = std::weak_ptr(m_alive), link = m_defaultLink] {
        const QString name = AdsDownloader::appNameFromMarketLink(link.path(), false);
        MainQueue::post([this, alive, link, name] {
            // The host may have set another link meanwhile.
            if (!alive.expired() && m_defaultLink == link)
                m_defaultName = name;
        });
    };
    QString error;
    if (!startBackgroundThread("velmora-name", AtExit::Waits, work, &error))
        LOG(QStringLiteral("the default video's name cannot be looked up: %1").arg(error));
}

void SplashVideo::warmUpPlayer() const {
    if (!m_downloader->interstitialVideoURL().isEmpty() || !m_defaultUrl.isEmpty())
        VideoPlayer::warmUp();
}

void SplashVideo::choose() {
    m_duration = 0;
    // Read once: every reading prepares the next video.
    m_chosen = m_downloader->readyVideo();
    if (m_chosen.file.path().contains(MissingNameMark))
        m_chosen = {m_defaultUrl, {}, {}, {}};
}

const QUrl &SplashVideo::linkToOpen() const {
    // The link is compared with the default video's address, not with its link.
    const bool isOwn = !link().isEmpty() && link() != m_defaultUrl;
    return isOwn ? link() : m_defaultLink;
}

QVariant SplashVideo::advertisedName() const {
    return validUnlessNull(info().isEmpty() ? m_defaultName : m_chosen.name());
}

void SplashVideo::setDuration(double seconds) {
    if (seconds > 0)
        m_duration = qint64(seconds);
}

} // namespace velmora
