// SPDX-License-Identifier: Apache-2.0
#include "demo/panel/StateReader.h"

#include "AdsDownloader.h"
#include "SplashScreenPresenter.h"
#include "TimeSource.h"

#include <Velmora/Velmora.h>

#include <QtCore/QJsonArray>

#include <chrono>

namespace demo {

namespace {

using velmora::AdsDownloader;
using velmora::SplashScreenPresenter;
using velmora::TimerPtr;

const QString Dash = QStringLiteral("–");

QString yesNo(bool on) {
    return on ? QStringLiteral("yes") : QStringLiteral("no");
}

QString stateName(qint64 state) {
    switch (state) {
    case SplashScreenPresenter::SplashScreenStateClosed:
        return QStringLiteral("closed");
    case SplashScreenPresenter::SplashScreenStateStart:
        return QStringLiteral("start");
    case SplashScreenPresenter::SplashScreenStateVideo:
        return QStringLiteral("video");
    case SplashScreenPresenter::SplashScreenStateVideoCloseButton:
        return QStringLiteral("video, close button");
    case SplashScreenPresenter::SplashScreenStateEnd:
        return QStringLiteral("end");
    default:
        return QString::number(state);
    }
}

QString timeLeft(const TimerPtr &timer) {
    if (!timer || !timer->isValid())
        return Dash;
    const std::chrono::duration<double> left =
        timer->deadline() - velmora::TimeSource::current().now();
    return QStringLiteral("%1 s").arg(qMax(left.count(), 0.0), 0, 'f', 1);
}

QString nameOf(const QJsonObject &ad) {
    const QString name = ad.value(QStringLiteral("name")).toString();
    return name.isEmpty() ? Dash : name;
}

QString fileOf(const QUrl &file) {
    return file.isEmpty() ? Dash : file.fileName();
}

void addSequence(QList<StateReader::Fact> &facts, const SplashScreenPresenter &presenter) {
    facts.append({QStringLiteral("Sequence"), {}, true});
    facts.append({QStringLiteral("State"), stateName(presenter.stateSplashScreen())});
    facts.append({QStringLiteral("On screen"), yesNo(Velmora::isShowSplashScreen())});
    facts.append({QStringLiteral("Ads ready"), yesNo(Velmora::isADSReady())});
    facts.append({QStringLiteral("Focus"), yesNo(presenter.isFocus())});
    facts.append({QStringLiteral("Asked for"), yesNo(presenter.isNeedShow())});
    facts.append({QStringLiteral("Paused"), yesNo(presenter.needsResumeSplashScreen())});
    facts.append({QStringLiteral("Passed"), QStringLiteral("%1 s").arg(presenter.passedTime())});
    facts.append(
        {QStringLiteral("Shown so far"), QString::number(Velmora::splashScreenStartCount())});
    facts.append({QStringLiteral("Windows"), QString::number(presenter.SSControllers().size())});
    facts.append({QStringLiteral("Muted"), yesNo(presenter.isMuted())});
    facts.append({QStringLiteral("Ads removed"), yesNo(Velmora::isADSRemoved())});
    facts.append({QStringLiteral("Windows leave"), yesNo(Velmora::isARCActivate())});
}

void addTimers(QList<StateReader::Fact> &facts, const SplashScreenPresenter &presenter) {
    facts.append({QStringLiteral("Timers"), {}, true});
    facts.append({QStringLiteral("First start"), timeLeft(presenter.firstStartTimer())});
    facts.append({QStringLiteral("Waiting"), timeLeft(presenter.prepareTimer())});
    facts.append({QStringLiteral("Video, button"), timeLeft(presenter.videoTimer())});
    facts.append({QStringLiteral("Tick"), timeLeft(presenter.tickTimer())});
    facts.append({QStringLiteral("Tick again"), timeLeft(presenter.resumeTickTimer())});
}

void addAds(QList<StateReader::Fact> &facts) {
    const auto &downloader = AdsDownloader::sharedInstance();
    const auto table = downloader->replyJSON();
    const auto count = [&table](const char *placement) {
        const auto ads = table->value(QLatin1String(placement)).toArray();
        return QStringLiteral("%1 ads").arg(ads.size());
    };
    facts.append({QStringLiteral("Ad table"), {}, true});
    facts.append({QStringLiteral("Banners"), table ? count("standard") : Dash});
    facts.append({QStringLiteral("Videos"), table ? count("video") : Dash});
    facts.append({QStringLiteral("Banner drawn"), nameOf(downloader->bannerInfo())});
    facts.append({QStringLiteral("Video drawn"), nameOf(downloader->videoInfo())});
    facts.append({QStringLiteral("Still"), fileOf(downloader->interstitialVideoURL())});
}

} // namespace

QList<StateReader::Fact> StateReader::read() {
    QList<Fact> facts;
    const SplashScreenPresenter &presenter = Velmora::SSPresenter();
    addSequence(facts, presenter);
    addTimers(facts, presenter);
    addAds(facts);
    return facts;
}

bool StateReader::hasVideo() {
    const auto &downloader = AdsDownloader::sharedInstance();
    return !downloader->linkVideoURL().isEmpty() && !downloader->interstitialVideoURL().isEmpty();
}

QString StateReader::defaultVideoName() {
    return Velmora::SSPresenter().defaultVideoName();
}

} // namespace demo
