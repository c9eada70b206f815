#include "facade/Switches.h"
#include "tests/support/FreshProcess.h"

#include <Velmora/Support.h>

#include <thread>

namespace velmora::test {

class UserDefaultsTest : public FreshProcess {};

TEST_F(UserDefaultsTest, ValuesSurviveTheProcess) {
    VLMSetObjForKey(QByteArray("\0bytes\xff", 7), QStringLiteral("test-bytes"));
    restartProcess();
    EXPECT_EQ(VLMObjForKey(QStringLiteral("test-bytes")).toByteArray(),
              QByteArray("\0bytes\xff", 7));
    VLMUserDefaults().removeObject(QStringLiteral("test-bytes"));
    restartProcess();
    EXPECT_FALSE(VLMObjForKey(QStringLiteral("test-bytes")).isValid());
}

TEST_F(UserDefaultsTest, ManyThreadsMayReadAndWrite) {
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([t] {
            for (int i = 0; i < 25; ++i) {
                VLMSetObjForKey(i, QStringLiteral("test-%1").arg(t));
                VLMObjForKey(QStringLiteral("test-0"));
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    for (int t = 0; t < 4; ++t)
        EXPECT_EQ(VLMObjForKey(QStringLiteral("test-%1").arg(t)).toInt(), 24);
}

TEST_F(UserDefaultsTest, AdsOffIsReadAfreshAndSurvivesButDebugModeDoesNot) {
    EXPECT_FALSE(Switches::isADSRemoved());
    VLMSetObjForKey(true, QStringLiteral("adsoff"));
    EXPECT_TRUE(Switches::isADSRemoved());
    Switches::activateDebugMode();
    Switches::setARCToWindows(true);
    restartProcess();
    EXPECT_TRUE(Switches::isADSRemoved());
    EXPECT_FALSE(Switches::isDebugModeActivate());
    EXPECT_FALSE(Switches::isARCActivate());
    Switches::setADSRemoved(false);
    EXPECT_FALSE(Switches::isADSRemoved());
}

TEST_F(UserDefaultsTest, TheLogSpeaksOnlyInDebugModeWhileAdsAreOn) {
    LOG(QStringLiteral("one"));
    Switches::activateDebugMode();
    LOG(QStringLiteral("two %1 %@"));
    Switches::setADSRemoved(true);
    LOG(QStringLiteral("three"));
    EXPECT_EQ(logged(), QStringList{QStringLiteral("two %1 %@")});
}

} // namespace velmora::test
