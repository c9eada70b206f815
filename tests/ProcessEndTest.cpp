#include "tests/support/LocalAdServer.h"
#include "tests/support/Waiting.h"

#include <Velmora/Velmora.h>

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>

namespace velmora::test {

/// A host in a process of its own that shows a banner and ends in some way at some moment. Told
/// by the environment; alone it does nothing.
TEST(HostThatEnds, EndsAsItIsTold) {
    const QByteArray way = qgetenv("VELMORA_TEST_CHILD");
    if (way.isEmpty())
        return;
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
    QTimer::singleShot(qEnvironmentVariableIntValue("VELMORA_TEST_MOMENT"), [way] {
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

    int statusOfHost(const char *way, int milliseconds) {
        QProcess host;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("VELMORA_TEST_CHILD"), QLatin1String(way));
        environment.insert(QStringLiteral("VELMORA_TEST_MOMENT"), QString::number(milliseconds));
        environment.insert(QStringLiteral("VELMORA_TEST_SERVER"), baseUrl);
        environment.insert(QStringLiteral("VELMORA_TEST_AUTHORITY"),
                           folder.filePath(QStringLiteral("ca.pem")));
        environment.insert(QStringLiteral("XDG_CACHE_HOME"), folder.path());
        host.setProcessEnvironment(environment);
        host.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        host.start(QCoreApplication::applicationFilePath(),
                   {QStringLiteral("--gtest_filter=HostThatEnds.*")});
        EXPECT_TRUE(host.waitForFinished(30'000));
        return host.exitStatus() == QProcess::NormalExit ? host.exitCode() : -1;
    }

    QTemporaryDir folder;
};

TEST_F(ProcessEndTest, AHostMayEndAtAnyMoment) {
    for (const char *way : {"exit", "quit"}) {
        for (const int moment : {0, 2, 4, 7, 11, 16, 25, 60, 120})
            EXPECT_EQ(statusOfHost(way, moment), 0) << way << " after " << moment;
    }
}

} // namespace velmora::test
