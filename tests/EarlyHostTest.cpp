// SPDX-License-Identifier: Apache-2.0
#include "tests/support/ChildTest.h"
#include "tests/support/Waiting.h"

#include <Velmora/Velmora.h>

#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>

namespace velmora::test {

/// A host in a process of its own that makes calls before it has an application object.
TEST(HostWithoutAnApplication, DISABLED_MayCallAnything) {
    ASSERT_EQ(QCoreApplication::instance(), nullptr);
    Velmora::activateDebugMode();
    Velmora::removeAdsNow();
    EXPECT_TRUE(Velmora::isADSRemoved());
    Velmora::resetAds();
    EXPECT_FALSE(Velmora::isADSRemoved());
    Velmora::show();
    Velmora::forceShow();
    Velmora::setSplashScreenDelay(3);
    Velmora::setDefaultVideoWithURL(QUrl(QStringLiteral("https://127.0.0.1:1/a.mp4")),
                                    QUrl(QStringLiteral("https://127.0.0.1:1/id1")));
    Velmora::setBannersHeight(60);
    Velmora::addBannerForWindow(nullptr);
    Velmora::addSplashScreenToWindow(nullptr);
    NotificationCenter::defaultCenter().post(VLMtryRemoveAds);

    int count = 1;
    char name[] = "early";
    char *arguments[] = {name, nullptr};
    const QApplication application(count, arguments);
    QWidget window;
    window.show();
    Velmora::addBannerForWindow(&window);
    EXPECT_TRUE(Velmora::addSplashScreenToWindow(&window));
    quietly(50);
    EXPECT_EQ(Velmora::BControllers().size(), 1u);
    sayPartDone();
}

TEST(EarlyHostTest, CallsBeforeTheApplicationObjectDoNoHarm) {
    const QTemporaryDir folder;
    runUnnamedChildTest(QStringLiteral("HostWithoutAnApplication.*MayCallAnything"), folder.path());
}

} // namespace velmora::test
