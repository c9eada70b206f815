// SPDX-License-Identifier: Apache-2.0
#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "demo/Page.h"
#include "tests/tour/Scene.h"
#include "tests/tour/Scenes.h"
#include "tests/tour/ScreenRobot.h"
#include "tests/tour/Splash.h"

#include <Velmora/Velmora.h>

#include <QtCore/QRegularExpression>

namespace demo::tour {

namespace {

constexpr int LargeHeight = 100;
constexpr int SmallHeight = 60;
constexpr QSize NarrowSize(480, 640);
// Long enough for an online start to show its banner.
constexpr int WatchMs = 2000;

constexpr double Aspect = 728.0 / 90;
constexpr int ShadowDepth = 4;

/// The banner in the journal's window.
class Banner {
public:
    explicit Banner(Scene &scene) : m_scene(scene) {}

    /// Waits until the screen shows a banner whose name isRight accepts, fully faded in, and adds
    /// its name to the timeline.
    void await(const QString &what, const std::function<bool(const QString &name)> &isRight) {
        m_scene.await(what, [&] {
            return image() && isRight(name()) && !view()->graphicsEffect() &&
                   ScreenRobot::shows(image());
        });
        m_scene.note("banner-shown", name());
    }

    /// The same for a banner of the campaign, other than the one of that name.
    void awaitOfCampaign(const QString &otherThan = {}) {
        const QStringList names = m_scene.adValues("standard", "name");
        await("a banner of the campaign",
              [&](const QString &name) { return name != otherThan && names.contains(name); });
    }

    /// Waits until the screen shows the banner at its place in the page.
    /// @param right, up the insets
    void awaitPlace(int height, int right = 0, int up = 0) {
        const auto near = [](double a, double b) { return qAbs(a - b) <= 1; };
        const QString what = QStringLiteral("a banner of height %1, moved by %2 and %3");
        m_scene.await(what.arg(height).arg(right).arg(up), [&] {
            const QSize page = m_scene.window()->page()->size();
            const double width = qMin(height * Aspect, double(page.width()));
            const QRectF place = view() ? view()->geometry() : QRect();
            return near(place.width(), width) && near(place.height(), width / Aspect) &&
                   near(place.center().x(), page.width() / 2.0 + right) &&
                   near(place.bottom(), page.height() - ShadowDepth - up) &&
                   ScreenRobot::shows(image());
        });
    }

    void click() { m_scene.clickAd(image(), VLMclickForBanner, {name()}); }

    /// Null while no banner is visible.
    QWidget *view() const {
        QWidget *view = m_scene.window()->page()->banner();
        return view && view->isVisible() ? view : nullptr;
    }

    QWidget *image() const {
        return view() ? view()->findChild<QWidget *>("bannerImage") : nullptr;
    }

    QString name() const { return image() ? image()->accessibleName() : QString(); }

private:
    Scene &m_scene;
};

void placement(Scene &scene, Banner &banner) {
    banner.awaitPlace(LargeHeight);
    scene.picture("banner-large");
    Velmora::setBannersSmallImage();
    banner.awaitPlace(SmallHeight);
    scene.picture("banner-small");
    Velmora::setBannersLargeImage();
    Velmora::setBannersBottomInset(18);
    Velmora::setBannersCenterXInset(-48);
    banner.awaitPlace(LargeHeight, -48, 18);
    scene.picture("banner-with-insets");
    Velmora::setBannersBottomInset(0);
    Velmora::setBannersCenterXInset(0);
    banner.awaitPlace(LargeHeight);
}

void narrowWindow(Scene &scene, Banner &banner) {
    scene.resizeWindow(NarrowSize);
    scene.await("the page as wide as the narrow window",
                [&] { return scene.window()->page()->width() == NarrowSize.width(); });
    banner.awaitPlace(LargeHeight);
    scene.picture("narrow-window");
    scene.resizeWindow(scene.window()->minimumSize());
    banner.awaitPlace(LargeHeight);
    scene.picture("smallest-window");
    scene.resizeWindow(JournalWindow::DefaultSize);
    banner.awaitPlace(LargeHeight);
}

void panel(Scene &scene, Banner &banner) {
    scene.reveal("panelButton", "showTab");
    banner.awaitPlace(LargeHeight);
    scene.click(scene.reveal("bannerTab", "hideButton"));
    scene.await("a hidden banner", [&] { return !banner.view(); });
    scene.click(scene.control("showButton"));
    banner.awaitPlace(LargeHeight);
    scene.picture("panel");
}

} // namespace

void firstStart(Scene &scene) {
    Banner banner(scene);
    scene.openWindow();
    banner.awaitOfCampaign();
    scene.expect(scene.server().log().count("/api/v1/banners") == 1,
                 "exactly one request for the ad table");
    placement(scene, banner);
    banner.click();
    banner.awaitOfCampaign(banner.name());
    scene.picture("banner-swapped");
    narrowWindow(scene, banner);
    panel(scene, banner);
    // A later offline start shows stored banners only when the stored ad table has a video too.
    Splash(scene).awaitStoredVideo();
    scene.pay(banner.view()->findChild<QWidget *>("closeButton"), "offer-to-remove-ads",
              [&] { return banner.view() != nullptr; });
    scene.note("banner-gone");
    scene.picture("ads-removed");
}

void nextStart(Scene &scene) {
    scene.expect(Velmora::isADSRemoved(), "ads still removed");
    scene.openWindow();
    scene.watch(
        "a start without a banner and without any request",
        [&] { return !scene.window()->page()->banner() && scene.server().log().count("*") == 0; },
        WatchMs);
    scene.picture("next-start-without-ads");
}

void houseBanner(Scene &scene) {
    static const QRegularExpression houseName("^mac\\.\\d{6}\\.mac-store$");
    Banner banner(scene);
    scene.demo().server().setRunning(false);
    scene.openWindow();
    banner.await("a house banner",
                 [](const QString &name) { return houseName.match(name).hasMatch(); });
    scene.picture("house-banner");
    banner.click();
}

void cachedBanner(Scene &scene) {
    scene.demo().server().setRunning(false);
    scene.openWindow();
    Banner(scene).awaitOfCampaign();
    scene.picture("cached-banner");
}

void highDensity(Scene &scene) {
    scene.openWindow();
    Banner(scene).awaitOfCampaign();
    const QString ratio = QString::number(scene.window()->devicePixelRatioF());
    scene.note("pixel-ratio", ratio);
    scene.expect(ratio == qEnvironmentVariable("QT_SCALE_FACTOR"),
                 "the pixel ratio that was asked for");
    scene.picture("banner-at-" + ratio + "x");
}

} // namespace demo::tour
