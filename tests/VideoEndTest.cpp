// SPDX-License-Identifier: Apache-2.0
#include "VideoPlayer.h"
#include "tests/support/ChildTest.h"

#include <QtCore/QTimer>

namespace velmora::test {

/// Runs in a child process: plays videos and ends the process after VELMORA_TEST_MOMENT
/// milliseconds, by exit() or by quit().
TEST(HostThatPlays, DISABLED_PlaysVideos) {
    const QByteArray way = qgetenv("VELMORA_TEST_CHILD");
    const auto clip = QUrl::fromLocalFile(QStringLiteral(VELMORA_TEST_CLIPS "/longer.mp4"));
    // Destroyed after main(), as static objects of a host are.
    static std::unique_ptr<VideoPlayer> players[2];
    for (auto &player : players) {
        player = std::make_unique<VideoPlayer>(VideoPlayer::Handlers());
        player->load(clip);
        player->play();
    }
    QTimer::singleShot(qEnvironmentVariableIntValue("VELMORA_TEST_MOMENT"), [way] {
        players[0].reset();
        EXPECT_TRUE(players[1]->isPlaying());
        sayPartDone();
        if (way == "exit")
            std::exit(0);
        QCoreApplication::quit();
    });
    QCoreApplication::exec();
}

TEST(VideoEndTest, AHostWithVideosMayEndAtAnyTime) {
    for (const char *way : {"exit", "quit"}) {
        for (const int moment : {0, 3, 8, 15, 25, 40, 60, 90, 130, 180, 250, 400}) {
            SCOPED_TRACE(moment);
            // Without the leak check, since threads that are about to end still own memory.
            runChildTest(QStringLiteral("HostThatPlays.*"), QLatin1String(way),
                         {{QStringLiteral("VELMORA_TEST_MOMENT"), QString::number(moment)},
                          {QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0")}});
        }
    }
}

} // namespace velmora::test
