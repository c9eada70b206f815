// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/hosts/CallsHost.h"

#include "benchmarks/hosts/HostReport.h"
#include "benchmarks/hosts/PlainWindow.h"

#include <Velmora/Velmora.h>

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <functional>
#include <vector>

namespace velmora::bench {

namespace {

constexpr int Rounds = 20;
constexpr int SettleMs = 1000;

double millisecondsOf(const std::function<void()> &call) {
    const long long start = HostReport::now();
    call();
    return double(HostReport::now() - start) / 1e6;
}

/// Calls that a host makes at any time, for windows that have a banner and a splash screen.
std::vector<std::function<void()>> usualCalls(QWidget *window) {
    return {
        [] { Velmora::isADSReady(); },
        [] { Velmora::isADSRemoved(); },
        [] { Velmora::isShowSplashScreen(); },
        [] { Velmora::splashScreenStartCount(); },
        [] { Velmora::show(); },
        [] { Velmora::refreshWaitAgain(); },
        [] { Velmora::setMotion(Velmora::Motion::Full); },
        [] { Velmora::setSplashScreenDelay(30); },
        [] { Velmora::setSplashScreenLoadTime(5); },
        [] { Velmora::setSplashScreenMuted(true); },
        [] { Velmora::setSplashScreenWaitingVideoTimeSeconds(120); },
        [] { Velmora::setSplashScreenAppearance(Velmora::Appearance::Dark); },
        [] { Velmora::setSplashScreenBackgroundColor(Qt::white); },
        [] { Velmora::setSplashScreenTextColor(Qt::black); },
        [] { Velmora::setSplashScreenTimerBorderColor(Qt::gray, Qt::darkGray); },
        [] { Velmora::setSplashScreenTimerBorderWidth(2, 4); },
        [] { Velmora::setSplashScreenHiddenIcon(false); },
        [] { Velmora::setBannersHeight(90); },
        [] { Velmora::setBannersLargeImage(); },
        [] { Velmora::setBannersBottomInset(4); },
        [] { Velmora::setBannersReserveSpace(true); },
        [] { Velmora::setBannersReserveSpace(false); },
        [window] { Velmora::setSplashScreenTopInset(10, window); },
        [window] { Velmora::setBannerHeight(80, window); },
        [window] { Velmora::BControllFromWindow(window); },
        [window] { Velmora::removeSplashScreenFromWindow(window); },
        [window] { Velmora::addSplashScreenToWindow(window); },
    };
}

void measure(PlainWindow &first, PlainWindow &second, bool startsWithBanner) {
    const std::function<void()> addBanner = [&] { Velmora::addBannerForWindow(&first); };
    const std::function<void()> addSplash = [&] { Velmora::addSplashScreenToWindow(&first); };
    const double firstMs = millisecondsOf(startsWithBanner ? addBanner : addSplash);
    std::vector<double> later{millisecondsOf(startsWithBanner ? addSplash : addBanner)};
    later.push_back(millisecondsOf([&] { Velmora::addBannerForWindow(&second); }));
    later.push_back(millisecondsOf([&] { Velmora::addSplashScreenToWindow(&second); }));
    for (int round = 0; round < Rounds; ++round) {
        for (const auto &call : usualCalls(&second)) {
            later.push_back(millisecondsOf(call));
            QApplication::processEvents();
        }
    }
    const double forceShowMs = millisecondsOf(&Velmora::forceShow);
    std::ranges::sort(later);
    HostReport::print("calls", firstMs, later[later.size() * 99 / 100], later.back(), forceShowMs);
    QApplication::quit();
}

} // namespace

int CallsHost::run(bool startsWithBanner) {
    PlainWindow first({0, 0, 900, 600});
    PlainWindow second({1000, 0, 900, 600});
    second.show();
    first.show();
    first.activateWindow();
    QTimer::singleShot(SettleMs, [&] { measure(first, second, startsWithBanner); });
    return QApplication::exec();
}

} // namespace velmora::bench
