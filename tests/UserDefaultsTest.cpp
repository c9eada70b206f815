// SPDX-License-Identifier: Apache-2.0
#include "HostSettings.h"
#include "ProcessRoot.h"
#include "Switches.h"
#include "tests/support/ChildTest.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/HostName.h"

#include <Velmora/Support.h>

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QLoggingCategory>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>

#include <csignal>
#include <functional>
#include <sys/resource.h>
#include <thread>

namespace velmora::test {

class UserDefaultsTest : public FreshProcess {
protected:
    /// A value on disk, in the settings of an application name.
    static QVariant stored(const QString &application, const QString &key) {
        return QSettings(QStringLiteral("Velmora Tests"), application).value(key);
    }

    HostName name;
};

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

TEST_F(UserDefaultsTest, RemovalOfAdsSurvivesARestartAndDebugModeDoesNot) {
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

TEST_F(UserDefaultsTest, APurchaseIsFoundWhenTheHostSetsItsNameLate) {
    HostName::set(QStringLiteral("paid"));
    Switches::setADSRemoved(true);
    restartProcess();
    HostName::set(QStringLiteral("unpaid"));
    EXPECT_FALSE(Switches::isADSRemoved());
    HostName::set(QStringLiteral("paid"));
    EXPECT_TRUE(Switches::isADSRemoved());
}

TEST_F(UserDefaultsTest, ValuesOfThisRunMoveToANameThatIsSetLate) {
    HostName::set(QStringLiteral("early"));
    Switches::setADSRemoved(true);
    VLMSetObjForKey(7, QStringLiteral("test-gone"));
    VLMUserDefaults().removeObject(QStringLiteral("test-gone"));
    HostName::set(QStringLiteral("late"));
    std::thread([] { EXPECT_TRUE(Switches::isADSRemoved()); }).join();
    EXPECT_TRUE(Switches::isADSRemoved());
    restartProcess();
    EXPECT_TRUE(Switches::isADSRemoved());
    EXPECT_FALSE(VLMObjForKey(QStringLiteral("test-gone")).isValid());
    // A value that this run only read does not move.
    HostName::set(QStringLiteral("later still"));
    EXPECT_FALSE(Switches::isADSRemoved());
}

TEST_F(UserDefaultsTest, AValueThatAnotherProcessWroteIsReadAtOnce) {
    const QByteArray child = qgetenv("VELMORA_TEST_CHILD");
    if (!child.isEmpty()) {
        Switches::setADSRemoved(child == "remove");
        sayPartDone();
        return;
    }
    const auto inAnotherProcess = [](const char *what) {
        runChildTest(QStringLiteral("*AValueThatAnotherProcessWroteIsReadAtOnce"),
                     QLatin1String(what));
    };
    EXPECT_FALSE(Switches::isADSRemoved());
    inAnotherProcess("remove");
    EXPECT_TRUE(Switches::isADSRemoved());
    inAnotherProcess("reset");
    EXPECT_FALSE(Switches::isADSRemoved());
    inAnotherProcess("remove");
    EXPECT_TRUE(Switches::isADSRemoved());
    // Reading stays cheap: a millisecond at the most.
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < 1000; ++i)
        Switches::isADSRemoved();
    EXPECT_LT(clock.elapsed(), 1000);
}

TEST_F(UserDefaultsTest, AnUnwritableFileIsLoggedAndTheValueHoldsInMemory) {
    HostName::set(QStringLiteral("stubborn"));
    const QString file = HostSettings::place();
    const rlimit unlimited{RLIM_INFINITY, RLIM_INFINITY};
    const rlimit nothing{0, RLIM_INFINITY};
    std::signal(SIGXFSZ, SIG_IGN);
    const struct {
        const char *what;
        std::function<void()> spoil;
        std::function<void()> mend;
    } cases[] = {{"a folder in its place", [&] { QDir().mkpath(file + QStringLiteral("/x")); },
                  [&] { QDir(file).removeRecursively(); }},
                 {"a full disk", [&] { setrlimit(RLIMIT_FSIZE, &nothing); },
                  [&] { setrlimit(RLIMIT_FSIZE, &unlimited); }}};
    for (const auto &test : cases) {
        SCOPED_TRACE(test.what);
        restartProcess();
        QFile::remove(file);
        Switches::activateDebugMode();
        const qsizetype before = logged().size();
        test.spoil();
        Switches::setADSRemoved(true);
        EXPECT_TRUE(Switches::isADSRemoved());
        EXPECT_EQ(
            logged().mid(before).filter(QStringLiteral("stubborn.conf cannot be written")).size(),
            1);
        test.mend();
        // The next reading tries to write it again.
        EXPECT_TRUE(Switches::isADSRemoved());
        EXPECT_TRUE(stored(QStringLiteral("stubborn"), QStringLiteral("adsoff")).toBool());
        Switches::setADSRemoved(false);
        EXPECT_FALSE(stored(QStringLiteral("stubborn"), QStringLiteral("adsoff")).toBool());
    }
}

/// Runs in a child process without an application object.
TEST(UnnamedHostTest, DISABLED_NothingIsWrittenBeforeThereIsAName) {
    const QString folder = qEnvironmentVariable("VELMORA_TEST_UNNAMED");
    ASSERT_FALSE(folder.isEmpty());
    static QStringList lines;
    qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &line) { lines.append(line); });
    const auto files = [&] {
        return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    };
    Switches::activateDebugMode();
    EXPECT_FALSE(Switches::isADSRemoved());
    Switches::setADSRemoved(true);
    EXPECT_TRUE(Switches::isADSRemoved());
    VLMUserDefaults().removeObject(QStringLiteral("test"));
    LOG(QStringLiteral("not logged while ads are removed"));
    VLMStringFromKey(QStringLiteral("RemoveAdsText"));
    VLMMainAppBundle();
    EXPECT_TRUE(files().isEmpty()) << qPrintable(files().join(QLatin1Char(' ')));
    EXPECT_EQ(lines.filter(QStringLiteral("the application has no name yet")).size(), 2);
    EXPECT_EQ(lines.size(), 2) << qPrintable(lines.join(QLatin1Char('\n')));
    // All programs of an organisation share its folder.
    QCoreApplication::setOrganizationName(QStringLiteral("Acme"));
    EXPECT_TRUE(Switches::isADSRemoved());
    EXPECT_TRUE(files().isEmpty());
    QCoreApplication::setApplicationName(QStringLiteral("named"));
    EXPECT_TRUE(Switches::isADSRemoved());
    EXPECT_TRUE(QFile::exists(folder + QStringLiteral("/Acme/named.conf")));
    // The bundle's folder is known only with an application object.
    EXPECT_TRUE(VLMMainAppBundle().resourcePath().isEmpty());
    const LateApplication application;
    EXPECT_EQ(VLMMainAppBundle().resourcePath(), QCoreApplication::applicationDirPath());
    ProcessRoot::drop();
    EXPECT_TRUE(Switches::isADSRemoved());
    qInstallMessageHandler(nullptr);
    sayPartDone();
}

TEST(UserDefaultsWithoutANameTest, ValuesStayInMemoryUntilThereIsOne) {
    const QTemporaryDir folder;
    runUnnamedChildTest(QStringLiteral("UnnamedHostTest.*NothingIsWrittenBeforeThereIsAName"),
                        folder.path());
}

TEST_F(UserDefaultsTest, LogWritesOnlyInDebugModeAndWhileAdsAreNotRemoved) {
    LOG(QStringLiteral("one"));
    Switches::activateDebugMode();
    // The host's own rules do not matter.
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\nvelmora=false"));
    LOG(QStringLiteral("two %1 %@"));
    QLoggingCategory::setFilterRules({});
    Switches::setADSRemoved(true);
    LOG(QStringLiteral("three"));
    EXPECT_EQ(logged(), QStringList{QStringLiteral("two %1 %@")});
}

} // namespace velmora::test
