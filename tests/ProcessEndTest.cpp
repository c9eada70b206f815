// SPDX-License-Identifier: Apache-2.0
#include "tests/support/ChildTest.h"
#include "tests/support/LocalAdServer.h"

#include <Velmora/Velmora.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>

namespace velmora::test {

/// Runs in a child process: shows a banner and ends the process after VELMORA_TEST_MOMENT
/// milliseconds, by exit() or by quit().
TEST(HostThatEnds, DISABLED_ShowsABanner) {
    const QByteArray way = qgetenv("VELMORA_TEST_CHILD");
    Deployment deployment = Deployment::builtIn();
    deployment.acsURL = qEnvironmentVariable("VELMORA_TEST_SERVER");
    deployment.reachabilityProbe = QStringLiteral("127.0.0.1");
    QFile authority(qEnvironmentVariable("VELMORA_TEST_AUTHORITY"));
    ASSERT_TRUE(authority.open(QIODevice::ReadOnly));
    deployment.adServerAuthorities = authority.readAll();
    Deployment::replace(deployment);

    QWidget window;
    window.resize(900, 400);
    window.show();
    Velmora::addBannerForWindow(&window);
    QTimer::singleShot(qEnvironmentVariableIntValue("VELMORA_TEST_MOMENT"), [&] {
        EXPECT_TRUE(Velmora::BControllFromWindow(&window));
        sayPartDone();
        if (way == "exit")
            std::exit(0);
        QCoreApplication::quit();
    });
    QCoreApplication::exec();
}

class ProcessEndTest : public LocalAdServer {
protected:
    ProcessEndTest() {
        serve({banner(QStringLiteral("one"))});
        QFile authority(folder.filePath(QStringLiteral("ca.pem")));
        EXPECT_TRUE(authority.open(QIODevice::WriteOnly));
        authority.write(server.caPem());
    }

    QTemporaryDir folder;
};

TEST_F(ProcessEndTest, AHostWithABannerMayEndAtAnyTime) {
    for (const char *way : {"exit", "quit"}) {
        for (const int moment : {0, 2, 4, 7, 11, 16, 25, 60, 120}) {
            SCOPED_TRACE(moment);
            runChildTest(QStringLiteral("HostThatEnds.*"), QLatin1String(way),
                         {{QStringLiteral("VELMORA_TEST_MOMENT"), QString::number(moment)},
                          {QStringLiteral("VELMORA_TEST_SERVER"), baseUrl},
                          {QStringLiteral("VELMORA_TEST_AUTHORITY"),
                           folder.filePath(QStringLiteral("ca.pem"))},
                          {QStringLiteral("XDG_CACHE_HOME"), folder.path()}});
        }
    }
}

} // namespace velmora::test
