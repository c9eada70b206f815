// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/Scene.h"

#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "demo/Page.h"
#include "tests/tour/ScreenRobot.h"

#include <Velmora/Velmora.h>

#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <cstdio>

namespace demo::tour {

namespace {

// For a slow machine, and longer than a banner is shown.
constexpr int LongestWaitMs = 25000;

// In this time layouts are adjusted and the screen shows them.
constexpr int SettleMs = 100;

// Ends a scene. The reason is reported before.
struct SceneFailed {};

} // namespace

Scene::Scene(DemoApplication &demo, const QString &folder, qint64 tourStarted, const QString &name)
    : m_demo(demo), m_timeline(folder, tourStarted), m_folder(folder), m_name(name) {}

bool Scene::run(void (*play)(Scene &)) {
    note("scene", m_name);
    QObject::connect(&m_demo.log(), &EventLog::recorded, &m_demo.log(),
                     [this](const QString &event, const QString &object) {
                         m_events.insert(event, object);
                         note(event, object);
                     });
    try {
        play(*this);
    } catch (const SceneFailed &) {
    }
    note("server-requests", QString::number(server().log().count("*")));
    expectPrivateRequests();
    m_demo.log().disconnect();
    return m_complete;
}

void Scene::expectPrivateRequests() {
    const QByteArray host = QUrl(server().baseUrl()).authority().toUtf8();
    for (const auto &request : server().log().requests("*")) {
        QByteArray expected = request.method + ' ' + request.target + " HTTP/1.1\r\nHost: " + host +
                              "\r\nUser-Agent: Velmora\r\nAccept-Encoding: gzip\r\n";
        if (request.method == "POST")
            expected += "Content-Length: " + QByteArray::number(request.body.size()) + "\r\n";
        expect(request.raw == expected + "\r\n" + request.body,
               "nothing else in a request: " + QString::fromUtf8(request.raw));
    }
}

void Scene::openWindow() {
    m_window = m_demo.openWindow();
    awaitActive(m_window);
    movePointerAway();
    resizeWindow(JournalWindow::DefaultSize);
}

void Scene::resizeWindow(const QSize &size) {
    m_window->resize(size);
    await(QStringLiteral("a window of %1 x %2").arg(size.width()).arg(size.height()),
          [&] { return m_window->windowHandle()->size() == size; });
}

void Scene::expect(bool condition, const QString &what) {
    if (condition)
        return;
    if (m_complete && m_window)
        savePicture("missing", m_window);
    m_complete = false;
    note("missing", what);
    std::fprintf(stderr, "velmora-tour: %s: missing: %s\n", qPrintable(m_name), qPrintable(what));
}

void Scene::require(bool condition, const QString &what) {
    expect(condition, what);
    if (!condition)
        throw SceneFailed();
}

void Scene::await(const QString &what, const std::function<bool()> &condition) {
    require(QTest::qWaitFor(condition, LongestWaitMs), what);
}

void Scene::awaitActive(const QWidget *window) {
    await(QStringLiteral("the window \"%1\" in front").arg(window->windowTitle()),
          [window] { return window->isActiveWindow() && window->windowHandle()->isExposed(); });
}

void Scene::awaitEvent(const QString &event, int times) {
    await(event, [&] { return count(event) == times; });
}

void Scene::watch(const QString &what, const std::function<bool()> &condition, int milliseconds) {
    expect(!QTest::qWaitFor([&] { return !condition(); }, milliseconds), what);
}

void Scene::picture(const QString &name, QWidget *window) {
    QWidget *shown = window ? window : m_window;
    QTest::qWait(SettleMs);
    shown->repaint();
    expect(savePicture(name, shown), "picture " + name);
}

bool Scene::savePicture(const QString &name, const QWidget *window) {
    const QDir folder(m_folder);
    const int number = int(folder.entryList({PictureMask}, QDir::Files).size()) + 1;
    const QString file = QStringLiteral("%1-%2.png").arg(number, 2, 10, QChar('0')).arg(name);
    const QImage image = ScreenRobot::pictureOf(window);
    note("picture", file);
    return !image.isNull() && image.save(folder.filePath(file));
}

void Scene::click(QWidget *widget, double x, double y) {
    ScreenRobot::click(widget, {int(widget->width() * x), int(widget->height() * y)});
    movePointerAway();
}

void Scene::movePointerAway() {
    if (ScreenRobot::movePointerAway(m_window))
        await("the pointer outside the window", [this] { return !m_window->underMouse(); });
}

QWidget *Scene::reveal(const char *button, const char *revealed) {
    click(control(button));
    QWidget *wanted = control(revealed);
    await(QStringLiteral("%1 on the screen").arg(revealed),
          [wanted] { return ScreenRobot::shows(wanted); });
    return wanted;
}

void Scene::clickAd(QWidget *ad, const QString &notification, const QStringList &names) {
    // Clicks on an ad that has just appeared are ignored.
    watch(
        "the ad before it is clicked", [ad] { return ad->isVisible(); }, 800);
    const int links = count(LinkOpener::Opened);
    const int clicks = count(notification);
    click(ad, 0.4, 0.4);
    awaitEvent(notification, clicks + 1);
    expect(names.contains(lastObject(notification)), "the name of the ad in " + notification);
    expect(count(LinkOpener::Opened) == links + 1, "one opened link after " + notification);
}

void Scene::pay(QWidget *button, const QString &pictureName,
                const std::function<bool()> &isAdShown) {
    const int asked = count(VLMtryRemoveAds);
    click(button);
    awaitEvent(VLMtryRemoveAds, asked + 1);
    QWidget *buy = nullptr;
    await("the offer to remove ads", [&buy] {
        const QWidget *sheet = QApplication::activeModalWidget();
        buy = sheet ? sheet->findChild<QWidget *>("buyButton") : nullptr;
        return ScreenRobot::shows(buy);
    });
    expect(isAdShown(), "the ad still there behind the offer");
    picture(pictureName);
    click(buy);
    await("the page without ads", [&] {
        return !isAdShown() && !m_window->page()->banner() && ScreenRobot::shows(m_window->page());
    });
    expect(Velmora::isADSRemoved(), "ads removed");
}

velmora::adserver::AdServer &Scene::server() const {
    return m_demo.server().adServer();
}

QJsonObject Scene::adTable() const {
    return QJsonDocument::fromJson(server().campaign().reply()).object();
}

QStringList Scene::adValues(const QString &placement, const QString &key) const {
    QStringList values;
    const QJsonArray ads = adTable().value(placement).toArray();
    for (const QJsonValue &ad : ads)
        values.append(ad[key].toString());
    return values;
}

QWidget *Scene::control(const char *name) {
    auto *found = m_window->findChild<QWidget *>(name);
    require(found != nullptr, QStringLiteral("a control named %1").arg(name));
    return found;
}

} // namespace demo::tour
