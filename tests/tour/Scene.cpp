// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/Scene.h"

#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "demo/Page.h"
#include "tests/tour/ScreenRobot.h"
#include "tests/tour/Waiting.h"

#include <Velmora/Notifications.h>

#include <QtCore/QRegularExpression>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>

#include <cstdio>

namespace demo::tour {

namespace {

QModelIndexList eventsNamed(const EventLog &log, const QString &name) {
    return log.match(log.index(0), EventLog::NameRole, name, -1, Qt::MatchExactly);
}

} // namespace

Scene::Scene(DemoApplication &demo, const TourOptions &options)
    : m_demo(demo),
      m_server(demo.server().adServer()),
      m_timeline(options.folder, options.started),
      m_options(options),
      m_nextPicture(options.firstPicture) {}

Scene::~Scene() = default;

bool Scene::perform() {
    m_timeline.add(Timeline::Scene, m_options.scene);
    QObject::connect(
        &m_demo.log(), &EventLog::recorded, &m_demo.log(),
        [this](const QString &name, const QString &object) { m_timeline.add(name, object); });
    play();
    m_timeline.add(QStringLiteral("server-requests"), QString::number(m_server.requests()));
    m_demo.log().disconnect();
    return m_complete;
}

bool Scene::openWindow() {
    m_window = m_demo.openWindow();
    const bool shown = await(QStringLiteral("the journal's window on the screen"), [this] {
        const QWindow *handle = m_window->windowHandle();
        return handle && handle->isExposed() && m_window->isActiveWindow();
    });
    movePointerAway();
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
            savePicture(QStringLiteral("missing"), m_window);
        m_complete = false;
        m_timeline.add(QStringLiteral("missing"), what);
        std::fprintf(stderr, "velmora-tour: %s: missing: %s\n", qPrintable(m_options.scene),
                     qPrintable(what));
    }
    return condition;
}

bool Scene::await(const QString &what, const std::function<bool()> &condition, int timeoutMs) {
    return expect(Waiting::until(condition, timeoutMs), what);
}

QWidget *Scene::control(const char *name) const {
    return m_window->findChild<QWidget *>(QLatin1String(name));
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
    return m_server.campaignValues(QStringLiteral("standard"), QStringLiteral("name"))
        .contains(name);
}

int Scene::count(const QString &event) const {
    return int(eventsNamed(m_demo.log(), event).size());
}

QString Scene::lastObject(const QString &event) const {
    const QModelIndexList events = eventsNamed(m_demo.log(), event);
    return events.isEmpty() ? QString() : events.last().data(EventLog::ObjectRole).toString();
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

bool Scene::awaitCampaignBanner() {
    return awaitBanner(QStringLiteral("a banner of the campaign"),
                       [this](const QString &name) { return isCampaignBanner(name); });
}

QWidget *Scene::awaitPurchaseSheet(const QString &what) {
    QWidget *buy = nullptr;
    const bool shown = await(what, [&buy] {
        const QWidget *sheet = QApplication::activeModalWidget();
        buy = sheet ? sheet->findChild<QWidget *>(QStringLiteral("buyButton")) : nullptr;
        return buy && ScreenRobot::shows(buy);
    });
    return shown ? buy : nullptr;
}

void Scene::picture(const QString &name, QWidget *window) {
    QWidget *shown = window ? window : m_window;
    shown->repaint();
    expect(savePicture(name, shown), QStringLiteral("picture %1").arg(name));
}

bool Scene::savePicture(const QString &name, const QWidget *window) {
    const QString file =
        QStringLiteral("%1-%2.png").arg(m_nextPicture++, 2, 10, QLatin1Char('0')).arg(name);
    const QImage image = ScreenRobot::pictureOf(window);
    m_timeline.add(QStringLiteral("picture"), file);
    return !image.isNull() && image.save(m_options.folder + QLatin1Char('/') + file);
}

void Scene::click(QWidget *widget) {
    click(widget, widget->rect().center());
}

void Scene::click(QWidget *widget, const QPoint &point) {
    ScreenRobot::click(widget, point);
}

void Scene::movePointerAway() {
    if (ScreenRobot::movePointerAway(m_window))
        await(QStringLiteral("the pointer outside the window"),
              [this] { return !m_window->underMouse(); });
}

void Scene::clickBanner() {
    const QString name = bannerName();
    const int links = count(LinkOpener::Opened);
    const int clicks = count(VLMclickForBanner);
    click(bannerImage(), {bannerImage()->width() / 3, bannerImage()->height() / 2});
    await(QStringLiteral("a notification about the click on the banner"),
          [&] { return count(VLMclickForBanner) == clicks + 1; });
    expect(lastObject(VLMclickForBanner) == name,
           QStringLiteral("the banner's name \"%1\" in the notification").arg(name));
    expect(count(LinkOpener::Opened) == links + 1, QStringLiteral("the banner's link opened"));
    expectStoreLink();
    movePointerAway();
}

void Scene::expectStoreLink() {
    // The scheme depends on whether this machine has a store application.
    static const QRegularExpression storePage(QStringLiteral("^/app/id\\d+$"));
    expect(storePage.match(QUrl(lastObject(LinkOpener::Opened)).path()).hasMatch(),
           QStringLiteral("a link to a page of the store"));
}

} // namespace demo::tour
