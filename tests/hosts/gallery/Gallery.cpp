// SPDX-License-Identifier: Apache-2.0
#include "Gallery.h"

#include <Velmora/Notifications.h>
#include <Velmora/Velmora.h>

#include <QtGui/QDesktopServices>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <unistd.h>

namespace gallery {

namespace {

// "macappstores" is the scheme of the store's own application.
const QStringList Schemes{QStringLiteral("http"), QStringLiteral("https"),
                          QStringLiteral("macappstores")};

// A rectangle in a window, in pixels.
QString pixels(const QRect &area, double ratio) {
    const auto scaled = [ratio](int length) {
        return QString::number(std::lround(length * ratio));
    };
    return QStringList{scaled(area.x()), scaled(area.y()), scaled(area.width()),
                       scaled(area.height())}
        .join(QLatin1Char(' '));
}

// An element of the framework is named after what it belongs to: "splash/closeButton".
QString fullName(const QWidget *widget) {
    for (const QWidget *parent = widget; parent; parent = parent->parentWidget()) {
        // Over native windows the picture is not in the banner's view.
        if (parent->objectName() == QLatin1String("bannerView") ||
            parent->objectName() == QLatin1String("bannerImage"))
            return QStringLiteral("banner/") + widget->objectName();
        if (parent->objectName() == QLatin1String("splashScreenView"))
            return QStringLiteral("splash/") + widget->objectName();
    }
    return widget->objectName();
}

} // namespace

void print(const QString &line) {
    std::puts(qUtf8Printable(line));
    std::fflush(stdout);
}

Gallery::Gallery(int startScreenSeconds) : m_commands(STDIN_FILENO, QSocketNotifier::Read) {
    Velmora::setSplashScreenLoadTime(startScreenSeconds);
    for (const QString &scheme : Schemes)
        QDesktopServices::setUrlHandler(scheme, this, "openLink");
    for (const QString &name :
         {VLMtryRemoveAds, VLMclickForBanner, VLMclickForVideo, VLMadsVideoDidStart,
          VLMadsVideoDidStop, VLMsplashScreenDidShow, VLMsplashScreenDidClose}) {
        m_observations.push_back(velmora::NotificationCenter::defaultCenter().addObserver(
            name, [](const velmora::Notification &posted) {
                print(QStringLiteral("notification %1 %2")
                          .arg(posted.name.section(QLatin1Char('.'), -1), posted.object.toString())
                          .trimmed());
            }));
    }
    connect(&m_commands, &QSocketNotifier::activated, this, &Gallery::obey);
    connect(&m_readiness, &QTimer::timeout, this, &Gallery::sayWhenReady);
    m_readiness.start(20);
}

Gallery::~Gallery() {
    for (const QString &scheme : Schemes)
        QDesktopServices::unsetUrlHandler(scheme);
    // A dialog before the window that it belongs to.
    while (!m_windows.empty())
        m_windows.pop_back();
}

void Gallery::add(std::unique_ptr<HostWindow> window, bool isGameEngine) {
    window->setTitle(QStringLiteral("gallery %1").arg(m_windows.size()));
    window->addSplashScreen(isGameEngine);
    m_windows.push_back(std::move(window));
}

void Gallery::add(QWidget *window) {
    add(std::make_unique<WidgetHostWindow>(window));
}

void Gallery::add(QWindow *window) {
    add(std::make_unique<NativeHostWindow>(window));
}

void Gallery::addGameEngine(QWidget *window) {
    add(std::make_unique<WidgetHostWindow>(window), true);
}

void Gallery::openLink(const QUrl &link) {
    print(QStringLiteral("opened ") + link.toString());
}

void Gallery::sayWhenReady() {
    const bool areExposed = std::all_of(m_windows.begin(), m_windows.end(),
                                        [](const auto &window) { return window->isExposed(); });
    const bool isActive = std::any_of(m_windows.begin(), m_windows.end(),
                                      [](const auto &window) { return window->isActive(); });
    if (areExposed && isActive) {
        m_readiness.stop();
        print(QStringLiteral("ready"));
    }
}

void Gallery::obey() {
    std::array<char, 256> bytes{};
    const ssize_t length = ::read(STDIN_FILENO, bytes.data(), bytes.size());
    if (length <= 0) { // the test has ended
        QCoreApplication::quit();
        return;
    }
    for (const QByteArray &command : QByteArray(bytes.data(), length).split('\n')) {
        if (command == "splash")
            Velmora::forceShow();
        else if (command == "banner")
            addBanners();
        else if (command == "report")
            report();
        else if (command == "quit")
            QCoreApplication::quit();
    }
}

void Gallery::addBanners() {
    for (const auto &window : m_windows)
        window->addBanner();
}

qsizetype Gallery::indexOfWindow(const QWidget *widget) const {
    // A window that is embedded in another one is an ancestor as a QWindow only.
    for (const QWindow *native = widget->window()->windowHandle(); native;
         native = native->parent()) {
        for (std::size_t i = 0; i < m_windows.size(); ++i) {
            if (m_windows[i]->native() == native)
                return qsizetype(i);
        }
    }
    return -1;
}

void Gallery::report() const {
    for (const auto &window : m_windows) {
        const double ratio = window->native()->devicePixelRatio();
        const QPointF corner = QPointF(window->knownCorner()) * ratio;
        print(QStringLiteral("window %1 %2 %3 %4")
                  .arg(int(window->isActive()))
                  .arg(std::lround(corner.x()))
                  .arg(std::lround(corner.y()))
                  .arg(pixels(window->content(), ratio)));
    }
    for (std::size_t i = 0; i < m_windows.size(); ++i) {
        if (m_windows[i]->printsClicks())
            print(QStringLiteral("widget %1 target %2")
                      .arg(i)
                      .arg(pixels(m_windows[i]->content(),
                                  m_windows[i]->native()->devicePixelRatio())));
    }
    const QWidgetList widgets = QApplication::allWidgets();
    for (const QWidget *widget : widgets) {
        const qsizetype index =
            widget->isVisible() && !widget->objectName().isEmpty() ? indexOfWindow(widget) : -1;
        if (index < 0 || widget->objectName().startsWith(QLatin1String("qt_")))
            continue;
        const QPoint corner = widget->mapToGlobal(QPoint()) - m_windows[index]->corner();
        print(QStringLiteral("widget %1 %2 %3")
                  .arg(index)
                  .arg(fullName(widget),
                       pixels(QRect(corner, widget->size()), widget->devicePixelRatioF())));
    }
    print(QStringLiteral("reported"));
}

} // namespace gallery
