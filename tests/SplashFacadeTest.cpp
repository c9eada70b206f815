// SPDX-License-Identifier: Apache-2.0
#include "AdBannerController.h"
#include "FacadeState.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/SplashHost.h"
#include "tests/support/Waiting.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

#include <cmath>

namespace velmora::test {

class SplashFacadeTest : public SplashHost {
protected:
    static bool isPresenterMade() { return FacadeState::current().presenter != nullptr; }
};

TEST_F(SplashFacadeTest, ThePresenterIsMadeByTheFirstCallThatNeedsIt) {
    Velmora::activateDebugMode();
    EXPECT_TRUE(Velmora::isInitializedSplashScreenWithLOG_WARNING());
    Velmora::removeAdsNow();
    Velmora::show();
    Velmora::forceShow();
    EXPECT_FALSE(isPresenterMade());
    EXPECT_TRUE(Velmora::isADSRemoved());
    Velmora::resetAds();

    Velmora::setSplashScreenTextColor(Qt::blue);
    ASSERT_TRUE(isPresenterMade());
    EXPECT_EQ(timesLogged("VELMORA :: WARNING :: SplashScreen controller not initialized!"), 0);
    // The message says the opposite: it is logged when there is a presenter. The setter still
    // works.
    Velmora::setSplashScreenTextColor(Qt::red);
    EXPECT_EQ(timesLogged("VELMORA :: WARNING :: SplashScreen controller not initialized!"), 1);
    EXPECT_EQ(controller(openRegistered("window")).appearance().textColor, QColor(Qt::red));
    EXPECT_FALSE(Velmora::isInitializedSplashScreenWithLOG_ERROR());
}

TEST_F(SplashFacadeTest, TimesOutOfRangeAreCorrected) {
    Velmora::activateDebugMode();
    for (const qint64 wrong : {16, -1}) {
        Velmora::setSplashScreenLoadTime(wrong);
        EXPECT_EQ(presenter().loadTime(), 5);
    }
    EXPECT_EQ(timesLogged("VELMORA :: WARNING :: invalid loadTime value"), 2);
    Velmora::setSplashScreenLoadTime(15);
    EXPECT_EQ(presenter().loadTime(), 15);
    EXPECT_EQ(presenter().splashScreenStandartDuration(), 10);
    Velmora::setSplashScreenLoadTime(0);
    const auto &options = presenter().splashScreenOptions();
    for (const char *key :
         {"hiddenIconBeforeVideo", "hiddenBackgroundImageBeforeVideo", "hiddenButtonBeforeVideo"})
        EXPECT_TRUE(options.value(QLatin1String(key)).toBool()) << key;

    const std::pair<double, qint64> delays[] = {
        {4.9, 4}, {0, 0}, {-1, 30}, {std::nan(""), 30}, {1e300, 1'000'000'000}};
    for (const auto &[asked, expected] : delays) {
        Velmora::setSplashScreenDelay(asked);
        EXPECT_EQ(presenter().delayForFirstStart(), expected);
    }
    Velmora::setSplashScreenWaitingVideoTimeSeconds(7);
    EXPECT_EQ(presenter().waitTime(), 7);
}

TEST_F(SplashFacadeTest, ADefaultVideoIsGivenByAddressOrByName) {
    Velmora::activateDebugMode();
    const QUrl link = Velmora::urlFromAppID(QStringLiteral("ID42"));
    EXPECT_EQ(link, Velmora::urlFromAppID(QStringLiteral("42")));
    EXPECT_EQ(link.scheme(), QStringLiteral("macappstores"));
    EXPECT_EQ(link.path(), QStringLiteral("/app/id42"));

    QFile file(QCoreApplication::applicationDirPath() + QStringLiteral("/ours.v2.mp4"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    Velmora::setDefaultVideoName(QStringLiteral("ours.v2.mp4"), QStringLiteral("id42"));
    EXPECT_EQ(presenter().defaultVideoUrl(), QUrl::fromLocalFile(file.fileName()));
    EXPECT_EQ(presenter().defaultLinkFromVideoUrl(), link);
    file.remove();
    Velmora::setDefaultVideoName(QStringLiteral("missing.mp4"), QStringLiteral("42"));
    EXPECT_TRUE(presenter().defaultVideoUrl().isEmpty());
    EXPECT_TRUE(hasLogged("LOAD VIDEO WITH URL : (null)"));
}

// A host with a real ad server, whose first call concerns splash screens.
class SplashOnlyHostTest : public LocalAdServer {
protected:
    SplashOnlyHostTest() {
        serve({}, {video("film")});
        window.show();
    }
    int requests() { return server.log().count(TablePath); }
    static bool hasVideo() { return !AdsDownloader::sharedInstance()->linkVideoURL().isEmpty(); }

    QWidget window;
};

TEST_F(SplashOnlyHostTest, ABannerAddedInTheSameTurnSharesItsRequestAndFindsTheStoredTable) {
    serve({banner("stored")}, {video("film")});
    const auto shown = [this] {
        return Velmora::BControllFromWindow(&window)->selectBanner() == QStringLiteral("stored");
    };
    Velmora::setSplashScreenDelay(3);
    Velmora::addSplashScreenToWindow(&window);
    Velmora::addBannerForWindow(&window);
    ASSERT_TRUE(eventually([&] { return shown() && hasVideo(); }));
    EXPECT_EQ(requests(), 1);
    waitForDisk(); // the table is being stored
    restartProcess();

    server.stop();
    Velmora::setSplashScreenDelay(3);
    // The ad server is not asked before the next turn of the main loop.
    EXPECT_FALSE(AdsDownloader::sharedInstance()->hasToldDelegates());
    Velmora::addBannerForWindow(&window);
    EXPECT_TRUE(eventually(shown));
}

TEST_F(SplashOnlyHostTest, TheUpdateCycleWaitsUntilAdsAreAllowed) {
    for (const bool isAddedBefore : {false, true}) {
        if (isAddedBefore)
            Velmora::addSplashScreenToWindow(&window);
        Velmora::removeAdsNow();
        Velmora::setSplashScreenDelay(3);
        handleEvents();
        EXPECT_EQ(requests(), 0);
        Velmora::resetAds();
        Velmora::addSplashScreenToWindow(&window);
        EXPECT_TRUE(eventually(hasVideo)) << isAddedBefore;
        EXPECT_EQ(requests(), 1);
        restartProcess();
        server.log().clear();
    }
}

} // namespace velmora::test
