// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/hosts/StartPhaseHost.h"

#include "benchmarks/hosts/HostReport.h"
#include "benchmarks/hosts/PlainWindow.h"

#include <Velmora/Velmora.h>

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <memory>
#include <vector>

namespace velmora::bench {

namespace {

constexpr QSize WindowSize(250, 300);
constexpr int Columns = 10;
constexpr int LongestLoadTime = 15;
// In which all windows are painted and the requests at the start end.
constexpr int SettleMs = 2000;

} // namespace

int StartPhaseHost::run(int count) {
    std::vector<std::unique_ptr<PlainWindow>> windows;
    for (int i = 0; i < count; ++i) {
        windows.push_back(std::make_unique<PlainWindow>(placeInGrid(i, WindowSize, Columns)));
        windows.back()->show();
        Velmora::addSplashScreenToWindow(windows.back().get());
    }
    windows.front()->activateWindow();
    Velmora::setSplashScreenLoadTime(LongestLoadTime);
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&timer, &windows] {
        // Without a key window, nothing is shown.
        if (!windows.front()->isActiveWindow()) {
            windows.front()->activateWindow();
            return;
        }
        timer.stop();
        const long long asked = HostReport::now();
        Velmora::forceShow();
        HostReport::print("asked", asked);
    });
    timer.start(SettleMs);
    return QApplication::exec();
}

} // namespace velmora::bench
