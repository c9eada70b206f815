// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/FirstStartScene.h"

#include "demo/ControlPanel.h"
#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "demo/Page.h"
#include "tests/tour/ScreenRobot.h"

#include <Velmora/Velmora.h>

#include <algorithm>

namespace demo::tour {

namespace {

constexpr int LargeHeight = 100;
constexpr int SmallHeight = 60;
constexpr int ShadowDepth = 4;
constexpr double Aspect = 728.0 / 90;
constexpr int SwapWithinMs = 25000;
constexpr QSize NarrowSize(480, 640);

} // namespace

void FirstStartScene::play() {
    if (!openWindow() || !awaitCampaignBanner())
        return;
    expect(m_server.requests(QStringLiteral("/api/v1/banners")) == 1,
           QStringLiteral("exactly one request for the ad table"));
    placement();
    clickBanner();
    swap();
    narrowWindow();
    panel();
    awaitVideo();
    removal();
}

QRect FirstStartScene::bannerFrame(int height, int bottomInset, int centreInset) const {
    const QRect page = m_window->page()->rect();
    const double width = qMin(height * Aspect, double(page.width()));
    const double shown = width / Aspect;
    return QRectF((page.width() - width) / 2 + centreInset,
                  page.height() - ShadowDepth - bottomInset - shown, width, shown)
        .toRect();
}

void FirstStartScene::awaitFrame(int height, int bottomInset, int centreInset) {
    const auto near = [](int a, int b) { return qAbs(a - b) <= 1; };
    await(QStringLiteral("the banner at its place (height %1, insets %2 and %3)")
              .arg(height)
              .arg(bottomInset)
              .arg(centreInset),
          [&] {
              if (!bannerImage())
                  return false;
              const QRect is = banner()->geometry();
              const QRect due = bannerFrame(height, bottomInset, centreInset);
              return near(is.x(), due.x()) && near(is.y(), due.y()) &&
                     near(is.width(), due.width()) && near(is.height(), due.height()) &&
                     ScreenRobot::shows(bannerImage());
          });
}

void FirstStartScene::placement() {
    awaitFrame(LargeHeight);
    picture(QStringLiteral("banner-large"));
    Velmora::setBannersSmallImage();
    awaitFrame(SmallHeight);
    picture(QStringLiteral("banner-small"));
    Velmora::setBannersLargeImage();
    Velmora::setBannersBottomInset(18);
    Velmora::setBannersCenterXInset(-48);
    awaitFrame(LargeHeight, 18, -48);
    picture(QStringLiteral("banner-with-insets"));
    Velmora::setBannersBottomInset(0);
    Velmora::setBannersCenterXInset(0);
    awaitFrame(LargeHeight);
}

void FirstStartScene::swap() {
    const QString before = bannerName();
    awaitBanner(
        QStringLiteral("another banner of the campaign"),
        [&](const QString &name) { return name != before && isCampaignBanner(name); },
        SwapWithinMs);
    picture(QStringLiteral("banner-swapped"));
}

void FirstStartScene::narrowWindow() {
    resizeWindow(NarrowSize);
    await(QStringLiteral("the page as wide as the narrow window"),
          [this] { return m_window->page()->width() == NarrowSize.width(); });
    awaitFrame(LargeHeight);
    expect(banner() && banner()->width() == m_window->page()->width(),
           QStringLiteral("a banner as wide as the narrow window"));
    picture(QStringLiteral("narrow-window"));
    resizeWindow(m_window->minimumSize());
    awaitFrame(LargeHeight);
    picture(QStringLiteral("smallest-window"));
    resizeWindow(JournalWindow::DefaultSize);
    awaitFrame(LargeHeight);
}

void FirstStartScene::panel() {
    click(control("panelButton"));
    await(QStringLiteral("the advertising panel"),
          [this] { return m_window->findChild<ControlPanel *>()->isVisible(); });
    awaitFrame(LargeHeight);
    click(control("bannerTab"));
    const QWidget *hide = control("hideButton");
    await(QStringLiteral("the banner's page of the panel"), [hide] { return hide->isVisible(); });
    click(control("hideButton"));
    await(QStringLiteral("a hidden banner"), [this] { return !banner(); });
    click(control("showButton"));
    awaitFrame(LargeHeight);
    movePointerAway();
    picture(QStringLiteral("panel"));
}

// A later offline start shows stored banners only when the stored ad table has a video too.
void FirstStartScene::awaitVideo() {
    const QStringList stills =
        m_server.campaignValues(QStringLiteral("video"), QStringLiteral("image"));
    await(QStringLiteral("a video stored for later"), [&] {
        return std::any_of(stills.begin(), stills.end(),
                           [this](const QString &still) { return m_server.requests(still) > 0; });
    });
}

void FirstStartScene::removal() {
    click(banner()->findChild<QWidget *>(QStringLiteral("closeButton")));
    await(QStringLiteral("a notification about the close button"),
          [this] { return count(VLMtryRemoveAds) == 1; });
    expect(banner() != nullptr, QStringLiteral("the banner still there after its close button"));
    QWidget *buy = awaitPurchaseSheet(QStringLiteral("the offer to remove ads"));
    if (!buy)
        return;
    movePointerAway();
    picture(QStringLiteral("offer-to-remove-ads"));
    click(buy);
    await(QStringLiteral("the banner gone"), [this] { return !m_window->page()->banner(); });
    expect(Velmora::isADSRemoved(), QStringLiteral("ads removed"));
    await(QStringLiteral("the page without its banner on the screen"),
          [this] { return ScreenRobot::shows(m_window->page()); });
    m_timeline.add(QStringLiteral("banner-gone"));
    picture(QStringLiteral("ads-removed"));
}

} // namespace demo::tour
