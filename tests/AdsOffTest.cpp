// SPDX-License-Identifier: Apache-2.0
#include "AdsOffMarker.h"
#include "HostSettings.h"
#include "Switches.h"
#include "tests/support/FreshProcess.h"

#include <Velmora/UserDefaults.h>

#include <QtCore/QDir>
#include <QtCore/QFile>

namespace velmora::test {

class AdsOffTest : public FreshProcess {
protected:
    /// Replaces a file by a folder, so that it can't be written.
    static void block(const QString &path) {
        QFile::remove(path);
        ASSERT_TRUE(QDir().mkpath(path + QStringLiteral("/inside")));
    }
};

TEST_F(AdsOffTest, OneOfTheTwoPlacesIsEnough) {
    const QString settings = HostSettings::place();
    ASSERT_TRUE(Switches::setADSRemoved(true));
    for (const QByteArray &torn :
         {QByteArray(), QByteArray("[General]\nads"), QByteArray(900, 0)}) {
        QFile file(settings);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(torn);
        file.close();
        restartProcess();
        EXPECT_TRUE(Switches::isADSRemoved()) << torn.constData();
    }
    QFile::remove(settings);
    restartProcess();
    Switches::activateDebugMode();
    EXPECT_TRUE(Switches::isADSRemoved());
    EXPECT_TRUE(hasLogged("the settings do not say so"));

    ASSERT_TRUE(Switches::setADSRemoved(true));
    ASSERT_TRUE(QFile::remove(AdsOffMarker::path()));
    restartProcess();
    EXPECT_TRUE(Switches::isADSRemoved());
    EXPECT_TRUE(AdsOffMarker::exists()) << "made again";

    ASSERT_TRUE(Switches::setADSRemoved(false));
    restartProcess();
    EXPECT_FALSE(Switches::isADSRemoved());
}

TEST_F(AdsOffTest, OnlyWithoutBothPlacesTheSwitchIsNotStored) {
    const QString settings = HostSettings::place();
    const QString marker = AdsOffMarker::path();
    block(settings);
    EXPECT_TRUE(Switches::setADSRemoved(true));
    EXPECT_TRUE(AdsOffMarker::exists());
    block(marker);
    EXPECT_FALSE(Switches::setADSRemoved(true));
    EXPECT_TRUE(Switches::isADSRemoved()) << "for this run";
    QDir(settings).removeRecursively();
    EXPECT_TRUE(Switches::setADSRemoved(true));
    QDir(marker).removeRecursively();
}

} // namespace velmora::test
