// SPDX-License-Identifier: Apache-2.0
#include "AdKeys.h"
#include "Animator.h"
#include "BannerImageView.h"
#include "CloseButtonCell.h"
#include "tests/support/BannerHost.h"
#include "tests/support/TestRandom.h"
#include "tests/support/Waiting.h"

#include <Velmora/StandardNames.h>

#include <QtCore/QBuffer>
#include <QtCore/QFile>
#include <QtTest/QTest>

#include <thread>

namespace velmora::test {

using adserver::Fault;

class BannerControllerTest : public BannerHost {
protected:
    /// A real click: Qt decides which widget is under it.
    void click(QWidget *target) {
        const QPoint point = target->mapTo(window.get(), target->rect().center());
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, point);
        handleEvents();
    }
};

TEST_F(BannerControllerTest, ABannerComesOverHttpsAndSwapsEvery15Seconds) {
    serve({banner("one"), banner("two")});
    EXPECT_TRUE(Animator::isHidden(addBanner()->view()));
    AdBannerController *controller = showOneOf({QStringLiteral("one"), QStringLiteral("two")});
    EXPECT_FALSE(Animator::isHidden(controller->view()));
    for (int swap = 0; swap < 4; ++swap) {
        const QString before = controller->selectBanner();
        time.advance(14.9);
        EXPECT_EQ(controller->selectBanner(), before);
        time.advance(0.1);
        // Of two banners the one on screen is never drawn again.
        ASSERT_TRUE(
            shows(before == QStringLiteral("one") ? QStringLiteral("two") : QStringLiteral("one")));
    }
    EXPECT_EQ(server.log().count(TablePath), 1);
    EXPECT_EQ(server.log().count(QStringLiteral("/media/*")), 2);
}

TEST_F(BannerControllerTest, ARestingBannerTakesItsTurnWhenItsWindowCanBeSeen) {
    AdBannerController *controller = showOneOf({QStringLiteral("one"), QStringLiteral("two")});
    struct Way {
        void (QWidget::*away)();
        void (QWidget::*back)();
    };
    for (const Way &way : {Way{&QWidget::hide, &QWidget::show},
                           Way{&QWidget::showMinimized, &QWidget::showNormal}}) {
        // Seen again before the turn was due, the banner is swapped when it is due.
        const QString first = controller->selectBanner();
        time.advance(5);
        (window.get()->*way.away)();
        time.advance(5);
        (window.get()->*way.back)();
        time.advance(4.9);
        EXPECT_EQ(controller->selectBanner(), first);
        time.advance(0.1);
        ASSERT_TRUE(eventually([&] { return controller->selectBanner() != first; }));

        const QString resting = controller->selectBanner();
        (window.get()->*way.away)();
        time.advance(100);
        EXPECT_EQ(controller->selectBanner(), resting);
        EXPECT_EQ(time.timerCount(), 0u);
        (window.get()->*way.back)();
        ASSERT_TRUE(eventually([&] { return controller->selectBanner() != resting; }));
        EXPECT_TRUE(controller->bannerSwapTimer());
        // The turns go on in steps of 15 seconds, with one timer.
        const QString after = controller->selectBanner();
        time.advance(14.9);
        EXPECT_EQ(controller->selectBanner(), after);
        EXPECT_EQ(time.timerCount(), 1u);
        time.advance(0.1);
        ASSERT_TRUE(eventually([&] { return controller->selectBanner() != after; }));
    }
}

TEST_F(BannerControllerTest, AClickOpensTheAdThatWasOnScreenWhenTheMouseButtonWentDown) {
    AdBannerController *controller = showOneOf({QStringLiteral("one"), QStringLiteral("two")});
    ASSERT_TRUE(takesClicks());
    const auto swap = [&] {
        const QString before = controller->selectBanner();
        time.advance(15);
        return eventually([&] { return controller->selectBanner() != before; });
    };
    const QString pressed = controller->selectBanner();
    const QUrl link = controller->currentURL();
    const QPoint point =
        controller->bannerImage()->mapTo(window.get(), controller->bannerImage()->rect().center());
    QTest::mousePress(window->windowHandle(), Qt::LeftButton, {}, point);
    ASSERT_TRUE(swap());
    QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, {}, point);
    EXPECT_EQ(opened, QList<QUrl>{link});
    EXPECT_EQ(notifications, QStringList{QStringLiteral("clickforbanner:") + pressed});

    // A click by assistive technology, without the mouse.
    controller->bannerImage()->click();
    EXPECT_EQ(opened.last(), controller->currentURL());
    EXPECT_EQ(notifications.last(), QStringLiteral("clickforbanner:") + controller->selectBanner());
    EXPECT_NE(opened.last(), link);
}

TEST_F(BannerControllerTest, ABannerWithoutANameIsCalledWebBanner) {
    QJsonObject ad = banner("x");
    ad.remove(kBannerName);
    ad.remove(kBannerURL);
    serve({ad});
    AdBannerController *controller = addBanner();
    ASSERT_TRUE(shows("Web Banner"));
    controller->goToBannerURL();
    EXPECT_TRUE(opened.isEmpty());
    EXPECT_EQ(notifications, QStringList{QStringLiteral("clickforbanner:Web Banner")});
}

TEST_F(BannerControllerTest, WithoutAServerAHouseBannerIsShownWithItsOwnLink) {
    server.stop();
    AdBannerController *controller = addBanner();
    ASSERT_TRUE(showsHouseBanner());
    const QString shown = controller->selectBanner();
    controller->goToBannerURL();
    EXPECT_EQ(notifications, QStringList{QStringLiteral("clickforbanner:") + shown});
    ASSERT_EQ(opened.size(), 1);
    EXPECT_TRUE(opened.first().toString().startsWith(
        QStringLiteral("macappstores://apps.velmora-store.example/app/id")));

    FixedRandom random(0);
    std::set<QString> seen;
    for (quint32 i = 0; i < 8; ++i) {
        random.set(i);
        time.advance(15);
        seen.insert(controller->selectBanner());
        EXPECT_TRUE(controller->bannerImage()->hasImage()) << i;
    }
    EXPECT_EQ(seen.size(), 4u);
    // The host itself is not advertised, and a name leads to no other resource.
    for (const char *name : {"mac.999999.mac-store", "../interface/BannerController.ui"})
        EXPECT_EQ(StandardNames::bannerFromName(QLatin1String(name)), QString());
}

TEST_F(BannerControllerTest, AHouseBannerIsShownOnlyUntilSomethingElseWas) {
    serve({banner("one")});
    const QString media = QStringLiteral("/media/one.gif");
    server.faults().set(media, Fault::truncated());
    addBanner();
    ASSERT_TRUE(showsHouseBanner());
    server.faults().clear();
    time.advance(15);
    ASSERT_TRUE(shows("one"));
}

TEST_F(BannerControllerTest, AHouseBannerIsShownWhenTheServerHangsForATurn) {
    serve({banner("one")});
    for (const QString &what : {TablePath, QStringLiteral("/media/one.gif")}) {
        server.faults().set(what, Fault::hang());
        server.log().clear();
        addBanner();
        ASSERT_TRUE(eventually([&] { return server.log().count(what) == 1; }));
        time.advance(14.9);
        EXPECT_EQ(current()->selectBanner(), QString());
        time.advance(0.1);
        ASSERT_TRUE(showsHouseBanner()) << qPrintable(what);
        time.advance(45);
        EXPECT_EQ(server.log().count(), what == TablePath ? 1 : 2);
        // When the server answers at last, its banner is shown at once.
        server.faults().clear();
        ASSERT_TRUE(shows("one"));
        time.advance(10);
        EXPECT_EQ(time.timerCount(), 1u);
        restartProcess();
        QFile::remove(cachesFolder() + QStringLiteral("/one.gif"));
    }
}

TEST_F(BannerControllerTest, AHouseBannerStandsInForAPictureThatTurnsOutBroken) {
    serve({banner("torn")});
    QBuffer png;
    QImage(182, 22, QImage::Format_RGB32).save(&png, "png");
    putInCaches("torn.gif", png.data().left(72)); // the header and a little more
    AdBannerController *controller = addBanner();
    // It is decoded when it is drawn, after the beginning of its fade.
    EXPECT_TRUE(eventually(
        [&] {
            time.advance(0.05);
            return controller->standardBanners().contains(controller->selectBanner());
        },
        3000));
    EXPECT_TRUE(controller->bannerImage()->hasImage());
    // The next turn downloads it again.
    EXPECT_EQ(server.log().count(QStringLiteral("/media/torn.gif")), 0);
    time.advance(15);
    EXPECT_TRUE(shows("torn"));
}

TEST_F(BannerControllerTest, RemovedAdsStayAwayWithDownloadsAndTimersInFlight) {
    showOneOf({QStringLiteral("one"), QStringLiteral("two")});
    server.faults().set(QStringLiteral("/media/*"), Fault::delay(60));
    time.advance(15);
    ASSERT_TRUE(eventually([&] { return server.log().count(QStringLiteral("/media/*")) == 2; }));
    const QPointer<QWidget> view = current()->view();
    // On a worker thread, as a host's purchase code may call it.
    std::thread([] { Velmora::removeAdsNow(); }).join();
    EXPECT_TRUE(Velmora::isADSRemoved());
    EXPECT_FALSE(Velmora::BControllers().empty()); // the windows follow on the main thread
    handleEvents();
    time.advance(1);
    EXPECT_TRUE(Velmora::BControllers().empty());
    EXPECT_FALSE(view);
    const int requests = server.log().count();
    quietly(120);
    time.advance(300);
    EXPECT_EQ(server.log().count(), requests);
    EXPECT_EQ(time.timerCount(), 0u);
    EXPECT_EQ(window->findChildren<BannerImageView *>().size(), 0);

    Velmora::addBannerForWindow(window.get());
    EXPECT_TRUE(Velmora::BControllers().empty());
    Velmora::resetAds();
    addBanner();
    EXPECT_EQ(Velmora::BControllers().size(), 1u);
}

TEST_F(BannerControllerTest, TheHostMayRemoveAdsOrItsWindowFromInsideANotification) {
    showOneOf({QStringLiteral("one")});
    time.advance(1);
    auto remove = NotificationCenter::defaultCenter().addObserver(
        VLMtryRemoveAds, [](const Notification &) { Velmora::removeAdsNow(); });
    click(current()->closeButton());
    time.advance(1);
    EXPECT_EQ(window->findChildren<BannerImageView *>().size(), 0);

    remove.reset();
    Velmora::resetAds();
    restartProcess();
    AdBannerController *controller = showOneOf({QStringLiteral("one")});
    const auto destroy = NotificationCenter::defaultCenter().addObserver(
        VLMclickForBanner, [this](const Notification &) { window.release()->deleteLater(); });
    controller->goToBannerURL();
    handleEvents();
    time.advance(60);
    EXPECT_TRUE(Velmora::BControllers().empty());
}

TEST_F(BannerControllerTest, AnOfflineStartRecoversWithoutARestart) {
    serve({banner("one")});
    goOffline();
    addBanner();
    ASSERT_TRUE(showsHouseBanner());
    goOnline();
    // What the framework does when the network comes back.
    AdsDownloader::sharedInstance()->startUpdateAllAds();
    EXPECT_TRUE(shows("one"));
}

} // namespace velmora::test
