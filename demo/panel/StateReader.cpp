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
    return on ? Text::of(Text::StateYes) : Text::of(Text::StateNo);
}

QString stateName(qint64 state) {
    switch (state) {
    case SplashScreenPresenter::SplashScreenStateClosed:
        return Text::of(Text::StatePhaseClosed);
    case SplashScreenPresenter::SplashScreenStateStart:
        return Text::of(Text::StatePhaseStart);
    case SplashScreenPresenter::SplashScreenStateVideo:
        return Text::of(Text::StatePhaseVideo);
    case SplashScreenPresenter::SplashScreenStateVideoCloseButton:
        return Text::of(Text::StatePhaseVideoCloseButton);
    case SplashScreenPresenter::SplashScreenStateEnd:
        return Text::of(Text::StatePhaseEnd);
    default:
        return QString::number(state);
    }
}

QString timeLeft(const TimerPtr &timer) {
    if (!timer || !timer->isValid())
        return Dash;
    const std::chrono::duration<double> left =
        timer->deadline() - velmora::TimeSource::current().now();
    return Text::of(Text::Seconds).arg(qMax(left.count(), 0.0), 0, 'f', 1);
}

QString nameOf(const QJsonObject &ad) {
    const QString name = ad.value(QStringLiteral("name")).toString();
    return name.isEmpty() ? Dash : name;
}

QString fileOf(const QUrl &file) {
    return file.isEmpty() ? Dash : file.fileName();
}

void addSequence(QList<StateReader::Fact> &facts, const SplashScreenPresenter &presenter) {
    facts.append({Text::StateSequence, {}, true});
    facts.append({Text::StatePhase, stateName(presenter.stateSplashScreen())});
    facts.append({Text::StateOnScreen, yesNo(Velmora::isShowSplashScreen())});
    facts.append({Text::StateAdsReady, yesNo(Velmora::isADSReady())});
    facts.append({Text::StateFocus, yesNo(presenter.isFocus())});
    facts.append({Text::StateRequested, yesNo(presenter.isNeedShow())});
    facts.append({Text::StatePaused, yesNo(presenter.needsResumeSplashScreen())});
    facts.append({Text::StateElapsed, Text::of(Text::Seconds).arg(presenter.passedTime())});
    facts.append({Text::StateShownSoFar, QString::number(Velmora::splashScreenStartCount())});
    facts.append({Text::StateWindows, QString::number(presenter.SSControllers().size())});
    facts.append({Text::StateMuted, yesNo(presenter.isMuted())});
    facts.append({Text::StateAdsRemoved, yesNo(Velmora::isADSRemoved())});
    facts.append({Text::StateAutoRemove, yesNo(Velmora::isARCActivate())});
}

void addTimers(QList<StateReader::Fact> &facts, const SplashScreenPresenter &presenter) {
    facts.append({Text::StateTimers, {}, true});
    facts.append({Text::StateFirstStartTimer, timeLeft(presenter.firstStartTimer())});
    facts.append({Text::StateWaitingTimer, timeLeft(presenter.prepareTimer())});
    facts.append({Text::StateCloseButtonTimer, timeLeft(presenter.videoTimer())});
    facts.append({Text::StateTickTimer, timeLeft(presenter.tickTimer())});
    facts.append({Text::StateResumeTickTimer, timeLeft(presenter.resumeTickTimer())});
}

void addAds(QList<StateReader::Fact> &facts) {
    const auto &downloader = AdsDownloader::sharedInstance();
    const auto table = downloader->replyJSON();
    const auto count = [&table](const char *placement) {
        const auto ads = table->value(QLatin1String(placement)).toArray();
        return Text::of(Text::StateAdCount).arg(ads.size());
    };
    facts.append({Text::StateAdTable, {}, true});
    facts.append({Text::StateBanners, table ? count("standard") : Dash});
    facts.append({Text::StateVideos, table ? count("video") : Dash});
    facts.append({Text::StateBannerDrawn, nameOf(downloader->bannerInfo())});
    facts.append({Text::StateVideoDrawn, nameOf(downloader->videoInfo())});
    facts.append({Text::StateStill, fileOf(downloader->interstitialVideoURL())});
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

} // namespace demo
