// SPDX-License-Identifier: Apache-2.0
#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "demo/Page.h"
#include "tests/tour/Scene.h"
#include "tests/tour/Scenes.h"
#include "tests/tour/ScreenRobot.h"
#include "tests/tour/Splash.h"

#include "Fade.h"

#include <Velmora/Velmora.h>

#include <QtCore/QRegularExpression>

namespace demo::tour {

namespace {

constexpr QSize NarrowSize(480, 640);
// Long enough for an online start to show its banner.
constexpr int WatchMs = 2000;

/// The banner in the journal's window.
class Banner {
public:
    explicit Banner(Scene &scene) : m_scene(scene) {}

    /// Waits until the screen shows a banner whose name isRight accepts, fully faded in, and adds
    /// its name to the timeline.
    void await(const QString &what, const std::function<bool(const QString &name)> &isRight) {
        m_scene.await(what, [&] {
            return image() && isRight(name()) &&
                   view()->findChildren<velmora::Fade *>().isEmpty() && ScreenRobot::shows(image());
        });
        m_scene.note("banner-shown", name());
    }

    /// The same for a banner of the campaign, other than the one of that name.
    void awaitOfCampaign(const QString &otherThan = {}) {
        const QStringList names = m_scene.adValues("standard", "name");
        await("a banner of the campaign",
              [&](const QString &name) { return name != otherThan && names.contains(name); });
    }

    /// Waits until the screen shows the banner.
    void awaitShown() {
        m_scene.await("the banner on the screen", [this] { return ScreenRobot::shows(image()); });
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

    QString name() const { return image() ? image()->accessibleDescription() : QString(); }

private:
    Scene &m_scene;
};

void placement(Scene &scene, Banner &banner) {
    banner.awaitShown();
    scene.picture("banner-large");
    Velmora::setBannersSmallImage();
    banner.awaitShown();
    scene.picture("banner-small");
    Velmora::setBannersLargeImage();
    Velmora::setBannersBottomInset(18);
    Velmora::setBannersCenterXInset(-48);
    banner.awaitShown();
    scene.picture("banner-with-insets");
    Velmora::setBannersBottomInset(0);
    Velmora::setBannersCenterXInset(0);
}

void narrowWindow(Scene &scene, Banner &banner) {
    scene.resizeWindow(NarrowSize);
    scene.await("the page as wide as the narrow window",
                [&] { return scene.window()->page()->width() == NarrowSize.width(); });
    banner.awaitShown();
    scene.picture("narrow-window");
    scene.resizeWindow(scene.window()->minimumSize());
    banner.awaitShown();
    scene.picture("smallest-window");
    scene.resizeWindow(JournalWindow::DefaultSize);
    banner.awaitShown();
}

void panel(Scene &scene, Banner &banner) {
    scene.reveal("panelButton", "showTab");
    banner.awaitShown();
    scene.click(scene.reveal("bannerTab", "hideButton"));
    scene.await("a hidden banner", [&] { return !banner.view(); });
    scene.click(scene.control("showButton"));
    banner.awaitShown();
    scene.picture("panel");
}

} // namespace

void firstStart(Scene &scene) {
    Banner banner(scene);
    scene.openWindow();
    banner.awaitOfCampaign();
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
    scene.picture("banner-at-" + ratio + "x");
}

} // namespace demo::tour
