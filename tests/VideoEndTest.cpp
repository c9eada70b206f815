#include "platform/VideoPlayer.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QProcess>
#include <QtCore/QTimer>

#include <gtest/gtest.h>

namespace velmora::test {

/// A host in a process of its own that plays videos and ends in some way at some moment. Told by
/// the environment; alone it does nothing.
TEST(HostThatPlays, EndsAsItIsTold) {
    const QByteArray way = qgetenv("VELMORA_TEST_CHILD");
    if (way.isEmpty())
        return;
    const auto clip = QUrl::fromLocalFile(QStringLiteral(VELMORA_TEST_CLIPS "/longer.mp4"));
    // Out of all functions' reach, as a host's own static objects are.
    static std::unique_ptr<VideoPlayer> players[2];
    for (auto &player : players) {
        player = std::make_unique<VideoPlayer>(VideoPlayer::Handlers());
        player->load(clip);
        player->play();
    }
    QTimer::singleShot(qEnvironmentVariableIntValue("VELMORA_TEST_MOMENT"), [way] {
        players[0].reset();
        if (way == "exit")
            std::exit(0);
        QCoreApplication::quit();
    });
    QCoreApplication::exec();
}

TEST(VideoEndTest, AHostMayEndAtAnyMoment) {
    for (const char *way : {"exit", "quit"}) {
        for (const int moment : {0, 3, 8, 15, 25, 40, 60, 90, 130, 180, 250, 400}) {
            QProcess host;
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.insert(QStringLiteral("VELMORA_TEST_CHILD"), QLatin1String(way));
            environment.insert(QStringLiteral("VELMORA_TEST_MOMENT"), QString::number(moment));
            // Threads that are about to end have not given back everything yet.
            environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
            host.setProcessEnvironment(environment);
            host.setProcessChannelMode(QProcess::ForwardedErrorChannel);
            host.start(QCoreApplication::applicationFilePath(),
                       {QStringLiteral("--gtest_filter=HostThatPlays.*")});
            EXPECT_TRUE(host.waitForFinished(30'000));
            const bool ended = host.exitStatus() == QProcess::NormalExit && host.exitCode() == 0;
            EXPECT_TRUE(ended) << way << " after " << moment;
        }
    }
}

} // namespace velmora::test
