// SPDX-License-Identifier: Apache-2.0
#include "tests/support/BannerHost.h"

#include "BannerImageView.h"
#include "Workspace.h"
#include "tests/support/TestGif.h"
#include "tests/support/Waiting.h"

namespace velmora::test {

BannerHost::BannerHost() : window(std::make_unique<QWidget>()) {
    window->resize(1000, 600);
    window->show();
    window->activateWindow();
    handleEvents();
    Workspace::setOpener([this](const QUrl &link) {
        opened.append(link);
        return true;
    });
    for (const QString &name : {VLMclickForBanner, VLMtryRemoveAds}) {
        m_observations.push_back(
            NotificationCenter::defaultCenter().addObserver(name, [this](const Notification &n) {
                notifications.append(n.name.section(QLatin1Char('.'), -1) + QLatin1Char(':') +
                                     n.object.toString());
            }));
    }
}

BannerHost::~BannerHost() {
    Workspace::setOpener(nullptr);
    window.reset();
    restartProcess();
}

AdBannerController *BannerHost::addBanner() {
    Velmora::addBannerForWindow(window.get());
    return current();
}

AdBannerController *BannerHost::showOneOf(const QStringList &names) {
    QJsonArray ads;
    for (const QString &name : names)
        ads.append(banner(name));
    serve(ads);
    addBanner();
    EXPECT_TRUE(eventually([&] { return current() && names.contains(current()->selectBanner()); }));
    return current();
}

void BannerHost::serveWide() {
    serve({banner("wide")});
    server.campaign().setMedia(QStringLiteral("/media/wide.gif"), gif({Qt::red}, {728, 90}));
}

bool BannerHost::takesClicks() {
    const bool isDrawn = eventually([&] {
        time.advance(0.05); // the first one fades in
        return current()->bannerImage()->decodedFrames() > 0;
    });
    time.advance(BannerImageView::SettlingSeconds);
    return isDrawn;
}

bool BannerHost::shows(QAnyStringView name) {
    return eventually([&] { return current() && current()->selectBanner() == name; });
}

bool BannerHost::showsHouseBanner() {
    return eventually([&] {
        return current() && current()->standardBanners().contains(current()->selectBanner());
    });
}

} // namespace velmora::test
