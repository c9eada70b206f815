// SPDX-License-Identifier: Apache-2.0
#include "demo/tour/Scene.h"

#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "demo/Page.h"
#include "demo/tour/CachedBannerScene.h"
#include "demo/tour/DefaultVideoScene.h"
#include "demo/tour/FirstSplashScene.h"
#include "demo/tour/FirstStartScene.h"
#include "demo/tour/HighDensityScene.h"
#include "demo/tour/HouseBannerScene.h"
#include "demo/tour/NextStartScene.h"
#include "demo/tour/RestyledSplashScene.h"
#include "demo/tour/ScreenRobot.h"
#include "demo/tour/SeveralWindowsScene.h"
#include "demo/tour/SplashFormatScene.h"
#include "demo/tour/Waiting.h"

#include <Velmora/Notifications.h>

#include <QtCore/QHash>
#include <QtCore/QRegularExpression>
#include <QtGui/QWindow>

#include <cstdio>

namespace demo {

const QString Scene::FirstStart = QStringLiteral("first-start");
const QString Scene::NextStart = QStringLiteral("next-start");
const QString Scene::HouseBanner = QStringLiteral("house-banner");
const QString Scene::CachedBanner = QStringLiteral("cached-banner");
const QString Scene::HighDensity = QStringLiteral("high-density");
const QString Scene::FirstSplash = QStringLiteral("first-splash");
const QString Scene::SeveralWindows = QStringLiteral("several-windows");
const QString Scene::DefaultVideo = QStringLiteral("default-video");
const QString Scene::RestyledSplash = QStringLiteral("restyled-splash");
const QString Scene::SplashFormat = QStringLiteral("splash-format");

namespace {

template<class Kind>
std::unique_ptr<Scene> make(DemoApplication &demo, const Options &options) {
    return std::make_unique<Kind>(demo, options);
}

} // namespace

std::unique_ptr<Scene> Scene::named(const QString &name, DemoApplication &demo,
                                    const Options &options) {
    using Maker = std::unique_ptr<Scene> (*)(DemoApplication &, const Options &);
    static const QHash<QString, Maker> makers{
        {FirstStart, &make<FirstStartScene>},         {NextStart, &make<NextStartScene>},
        {HouseBanner, &make<HouseBannerScene>},       {CachedBanner, &make<CachedBannerScene>},
        {HighDensity, &make<HighDensityScene>},       {FirstSplash, &make<FirstSplashScene>},
        {SeveralWindows, &make<SeveralWindowsScene>}, {DefaultVideo, &make<DefaultVideoScene>},
        {RestyledSplash, &make<RestyledSplashScene>}, {SplashFormat, &make<SplashFormatScene>},
    };
    if (const Maker maker = makers.value(name))
        return maker(demo, options);
    std::fprintf(stderr, "velmora-demo: no such scene: %s\n", qPrintable(name));
    return nullptr;
}

Scene::Scene(DemoApplication &demo, const Options &options)
    : m_demo(demo),
      m_timeline(options.tour, options.tourStarted),
      m_options(options),
      m_nextPicture(options.firstPicture) {}

Scene::~Scene() = default;

bool Scene::perform() {
    m_timeline.add(Timeline::Scene, m_options.scene);
    QObject::connect(
        &m_demo.log(), &EventLog::recorded, &m_demo.log(),
        [this](const QString &name, const QString &object) { m_timeline.add(name, object); });
    play();
    m_timeline.add(QStringLiteral("server-requests"), QString::number(m_demo.server().requests()));
    m_demo.log().disconnect();
    return m_complete;
}

bool Scene::openWindow() {
    m_window = m_demo.openWindow();
    const bool shown = await(QStringLiteral("the journal's window on the screen"), [this] {
        const QWindow *handle = m_window->windowHandle();
        return handle && handle->isExposed() && m_window->isActiveWindow();
    });
    parkPointer();
    return shown && resizeWindow(JournalWindow::DefaultSize);
}

bool Scene::resizeWindow(const QSize &size) {
    m_window->resize(size);
    return await(QStringLiteral("a window of %1 x %2").arg(size.width()).arg(size.height()),
                 [this, size] { return m_window->windowHandle()->size() == size; });
}

bool Scene::expect(bool condition, const QString &what) {
    if (!condition) {
        if (m_complete && m_window)
            leave(QStringLiteral("missing"), m_window);
        m_complete = false;
        m_timeline.add(QStringLiteral("missing"), what);
        std::fprintf(stderr, "velmora-demo: %s: missing: %s\n", qPrintable(m_options.scene),
                     qPrintable(what));
    }
    return condition;
}

bool Scene::await(const QString &what, const std::function<bool()> &condition, int timeoutMs) {
    return expect(Waiting::until(condition, timeoutMs), what);
}

QWidget *Scene::banner() const {
    QWidget *view = m_window->page()->banner();
    return view && view->isVisible() ? view : nullptr;
}

QWidget *Scene::bannerImage() const {
    const QWidget *view = banner();
    return view ? view->findChild<QWidget *>(QStringLiteral("bannerImage")) : nullptr;
}

QString Scene::bannerName() const {
    const QWidget *image = bannerImage();
    return image ? image->accessibleName() : QString();
}

bool Scene::isCampaignBanner(const QString &name) const {
    return m_demo.server()
        .campaignValues(QStringLiteral("standard"), QStringLiteral("name"))
        .contains(name);
}

bool Scene::awaitBanner(const QString &what, const std::function<bool(const QString &)> &isRight,
                        int timeoutMs) {
    const bool shown = await(
        what + QStringLiteral(" on the screen"),
        [&] {
            return bannerImage() && isRight(bannerName()) && !banner()->graphicsEffect() &&
                   ScreenRobot::shows(bannerImage());
        },
        timeoutMs);
    m_timeline.add(QStringLiteral("banner-shown"), bannerName());
    return shown;
}

void Scene::picture(const QString &name, QWidget *window) {
    QWidget *shown = window ? window : m_window;
    shown->repaint();
    expect(leave(name, shown), QStringLiteral("picture %1").arg(name));
}

bool Scene::leave(const QString &name, const QWidget *window) {
    const QString file =
        QStringLiteral("%1-%2.png").arg(m_nextPicture++, 2, 10, QLatin1Char('0')).arg(name);
    const QImage image = ScreenRobot::pictureOf(window);
    m_timeline.add(QStringLiteral("picture"), file);
    return !image.isNull() && image.save(m_options.tour + QLatin1Char('/') + file);
}

void Scene::click(QWidget *widget) {
    click(widget, widget->rect().center());
}

void Scene::click(QWidget *widget, const QPoint &point) {
    ScreenRobot::click(widget, point);
}

void Scene::parkPointer() {
    if (ScreenRobot::parkPointer(m_window))
        await(QStringLiteral("the pointer out of the way"),
              [this] { return !m_window->underMouse(); });
}

void Scene::clickBanner() {
    const QString name = bannerName();
    const EventLog &log = m_demo.log();
    const int links = log.count(LinkOpener::Opened);
    const int clicks = log.count(VLMclickForBanner);
    click(bannerImage(), {bannerImage()->width() / 3, bannerImage()->height() / 2});
    await(QStringLiteral("a notification about the click on the banner"),
          [&] { return log.count(VLMclickForBanner) == clicks + 1; });
    expect(log.lastObject(VLMclickForBanner) == name,
           QStringLiteral("the banner's name \"%1\" in the notification").arg(name));
    expect(log.count(LinkOpener::Opened) == links + 1, QStringLiteral("the banner's link opened"));
    // The scheme depends on whether this machine has a store application.
    static const QRegularExpression storePage(QStringLiteral("^/app/id\\d+$"));
    expect(storePage.match(QUrl(log.lastObject(LinkOpener::Opened)).path()).hasMatch(),
           QStringLiteral("a link to a page of the store"));
    parkPointer();
}

} // namespace demo
