// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "TimeSource.h"
#include "VideoAd.h"

#include <QtCore/QJsonObject>
#include <QtCore/QUrl>
#include <QtCore/QVariant>

#include <memory>
#include <optional>

namespace velmora {

class AdsDownloader;

/// Which video a splash-screen sequence plays: the one that the downloader has ready, else the
/// host's default video. What belongs to the chosen video (link, end picture, ad) is kept until
/// the next choice. Main thread only.
class SplashVideo {
public:
    SplashVideo();

    /// Has the downloader prepare the next video.
    void download();
    /// The same, for a caller that asks again and again: at most every 15 seconds.
    void retryDownload();
    /// True when there is a video to choose, without choosing one.
    bool isAvailable() const;

    /// The video that is played when the ad server has none, and where a click on it leads. The
    /// name of the advertised application is looked up in the background.
    void setDefault(const QUrl &video, const QUrl &link);
    const QUrl &defaultUrl() const { return m_defaultUrl; }
    const QUrl &defaultLink() const { return m_defaultLink; }
    /// Null while the look-up runs, and when it found nothing.
    const QString &defaultName() const { return m_defaultName; }

    /// Loads the module that plays videos, if there is a video to play.
    void warmUpPlayer() const;

    /// Chooses the video of a sequence, and has the downloader prepare the next one.
    void choose();
    const QUrl &url() const { return m_chosen.file; }
    const QUrl &link() const { return m_chosen.link; }
    /// The picture of the end screen; empty when the ad has none.
    const QUrl &interstitialUrl() const { return m_chosen.still; }
    /// The ad as the server sent it; empty for the default video.
    const QJsonObject &info() const { return m_chosen.info; }

    /// What is to be played after a choice: also the default video when the downloader has none.
    /// Empty when there is no video at all.
    const QUrl &urlToPlay() const { return url().isEmpty() ? m_defaultUrl : url(); }
    bool hasLink() const { return !link().isEmpty() || !m_defaultLink.isEmpty(); }
    /// Where a click on the video leads.
    const QUrl &linkToOpen() const;
    /// Name of the advertised application, a QString; invalid when it is not known.
    QVariant advertisedName() const;

    /// Length of the chosen video, whole seconds; 0 until it is set.
    qint64 duration() const { return m_duration; }
    /// Truncated to whole seconds. 0 is ignored: a player tells no length before it is ready.
    void setDuration(double seconds);

private:
    void lookUpDefaultName();

    std::shared_ptr<AdsDownloader> m_downloader;
    QUrl m_defaultUrl;
    QUrl m_defaultLink;
    QString m_defaultName;
    VideoAd m_chosen;
    qint64 m_duration = 0;
    std::optional<TimeSource::Duration> m_lastRetry;
    /// Expires with this object, for a look-up that is still running then.
    std::shared_ptr<int> m_alive = std::make_shared<int>();
};

} // namespace velmora
