// SPDX-License-Identifier: Apache-2.0
#include "AdBannerController.h"
#include "tests/support/ChildTest.h"
#include "tests/support/SplashHost.h"
#include "tests/support/Waiting.h"

#include <Velmora/AdsMacHelper.h>
#include <Velmora/StandardNames.h>
#include <Velmora/Velmora.h>

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>

#include <limits>
#include <set>
#include <thread>

namespace velmora::test {

namespace {

/// The values from which the operations take their arguments.
struct Arguments {
    QWidget *window = nullptr;
    ViewController *controller = nullptr;
    double number = 0;
    qint64 integer = 0;
    bool flag = false;
    QString text;
    QUrl url;
    QColor color;
    QImage image;
    TimerPtr timer;

    QWindow *nativeWindow() const { return window ? window->windowHandle() : nullptr; }
};

enum class From { MainThread, AnyThread };

struct Operation {
    const char *expression;
    void (*call)(const Arguments &);
    From from = From::MainThread;

    std::string name() const {
        return QString::fromLatin1(expression)
            .section(QRegularExpression(QStringLiteral("[(<]")), 0, 0)
            .toStdString();
    }
};

#define OPERATION(...)                                                                             \
#__VA_ARGS__, [](const Arguments &a) { static_cast<void>(a), (void)(__VA_ARGS__); }

// clang-format off
const Operation operations[] = {
    {OPERATION(Velmora::activateDebugMode())},
    {OPERATION(Velmora::isDebugModeActivate())},
    {OPERATION(Velmora::setARCToWindows(a.flag))},
    {OPERATION(Velmora::isARCActivate())},
    {OPERATION(Velmora::setMotion(Velmora::Motion(a.integer)))},
    {OPERATION(Velmora::isADSRemoved())},
    {OPERATION(Velmora::removeAdsNow()), From::AnyThread},
    {OPERATION(Velmora::resetAds())},
    {OPERATION(Velmora::addSplashScreenToWindow(a.window))},
    {OPERATION(Velmora::addSplashScreenToWindow(a.nativeWindow()))},
    {OPERATION(Velmora::addSplashScreenToUnityWindow(a.window))},
    {OPERATION(Velmora::addSplashScreenToUnityWindow(a.nativeWindow()))},
    {OPERATION(Velmora::show()), From::AnyThread},
    {OPERATION(Velmora::forceShow()), From::AnyThread},
    {OPERATION(Velmora::showWithouSplash()), From::AnyThread},
    {OPERATION(Velmora::refreshWaitAgain()), From::AnyThread},
    {OPERATION(Velmora::isShowSplashScreen())},
    {OPERATION(Velmora::isADSReady())},
    {OPERATION(Velmora::splashScreenStartCount())},
    {OPERATION(Velmora::SSPresenter())},
    {OPERATION(Velmora::setDefaultVideoWithURL(a.url, a.url))},
    {OPERATION(Velmora::setDefaultVideoURL(a.url, a.text))},
    {OPERATION(Velmora::setDefaultVideoName(a.text, a.text))},
    {OPERATION(Velmora::urlFromAppID(a.text))},
    {OPERATION(Velmora::setSplashScreenWaitingVideoTimeSeconds(a.integer))},
    {OPERATION(Velmora::setSplashScreenLoadTime(a.integer))},
    {OPERATION(Velmora::setSplashScreenDelay(a.number))},
    {OPERATION(Velmora::setSplashScreenMuted(a.flag))},
    {OPERATION(Velmora::setSplashScreenSkippedWhenEmpty(a.flag))},
    {OPERATION(Velmora::setSplashScreenAppearance(Velmora::Appearance(a.integer)))},
    {OPERATION(Velmora::setSplashScreenTopInset(a.number))},
    {OPERATION(Velmora::setSplashScreenTopInset(a.number, a.window))},
    {OPERATION(Velmora::setSplashScreenTopInset(a.number, a.nativeWindow()))},
    {OPERATION(Velmora::setSplashScreenBackgroundColor(a.color))},
    {OPERATION(Velmora::setSplashScreenBackgroundImage(a.image))},
    {OPERATION(Velmora::setSplashScreenBackgroundImageScaling(unsigned(a.integer)))},
    {OPERATION(Velmora::setSplashScreenIcon(a.image))},
    {OPERATION(Velmora::setSplashScreenTextColor(a.color))},
    {OPERATION(Velmora::setSplashScreenTimerTextColor(a.color))},
    {OPERATION(Velmora::setSplashScreenTimerBackgroundColor(a.color))},
    {OPERATION(Velmora::setSplashScreenTimerBorderColor(a.color, a.color))},
    {OPERATION(Velmora::setSplashScreenTimerBorderWidth(a.number, a.number))},
    {OPERATION(Velmora::setSplashScreenHiddenButtonBeforeVideo(a.flag))},
    {OPERATION(Velmora::setSplashScreenHiddenButtonAfterVideo(a.flag))},
    {OPERATION(Velmora::setSplashScreenHiddenIcon(a.flag))},
    {OPERATION(Velmora::setSplashScreenHiddenIconAfterVideo(a.flag))},
    {OPERATION(Velmora::setSplashScreenHiddenIconBeforeVideo(a.flag))},
    {OPERATION(Velmora::setSplashScreenHiddenBackgroundImage(a.flag))},
    {OPERATION(Velmora::setSplashScreenHiddenBackgroundImageAfterVideo(a.flag))},
    {OPERATION(Velmora::setSplashScreenHiddenBackgroundImageBeforeVideo(a.flag))},
    {OPERATION(Velmora::addBannerForWindow(a.window)), From::AnyThread},
    {OPERATION(Velmora::addBannerForWindow(a.nativeWindow())), From::AnyThread},
    {OPERATION(Velmora::addBannerForViewController(a.controller, a.window)), From::AnyThread},
    {OPERATION(Velmora::BControllFromWindow(a.window))},
    {OPERATION(Velmora::BControllFromWindow(a.nativeWindow()))},
    {OPERATION(Velmora::BControllFromViewController(a.controller))},
    {OPERATION(Velmora::BControllers())},
    {OPERATION(Velmora::setBannersReserveSpace(a.flag))},
    {OPERATION(Velmora::setBannersInTabOrder(a.flag))},
    {OPERATION(Velmora::setBannersHeight(a.number))},
    {OPERATION(Velmora::setBannersLargeImage())},
    {OPERATION(Velmora::setBannersSmallImage())},
    {OPERATION(Velmora::setBannersBottomInset(a.number))},
    {OPERATION(Velmora::setBannersCenterXInset(a.number))},
    {OPERATION(Velmora::setBannerHeight(a.number, a.window))},
    {OPERATION(Velmora::setBannerHeight(a.number, a.nativeWindow()))},
    {OPERATION(Velmora::setBannerLargeImageToWindow(a.window))},
    {OPERATION(Velmora::setBannerLargeImageToWindow(a.nativeWindow()))},
    {OPERATION(Velmora::setBannerSmallImageToWindow(a.window))},
    {OPERATION(Velmora::setBannerSmallImageToWindow(a.nativeWindow()))},
    {OPERATION(Velmora::setBannerBottomInset(a.number, a.window))},
    {OPERATION(Velmora::setBannerBottomInset(a.number, a.nativeWindow()))},
    {OPERATION(Velmora::setBannerCenterXInset(a.number, a.window))},
    {OPERATION(Velmora::setBannerCenterXInset(a.number, a.nativeWindow()))},
    {OPERATION(Velmora::setBannerHidden(a.flag, a.controller))},
    {OPERATION(Velmora::removeSplashScreenFromWindow(a.window))},
    {OPERATION(Velmora::removeSplashScreenFromWindow(a.nativeWindow()))},
    {OPERATION(Velmora::removeADSFromWindow(a.window))},
    {OPERATION(Velmora::removeADSFromWindow(a.nativeWindow()))},
    {OPERATION(Velmora::isInitializedSplashScreenWithLOG_WARNING())},
    {OPERATION(Velmora::isInitializedSplashScreenWithLOG_ERROR())},
    {OPERATION(Velmora::isInitializedBannerLOG_ERROR())},
    {OPERATION(Velmora::LOG(a.text, a.text))},
    {OPERATION(VelmoraEvents::instance())},
    {OPERATION(VLMUserDefaults()), From::AnyThread},
    {OPERATION(VLMObjForKey(a.text)), From::AnyThread},
    {OPERATION(VLMSetObjForKey(a.number, a.text)), From::AnyThread},
    {OPERATION(VLMMainAppBundle())},
    {OPERATION(VLMAllowLocale()), From::AnyThread},
    {OPERATION(VLMStringFromKey(a.text)), From::AnyThread},
    {OPERATION(LOG(a.text)), From::AnyThread},
    {OPERATION(setGodTimer(a.timer))},
    {OPERATION(StandardNames::curentLocaleIdentifier()), From::AnyThread},
    {OPERATION(StandardNames::localeIdentifier({a.text, QString(), a.text})), From::AnyThread},
    {OPERATION(StandardNames::getInfoFromURL(a.url)), From::AnyThread},
    {OPERATION(StandardNames::standardBanners())},
    {OPERATION(StandardNames::bannerFromName(a.text))},
    {OPERATION(AdsMacHelper::isInternetConnection())},
    {OPERATION(AdsMacHelper::getSystemUUID()), From::AnyThread},
    {OPERATION(Bundle::mainBundle())},
    {OPERATION(Bundle::resourseBundleForClass<StandardNames>().resourcePath())},
    {OPERATION(Bundle::mainBundle().objectForInfoDictionaryKey(a.text))},
    {OPERATION(Bundle::mainBundle().urlForResource(a.text, a.text))},
};
// clang-format on

/// Sensible, empty and hostile values.
std::vector<Arguments> everyKind(QWidget *window, ViewController *controller) {
    constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();
    constexpr double Endless = std::numeric_limits<double>::infinity();
    constexpr auto Least = std::numeric_limits<qint64>::min();
    constexpr auto Most = std::numeric_limits<qint64>::max();
    const QString hostile = QStringLiteral("../\0%s%n%1\xfffe").repeated(1000);
    QImage sound(8, 8, QImage::Format_RGB32);
    sound.fill(Qt::red);
    QImage flat(20'000, 1, QImage::Format_Mono);
    flat.fill(0);
    const auto timer = Timer::scheduled(1e6, Timer::Kind::OneShot, [] {});
    timer->invalidate();
    const QUrl here = QUrl::fromLocalFile(QStringLiteral("/"));
    return {
        {window, controller, 60, 3, true, QStringLiteral("42"), here, Qt::red, sound, timer},
        {},
        {window, nullptr, NoNumber, Least, true, hostile,
         QUrl(QStringLiteral("javascript:alert(1)")), QColor(-1, 999, 0), flat, nullptr},
        {nullptr, controller, -Endless, Most, false, QStringLiteral(" "),
         QUrl(QStringLiteral("https://127.0.0.1:1/a?b#c")), Qt::transparent, flat, timer},
        {window, controller, 1e300, Most, true, QString(), QUrl(), Qt::red, sound, timer},
        {window, controller, -1e300, -1, true, QString(1, QChar(0)),
         QUrl(QStringLiteral("http://[")), Qt::red, sound, timer},
    };
}

void callTwice(const Operation &operation, const Arguments &arguments) {
    SCOPED_TRACE(operation.expression);
    EXPECT_NO_THROW(operation.call(arguments));
    EXPECT_NO_THROW(operation.call(arguments));
}

void callAll(const std::vector<Arguments> &kinds, const std::set<std::string> &but = {}) {
    for (const Arguments &arguments : kinds) {
        for (const Operation &operation : operations) {
            if (!but.contains(operation.name()))
                callTwice(operation, arguments);
        }
        handleEvents();
    }
}

} // namespace

class InterfaceSweepTest : public SplashHost {
protected:
    InterfaceSweepTest() : host(window) {
        restartProcess();
        own = window->findChildren<QWidget *>().size();
    }

    void setUp() {
        Velmora::addSplashScreenToWindow(window);
        Velmora::addBannerForWindow(window);
        time.advance(40);
        EXPECT_TRUE(Velmora::isADSReady());
        EXPECT_TRUE(Velmora::BControllFromWindow(window));
    }

    QWidget *window = openWindow("window");
    ViewController host;
    qsizetype own = 0;
};

TEST_F(InterfaceSweepTest, KnowsEveryOperation) {
    std::multiset<std::string> known;
    for (const Operation &operation : operations)
        known.insert(operation.name().substr(operation.name().find_last_of(':') + 1));
    const QRegularExpression declaration(
        QStringLiteral(R"(^ *(?:static|VELMORA_EXPORT) [^;(/]*?(\w+)\()"),
        QRegularExpression::MultilineOption);
    for (const char *header : {"Velmora", "Support", "StandardNames", "AdsMacHelper", "Bundle"}) {
        QFile file(QStringLiteral(VELMORA_TEST_HEADERS "/%1.h").arg(QLatin1String(header)));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QString text =
            QString::fromUtf8(file.readAll()).section(QStringLiteral("private:"), 0, 0);
        int found = 0;
        for (const auto &match : declaration.globalMatch(text)) {
            ++found;
            const auto row = known.find(match.captured(1).toStdString());
            if (row == known.end())
                ADD_FAILURE() << header << ": " << qPrintable(match.captured(0));
            else
                known.erase(row);
        }
        EXPECT_GT(found, 1) << header;
    }
}

TEST_F(InterfaceSweepTest, EachMayBeTheFirstCallOfAProcess) {
    for (const Operation &operation : operations) {
        for (const Arguments &arguments : everyKind(window, &host)) {
            callTwice(operation, arguments);
            time.advance(20);
            if (Velmora::isADSRemoved())
                Velmora::resetAds();
            restartProcess();
            EXPECT_EQ(window->findChildren<QWidget *>().size(), own) << operation.expression;
            EXPECT_EQ(time.timerCount(), 0u) << operation.expression;
        }
    }
}

TEST_F(InterfaceSweepTest, AnyOrderIsHarmlessWhileAdsAreShown) {
    setUp();
    for (int round = 0; round < 2; ++round) {
        callAll(everyKind(window, &host), {"Velmora::removeAdsNow"});
        Velmora::forceShow();
        time.advance(100);
    }
    EXPECT_GT(Velmora::splashScreenStartCount(), 1);
    closeWindow(window);
    callAll(everyKind(nullptr, &host));
    time.advance(100);
}

TEST_F(InterfaceSweepTest, NothingIsShownAfterRemoval) {
    setUp();
    Velmora::forceShow();
    time.advance(1);
    EXPECT_TRUE(Velmora::isShowSplashScreen());
    Velmora::removeAdsNow();
    time.advance(5);
    heard();
    callAll(everyKind(window, &host), {"Velmora::resetAds"});
    time.advance(300);
    EXPECT_FALSE(Velmora::isShowSplashScreen());
    EXPECT_TRUE(Velmora::BControllers().empty());
    EXPECT_EQ(heard(), QStringList());
    EXPECT_EQ(window->findChildren<QWidget *>().size(), own);
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(InterfaceSweepTest, AnotherThreadMayCallWhatTheHeadersSay) {
    setUp();
    for (const bool isRemoved : {false, true}) {
        if (isRemoved)
            Velmora::removeAdsNow();
        for (const Arguments &arguments : everyKind(window, &host)) {
            std::thread([&] {
                for (const Operation &operation : operations) {
                    if (operation.from == From::AnyThread &&
                        (isRemoved || operation.name() != "Velmora::removeAdsNow"))
                        callTwice(operation, arguments);
                }
            }).join();
            time.advance(30);
        }
    }
    EXPECT_FALSE(Velmora::isShowSplashScreen());
    EXPECT_EQ(window->findChildren<QWidget *>().size(), own);
}

/// A host in a process of its own that makes calls before it has an application object and after
/// that was destroyed. Its window lives longer than the application object.
TEST(HostOutsideItsApplication, DISABLED_MayCallAnything) {
    ASSERT_EQ(QCoreApplication::instance(), nullptr);
    callAll(everyKind(nullptr, nullptr));
    Velmora::resetAds();

    auto application = std::make_unique<LateApplication<QApplication>>();
    VirtualTime time;
    auto *window = new QWidget;
    window->show();
    handleEvents();
    Velmora::addBannerForWindow(window);
    EXPECT_EQ(Velmora::BControllers().size(), 1u);
    EXPECT_TRUE(Velmora::addSplashScreenToWindow(window));
    Velmora::forceShow();
    EXPECT_TRUE(Velmora::isShowSplashScreen());
    time.advance(1);
    application.reset();
    EXPECT_EQ(time.timerCount(), 0u);
    // The views in a window are destroyed with it.
    const qsizetype parts = window->findChildren<QWidget *>().size();

    ViewController host(window);
    callAll(everyKind(window, &host));
    callAll(everyKind(nullptr, nullptr));
    time.advance(300);
    EXPECT_FALSE(Velmora::isShowSplashScreen());
    EXPECT_EQ(window->findChildren<QWidget *>().size(), parts);
    EXPECT_EQ(time.timerCount(), 0u);
    sayPartDone();
}

TEST(InterfaceSweep, CallsBeforeAndAfterTheApplicationObjectDoNoHarm) {
    const QTemporaryDir folder;
    // Objects that wait for deleteLater() when the application object goes are never deleted.
    runUnnamedChildTest(QStringLiteral("HostOutsideItsApplication.*"), folder.path(),
                        {{QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0")}});
}

} // namespace velmora::test
