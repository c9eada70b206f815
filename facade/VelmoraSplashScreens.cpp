// SPDX-License-Identifier: Apache-2.0
#include <Velmora/Velmora.h>

#include "AdsDownloader.h"
#include "Deployment.h"
#include "FacadeState.h"
#include "MainQueue.h"
#include "ProcessRoot.h"
#include "Refusal.h"
#include "SplashScreenPresenter.h"
#include "Switches.h"
#include "WindowProxy.h"

#include <algorithm>

using velmora::AdsDownloader;
using velmora::Deployment;
using velmora::FacadeState;
using velmora::MainQueue;
using velmora::ProcessRoot;
using velmora::Refusal;
using velmora::SplashScreenPresenter;
using velmora::SplashSequence;
using velmora::Switches;
using velmora::WindowProxy;

namespace {

// Seconds.
constexpr qint64 DefaultDelay = 30;
constexpr qint64 LongestLoadTime = 15;

const QString Warning = QStringLiteral("WARNING");
const QString Error = QStringLiteral("ERROR");

using Reason = Refusal::Reason;
using Request = Refusal::Request;

bool isAllowed(Request request) {
    if (Switches::isADSRemoved()) {
        Refusal::reportAdsRemoved(request);
        return false;
    }
    if (FacadeState::hasApplication())
        return true;
    Refusal::report(request, Reason::NoApplication,
                    QStringLiteral("splash screens need a QApplication"));
    return false;
}

// Runs a request on the main thread, unless ads are removed.
void run(Request request, void (*work)(SplashScreenPresenter &)) {
    if (!isAllowed(request))
        return;
    if (MainQueue::isMainThread())
        work(Velmora::SSPresenter());
    else
        MainQueue::post([request, work] { run(request, work); });
}

bool isOnMainThread(Request request) {
    if (MainQueue::isMainThread())
        return true;
    const QString text = QStringLiteral("splash screens are set up on the main thread only");
    Velmora::LOG(Error, text);
    Refusal::signal(request, Reason::WrongThread, text);
    return false;
}

// Starts the update cycle, once, as soon as ads are allowed: a host without banners would get no
// ads otherwise. Posted, so that banners which the host adds in the same turn of the main loop
// still find the stored ad table before the ad server's reply may replace it.
void startUpdateCycle() {
    if (FacadeState::current().isUpdateCycleStarted || Switches::isADSRemoved())
        return;
    MainQueue::post([] {
        FacadeState &state = FacadeState::current();
        if (state.isUpdateCycleStarted || Switches::isADSRemoved())
            return;
        state.isUpdateCycleStarted = true;
        AdsDownloader::sharedInstance()->startUpdateAllAds();
    });
}

bool mayAddSplashScreen() {
    return isAllowed(Request::AddSplashScreen) && isOnMainThread(Request::AddSplashScreen);
}

bool addSplashScreen(QWidget *window, bool unity) {
    if (!mayAddSplashScreen())
        return false;
    SplashScreenPresenter &presenter = Velmora::SSPresenter();
    startUpdateCycle();
    return presenter.addSplashScreenForWindow(window, unity);
}

bool addSplashScreen(QWindow *window, bool unity) {
    return mayAddSplashScreen() && addSplashScreen(WindowProxy::widgetFor(window), unity);
}

// Null once exit() has begun, when a static object of the host may still call the facade.
SplashScreenPresenter *presenterUnlessEnded() {
    return ProcessRoot::hasEnded() ? nullptr : &Velmora::SSPresenter();
}

bool isPresenterMissing(const QString &level) {
    if (!FacadeState::current().presenter)
        return true;
    // The message says the opposite of what was found; it stays as hosts know it.
    Velmora::LOG(level, QStringLiteral("SplashScreen controller not initialized!"));
    return false;
}

} // namespace

SplashScreenPresenter &Velmora::SSPresenter() {
    auto &presenter = FacadeState::current().presenter;
    if (!presenter) {
        presenter = SplashScreenPresenter::make();
        presenter->setDelayForFirstStart(DefaultDelay);
        presenter->starDownLoad();
        startUpdateCycle();
    }
    return *presenter;
}

void Velmora::show() {
    run(Request::ShowSplashScreen,
        [](SplashScreenPresenter &presenter) { presenter.showSplashScreens(); });
}

void Velmora::forceShow() {
    run(Request::ShowSplashScreen,
        [](SplashScreenPresenter &presenter) { presenter.needForceShowSplashScreens(); });
}

void Velmora::showWithouSplash() {
    run(Request::ShowSplashScreen, [](SplashScreenPresenter &presenter) {
        presenter.setWithoutSplash(true);
        presenter.needForceShowSplashScreens();
    });
}

void Velmora::refreshWaitAgain() {
    run(Request::RestartWait,
        [](SplashScreenPresenter &presenter) { presenter.refreshWaitAgain(); });
}

bool Velmora::addSplashScreenToWindow(QWidget *window) {
    return addSplashScreen(window, false);
}

bool Velmora::addSplashScreenToUnityWindow(QWidget *window) {
    return addSplashScreen(window, true);
}

bool Velmora::addSplashScreenToWindow(QWindow *window) {
    return addSplashScreen(window, false);
}

bool Velmora::addSplashScreenToUnityWindow(QWindow *window) {
    return addSplashScreen(window, true);
}

void Velmora::removeSplashScreenFromWindow(QWidget *window) {
    if (!isOnMainThread(Request::RemoveSplashScreen))
        return;
    if (SplashScreenPresenter *presenter = presenterUnlessEnded())
        presenter->removeSplashScreenWithWindow(window);
}

void Velmora::removeSplashScreenFromWindow(QWindow *window) {
    if (isOnMainThread(Request::RemoveSplashScreen))
        removeSplashScreenFromWindow(WindowProxy::existingWidgetFor(window));
}

void Velmora::removeADSFromWindow(QWidget *) {}

void Velmora::removeADSFromWindow(QWindow *) {}

bool Velmora::isShowSplashScreen() {
    const SplashScreenPresenter *presenter = presenterUnlessEnded();
    return presenter && presenter->isShow();
}

bool Velmora::isADSReady() {
    const SplashScreenPresenter *presenter = presenterUnlessEnded();
    return presenter && presenter->isAdsReady();
}

qint64 Velmora::splashScreenStartCount() {
    const SplashScreenPresenter *presenter = presenterUnlessEnded();
    return presenter ? presenter->splashScreenStartCount() : 0;
}

void Velmora::setDefaultVideoWithURL(const QUrl &videoURL, const QUrl &linkURL) {
    if (SplashScreenPresenter *presenter = presenterUnlessEnded())
        presenter->setDefaultVideoWithURL(videoURL, linkURL);
    ::LOG(QStringLiteral("LOAD VIDEO WITH URL : %1")
              .arg(videoURL.isEmpty() ? QStringLiteral("(null)") : videoURL.toString()));
}

void Velmora::setDefaultVideoURL(const QUrl &videoURL, const QString &appID) {
    setDefaultVideoWithURL(videoURL, urlFromAppID(appID));
}

void Velmora::setDefaultVideoName(const QString &fileName, const QString &appID) {
    const qsizetype dot = fileName.lastIndexOf(QLatin1Char('.'));
    const QString name = dot > 0 ? fileName.left(dot) : fileName;
    const QString extension = dot > 0 ? fileName.mid(dot + 1) : QString();
    setDefaultVideoURL(VLMMainAppBundle().urlForResource(name, extension), appID);
}

QUrl Velmora::urlFromAppID(const QString &appID) {
    const QString number = appID.toLower().remove(QStringLiteral("id"));
    return QUrl(QStringLiteral("macappstores://%1/app/%2")
                    .arg(Deployment::current().storeHost, QStringLiteral("id") + number));
}

void Velmora::setSplashScreenWaitingVideoTimeSeconds(qint64 seconds) {
    isInitializedSplashScreenWithLOG_WARNING();
    if (SplashScreenPresenter *presenter = presenterUnlessEnded())
        presenter->setWaitTime(seconds);
}

void Velmora::setSplashScreenLoadTime(qint64 seconds) {
    if (seconds < 0 || seconds > LongestLoadTime) {
        LOG(Warning, QStringLiteral("invalid loadTime value"));
        seconds = SplashSequence::DefaultLoadTime;
    }
    if (seconds == 0) {
        setSplashScreenHiddenIconBeforeVideo(true);
        setSplashScreenHiddenBackgroundImageBeforeVideo(true);
        setSplashScreenHiddenButtonBeforeVideo(true);
    }
    if (SplashScreenPresenter *presenter = presenterUnlessEnded())
        presenter->setLoadTime(seconds);
}

void Velmora::setSplashScreenDelay(double seconds) {
    constexpr double Longest = 1e9;   // 30 years; a much larger number would not fit into a qint64
    const bool usable = seconds >= 0; // false for NaN, too
    if (SplashScreenPresenter *presenter = presenterUnlessEnded())
        presenter->setDelayForFirstStart(usable ? qint64(std::min(seconds, Longest))
                                                : DefaultDelay);
}

void Velmora::setSplashScreenMuted(bool muted) {
    if (SplashScreenPresenter *presenter = presenterUnlessEnded())
        presenter->setMutedByHost(muted);
}

void Velmora::setSplashScreenSkippedWhenEmpty(bool skipped) {
    if (SplashScreenPresenter *presenter = presenterUnlessEnded())
        presenter->setSkippedWhenEmpty(skipped);
}

bool Velmora::isInitializedSplashScreenWithLOG_WARNING() {
    return isPresenterMissing(Warning);
}

bool Velmora::isInitializedSplashScreenWithLOG_ERROR() {
    return isPresenterMissing(Error);
}
