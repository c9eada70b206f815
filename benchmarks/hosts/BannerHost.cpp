// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/hosts/BannerHost.h"

#include "benchmarks/hosts/HostReport.h"
#include "benchmarks/hosts/PlainWindow.h"

#include <Velmora/Velmora.h>

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <memory>
#include <vector>

namespace velmora::bench {

namespace {

constexpr int SettleMs = 1000;

bool hasPicture(const std::unique_ptr<PlainWindow> &window) {
    const auto *picture = window->findChild<QWidget *>(QStringLiteral("bannerImage"));
    return picture && picture->isVisible();
}

} // namespace

int BannerHost::runMany(int count, Then then) {
    std::vector<std::unique_ptr<PlainWindow>> windows;
    for (int i = 0; i < count; ++i) {
        windows.push_back(std::make_unique<PlainWindow>(bannerWindowPlace(i)));
        windows.back()->show();
        Velmora::addBannerForWindow(windows.back().get());
    }
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        if (!std::ranges::all_of(windows, hasPicture))
            return;
        poll.stop();
        if (then == Then::RemovesAds)
            Velmora::removeAdsNow();
        for (const auto &window : windows)
            window->setVisible(then != Then::Hides);
        HostReport::print("shown");
    });
    poll.start(50);
    QApplication::setQuitOnLastWindowClosed(false);
    return QApplication::exec();
}

int BannerHost::runFirstPixel() {
    PlainWindow window;
    window.show();
    QTimer::singleShot(SettleMs, [&window] {
        HostReport::print("asked", HostReport::now());
        Velmora::addBannerForWindow(&window);
    });
    return QApplication::exec();
}

} // namespace velmora::bench
